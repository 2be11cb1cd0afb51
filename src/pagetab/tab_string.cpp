#include "pagetab/tab_string.h"

#include "framework/value.h"

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

TextView takeField(std::optional<TextView>& rest, char16_t separator) {
    if (!rest) return missingField;
    const size_t end = rest->find(separator);
    const TextView field = rest->substr(0, end);
    if (end == TextView::npos)
        rest.reset();
    else
        rest->remove_prefix(end + 1);
    return field;
}

TextView fieldOf(TextView list, char16_t separator, int32_t k) {
    std::optional<TextView> rest = list;
    for (; k > 1 && rest; --k) takeField(rest, separator);
    return k == 1 ? takeField(rest, separator) : missingField;
}

OleColour pageColourOf(TextView colours, int32_t tab) {
    return toColour(Text(fieldOf(colours, u'|', tab))).value_or(OleColour());
}

}  // namespace obk
