// What a strip of tabs holds: the tabs, the active one, texts and colours, and the rules by which they
// change.
#pragma once

#include "base/colour.h"
#include "base/font.h"
#include "base/text.h"
#include "widgets/input.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace obk {

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
class PageTabModel {
public:
    // How the tabs are shown: the selected one in its look, that one highlighted as well, or all disabled.
    enum class Pieces : uint8_t { selected, highlighted, disabled };

    // Plain values; setting one changes no other.
    Pieces pieces = Pieces::selected;
    OleColour clrPAGEBACK{SystemColour::buttonFace};  // of the strip behind the tabs
    OleColour clrTAB{SystemColour::buttonFace};
    OleColour clrPAGE{SystemColour::buttonFace};
    OleColour clrPAGEMAIN{SystemColour::buttonFace};  // of pages without a colour of their own
    OleColour clrTEXT{SystemColour::buttonText};
    int32_t lngSELECTEDPAGECOLOR = 0;  // the active page's own colour; 0: it is drawn in `clrPAGE`
    int32_t lngRESTORETAB = 0;         // the active tab as a host last knew it
    Text strTABSTRING;                 // what `rebuild` makes the tabs of
    Text strPUBSKINCOLORPAGE;          // the pages' own colours
    Text strTABCOLOR;                  // kept for the host

    int32_t count() const { return static_cast<int32_t>(tabs_.size()); }
    int32_t active() const { return active_; }
    // `index` is that of a tab.
    const Tab& tab(int32_t index) const { return tabs_[static_cast<size_t>(index) - 1]; }
    // Empty where there is no such tab.
    TextView caption(int32_t index) const { return has(index) ? TextView(tab(index).caption) : TextView(); }
    // Another number once captions or their fonts are others. One that is only added leaves it.
    uint32_t revision() const { return revision_; }
    OleColour shownPageColour() const;

    // Makes the tabs of `strTABSTRING` in place of those before, each as `add` does.
    void rebuild();
    // Appends a tab and makes it the active one. The caption is trimmed; an empty one becomes "Tab " and the
    // tab's index.
    void add(TextView caption);
    // False, and nothing changed, for an index without a tab; 0 makes none active.
    bool select(int32_t index);
    // The active tab, as a host reads it: `restore` selects it again.
    int32_t readActive() { return lngRESTORETAB = active_; }
    bool restore() { return select(lngRESTORETAB); }
    // Puts the active tab's own page colour in place, or `clrPAGEMAIN`. Whether `clrPAGE` is another one now.
    bool takePageColour();
    // For the present captions and those to come. An empty name or a size of 0 or less keeps what is there;
    // no size leaves the one that was given before.
    void setFont(TextView name, std::optional<int32_t> size);

    // The tab that a key, a typed character or an access key means; of several the next one after the active
    // tab.
    std::optional<int32_t> meantBy(const KeyEvent& event, bool rightToLeft) const;
    std::optional<int32_t> calledBy(char16_t character) const;
    std::optional<int32_t> withAccessKey(char16_t character) const;
    Text accessKeys() const;

private:
    bool has(int32_t index) const { return index >= 1 && index <= count(); }
    template <typename Means>
    std::optional<int32_t> nextThat(Means means) const;

    std::vector<Tab> tabs_;
    int32_t active_ = 0;
    CaptionFont font_;
    uint32_t revision_ = 0;
};

}  // namespace obk
