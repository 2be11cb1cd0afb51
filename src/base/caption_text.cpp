#include "base/caption_text.h"

#include <algorithm>

namespace obk {

namespace {

constexpr char16_t mark = u'&';

// Calls `visit` with each character that shows, and whether it is the one after a mark.
template <typename Visit>
void walk(TextView caption, Visit visit) {
    for (size_t at = 0; at < caption.size(); ++at) {
        const bool marked = caption[at] == mark && at + 1 < caption.size();
        if (caption[at] == mark && !marked) return;
        if (marked) ++at;
        if (!visit(caption[at], marked && caption[at] != mark)) return;
    }
}

}  // namespace

Text lineOfCaption(TextView caption) {
    constexpr size_t beyondAnyScreen = 500;
    Text line(caption.substr(0, beyondAnyScreen));
    std::replace_if(
        line.begin(), line.end(), [](char16_t unit) { return unit < u' '; }, u' ');
    return line;
}

Text plainCaption(TextView caption) {
    Text plain;
    walk(lineOfCaption(caption), [&plain](char16_t unit, bool) {
        plain += unit;
        return true;
    });
    return plain;
}

std::optional<char16_t> accessKeyOf(TextView caption) {
    std::optional<char16_t> key;
    walk(caption, [&key](char16_t unit, bool marked) {
        if (marked && unit > u' ') key = upperAscii(unit);
        return !key;
    });
    return key;
}

Text spokenAccessKey(TextView caption) {
    const auto key = accessKeyOf(caption);
    return key ? u"Alt+" + Text(1, *key) : Text();
}

bool calledBy(TextView caption, char16_t character) {
    if (accessKeyOf(caption) == upperAscii(character)) return true;
    bool first = false;
    walk(caption, [&first, character](char16_t unit, bool) {
        first = upperAscii(unit) == upperAscii(character);
        return false;
    });
    return first;
}

}  // namespace obk
