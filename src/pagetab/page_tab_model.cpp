#include "pagetab/page_tab_model.h"

#include "base/caption_text.h"
#include "pagetab/tab_string.h"

#include <algorithm>
#include <utility>

namespace obk {

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

OleColour PageTabModel::shownPageColour() const {
    return lngSELECTEDPAGECOLOR == 0 ? clrPAGE : OleColour(static_cast<uint32_t>(lngSELECTEDPAGECOLOR));
}

void PageTabModel::rebuild() {
    ++revision_;
    tabs_.clear();
    select(0);
    const int32_t wanted = countCaptions(strTABSTRING);
    tabs_.reserve(static_cast<size_t>(wanted));
    std::optional<TextView> rest = strTABSTRING;
    while (count() < wanted) add(takeField(rest, u','));
}

void PageTabModel::add(TextView caption) {
    const int32_t index = count() + 1;
    Tab added;
    added.caption = trimmed(caption);
    if (added.caption.empty()) added.caption = u"Tab " + decimalText(index);
    added.font.take(font_);
    tabs_.push_back(std::move(added));
    select(index);
}

bool PageTabModel::select(int32_t index) {
    if (index != 0 && !has(index)) return false;
    active_ = index;
    pieces = Pieces::selected;
    return true;
}

bool PageTabModel::takePageColour() {
    const OleColour own = pageColourOf(strPUBSKINCOLORPAGE, active_);
    const OleColour page = own == OleColour() ? clrPAGEMAIN : own;
    lngSELECTEDPAGECOLOR = static_cast<int32_t>(own.value);
    return std::exchange(clrPAGE, page) != page;
}

void PageTabModel::setFont(TextView name, std::optional<int32_t> size) {
    ++revision_;
    font_ = {Text(name), size.value_or(font_.size)};
    for (Tab& tab : tabs_) tab.font.take(font_);
}

template <typename Means>
std::optional<int32_t> PageTabModel::nextThat(Means means) const {
    for (int32_t step = 1; step <= count(); ++step) {
        const int32_t index = (active_ + step - 1) % count() + 1;
        if (means(tab(index).caption)) return index;
    }
    return std::nullopt;
}

std::optional<int32_t> PageTabModel::meantBy(const KeyEvent& event, bool rightToLeft) const {
    const int32_t last = count();
    if (last == 0) return std::nullopt;
    if (event.shift == shift::alt) {
        // Keys of other kinds have the codes of other characters.
        const bool letter =
            (event.code >= '0' && event.code <= '9') || (event.code >= 'A' && event.code <= 'Z');
        return letter ? withAccessKey(static_cast<char16_t>(event.code)) : std::nullopt;
    }
    const int32_t next = active_ % last + 1, before = active_ > 1 ? active_ - 1 : last;
    if (event.shift == shift::control) {
        if (event.code == key::tab || event.code == key::pageDown) return next;
        if (event.code == key::pageUp) return before;
    }
    if (event.code == key::tab && event.shift == (shift::control | shift::shift)) return before;
    if (event.shift != 0) return std::nullopt;
    const int32_t onward = rightToLeft ? -1 : 1;
    switch (event.code) {
        case key::left:
            return std::clamp(active_ - onward, 1, last);
        case key::right:
            return std::clamp(active_ + onward, 1, last);
        case key::home:
            return 1;
        case key::end:
            return last;
        default:
            return std::nullopt;
    }
}

std::optional<int32_t> PageTabModel::calledBy(char16_t character) const {
    return nextThat([character](TextView caption) { return obk::calledBy(caption, character); });
}

std::optional<int32_t> PageTabModel::withAccessKey(char16_t character) const {
    return nextThat([character](TextView caption) { return accessKeyOf(caption) == upperAscii(character); });
}

Text PageTabModel::accessKeys() const {
    Text keys;
    for (const Tab& tab : tabs_) {
        const auto key = accessKeyOf(tab.caption);
        if (key && keys.find(*key) == Text::npos) keys += *key;
    }
    return keys;
}

}  // namespace obk
