#include "pagetab/tab_set.h"

#include "framework/value.h"
#include "pagetab/caption_text.h"

#include <algorithm>

namespace obk {

namespace {

constexpr TextView missingField = u"0";

}  // namespace

int32_t countCaptions(TextView tabString) {
    if (trimmed(tabString).empty()) return 0;
    int32_t count = 1;
    for (size_t at = 0; at < tabString.size(); ++at)
        count += tabString[at] == u',' || tabString.substr(at, 2) == u"\r\n";
    return count;
}

TextView fieldOf(TextView list, char16_t separator, int32_t k) {
    if (k < 1) return missingField;
    for (; k > 1; --k) {
        const size_t end = list.find(separator);
        if (end == TextView::npos) return missingField;
        list.remove_prefix(end + 1);
    }
    return list.substr(0, list.find(separator));
}

OleColour pageColourOf(TextView colours, int32_t tab) {
    return toColour(Text(fieldOf(colours, u'|', tab))).value_or(OleColour());
}

void CaptionFont::take(const CaptionFont& other) {
    if (!other.name.empty()) name = other.name;
    if (other.size > 0) size = other.size;
}

FontDescription CaptionFont::over(const FontDescription& strip) const {
    constexpr double smallest = 1;
    constexpr double largest = 1638;  // points; what the system's fonts go up to
    FontDescription font = strip;
    if (!name.empty()) font.name = name;
    if (size > 0) font.size = size;
    font.size = font.size >= smallest ? std::min(font.size, largest) : smallest;
    return font;
}

void TabSet::rebuild(TextView tabString) {
    tabs_.clear();
    active_ = 0;
    const int32_t count = countCaptions(tabString);
    tabs_.reserve(static_cast<size_t>(count));
    // One walk along the string: asking for each field by its number would begin again every time.
    TextView rest = tabString;
    bool ended = false;
    for (int32_t k = 1; k <= count; ++k) {
        const size_t end = rest.find(u',');
        add(ended ? missingField : rest.substr(0, end));
        ended = ended || end == TextView::npos;
        if (!ended) rest.remove_prefix(end + 1);
    }
}

void TabSet::add(TextView caption) {
    const int32_t index = count() + 1;
    Tab added;
    added.caption = trimmed(caption);
    if (added.caption.empty()) added.caption = u"Tab " + decimalText(index);
    added.font.take(font_);
    tabs_.push_back(std::move(added));
    active_ = index;
}

bool TabSet::select(int32_t index) {
    if (index != 0 && !has(index)) return false;
    active_ = index;
    return true;
}

void TabSet::setFont(TextView name, std::optional<int32_t> size) {
    font_ = {Text(name), size.value_or(font_.size)};
    for (Tab& tab : tabs_) tab.font.take(font_);
}

template <typename Means>
std::optional<int32_t> TabSet::nextThat(Means means) const {
    for (int32_t step = 1; step <= count(); ++step) {
        const int32_t index = (active_ + step - 1) % count() + 1;
        if (means(tab(index).caption)) return index;
    }
    return std::nullopt;
}

std::optional<int32_t> TabSet::calledBy(char16_t character) const {
    return nextThat([character](TextView caption) { return obk::calledBy(caption, character); });
}

std::optional<int32_t> TabSet::withAccessKey(char16_t character) const {
    return nextThat([character](TextView caption) { return accessKeyOf(caption) == upperAscii(character); });
}

Text TabSet::accessKeys() const {
    Text keys;
    for (const Tab& tab : tabs_) {
        const auto key = accessKeyOf(tab.caption);
        if (key && keys.find(*key) == Text::npos) keys += *key;
    }
    return keys;
}

}  // namespace obk
