// The tabs of a strip: the texts that they are written down in, their captions and fonts, and the active one.
#pragma once

#include "base/colour.h"
#include "base/font.h"
#include "base/text.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace obk {

// How many tabs a tab string makes. Captions are parted by commas, and by line breaks as well, a hyphen at
// the end of a line being part of its break; blanks alone make none.
int32_t countCaptions(TextView tabString);
// Field `k` (from 1) of a list whose fields `separator` parts; "0" where the list has no such field. Line
// breaks part nothing here, on purpose: captions on lines of their own count as tabs and have no captions of
// their own.
TextView fieldOf(TextView list, char16_t separator, int32_t k);
// The colour number in field `tab` of a list like "255|0|16777215"; 0 where there is none.
OleColour pageColourOf(TextView colours, int32_t tab);

// What a caption has of its own; the rest of its font is the strip's.
struct CaptionFont {
    Text name;         // empty: the strip's
    int32_t size = 0;  // points; 0 or less: the strip's

    // Takes what the other one has, and keeps the rest.
    void take(const CaptionFont& other);
    FontDescription over(const FontDescription& strip) const;
};

struct Tab {
    Text caption;
    CaptionFont font;
};

// Tabs are numbered from 1 in the order of adding. Index 0 stands for no tab.
class TabSet {
public:
    int32_t count() const { return static_cast<int32_t>(tabs_.size()); }
    int32_t active() const { return active_; }
    bool has(int32_t index) const { return index >= 1 && index <= count(); }
    // `index` is that of a tab.
    const Tab& tab(int32_t index) const { return tabs_[static_cast<size_t>(index) - 1]; }
    // Empty where there is no such tab.
    TextView caption(int32_t index) const { return has(index) ? TextView(tab(index).caption) : TextView(); }

    // Makes the tabs of a tab string in place of those before, each as `add` does.
    void rebuild(TextView tabString);
    // Appends a tab and makes it the active one. The caption is trimmed; an empty one becomes "Tab " and the
    // tab's index.
    void add(TextView caption);
    // False, and nothing changed, for an index without a tab; 0 makes none active.
    bool select(int32_t index);
    // For the present captions and those to come. An empty name or a size of 0 or less keeps what is there;
    // no size leaves the one that was given before.
    void setFont(TextView name, std::optional<int32_t> size);

    // The tab that a typed character or an access key means, the next one after the active tab first.
    std::optional<int32_t> calledBy(char16_t character) const;
    std::optional<int32_t> withAccessKey(char16_t character) const;
    Text accessKeys() const;

private:
    template <typename Means>
    std::optional<int32_t> nextThat(Means means) const;

    std::vector<Tab> tabs_;
    int32_t active_ = 0;
    CaptionFont font_;
};

}  // namespace obk
