#include "flexgrid/plain_grid.h"

#include "base/letter_case.h"
#include "framework/value.h"

namespace obk::test {

int genericOrder(TextView left, TextView right) {
    const auto kind = [](TextView text) {
        if (numberFromText(text)) return 1;
        return text.empty() || text.front() < u'0' ? 0 : 2;
    };
    if (kind(left) != kind(right)) return kind(left) < kind(right) ? -1 : 1;
    if (kind(left) == 1) {
        const double one = *numberFromText(left), other = *numberFromText(right);
        return one < other ? -1 : one > other ? 1 : 0;
    }
    Text one(left), other(right);
    for (Text* text : {&one, &other}) {
        for (char16_t& unit : *text) unit = upperSimple(unit);
    }
    const int order = one.compare(other);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

}  // namespace obk::test
