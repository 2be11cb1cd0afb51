#include "flexgrid/sort_order.h"

#include "base/letter_case.h"
#include "framework/value.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <string>
#include <string_view>

namespace obk {

namespace {

// Most numbers are digits with at most one point; read without the rules of all the others.
std::optional<double> plainNumber(TextView text) {
    constexpr size_t exactDigits = 15;
    static constexpr double powers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = !text.empty() && text.front() == u'-';
    if (negative) text.remove_prefix(1);
    if (text.empty() || text.size() > exactDigits + 1) return std::nullopt;
    uint64_t digits = 0;
    size_t decimals = 0, count = 0;
    bool afterPoint = false;
    for (const char16_t unit : text) {
        const unsigned digit = unit - unsigned{u'0'};
        if (digit <= 9) {
            digits = digits * 10 + digit;
            ++count;
            decimals += afterPoint ? 1 : 0;
        } else if (unit == u'.' && !afterPoint) {
            afterPoint = true;
        } else {
            return std::nullopt;
        }
    }
    if (count == 0 || count > exactDigits) return std::nullopt;
    const double number = static_cast<double>(digits) / powers[decimals];  // both exact, so rounded once
    return negative ? -number : number;
}

std::optional<double> readNumber(TextView text) {
    if (text.empty()) return std::nullopt;
    if (const auto number = plainNumber(text)) return number;
    // No number begins with a letter, and names are what is sorted most.
    const char16_t first = text.front();
    if ((first >= u'A' && first <= u'Z') || (first >= u'a' && first <= u'z')) return std::nullopt;
    return numberFromText(text);
}

// Whole numbers in the order of the floating ones; both zeros are one.
uint64_t orderedBits(double number) {
    constexpr uint64_t sign = uint64_t{1} << 63;
    const auto bits = std::bit_cast<uint64_t>(number == 0 ? 0.0 : number);
    return (bits & sign) != 0 ? ~bits : bits | sign;
}

void appendCapitals(TextView text, std::string& key) {
    for (const char16_t unit : text) {
        const char16_t capital = upperSimple(unit);
        key.push_back(static_cast<char>(capital >> 8));
        key.push_back(static_cast<char>(capital & 0xFF));
    }
}

// What decides nearly every comparison, and the place that keeps equal ones in their order.
struct Key {
    uint64_t first = 0;
    uint32_t place = 0;
    uint32_t index = 0;  // of the rest
};

// The keys of one kind, in the order of their places at first.
class Keys {
public:
    Keys(SortDirection direction, const std::function<TextView(uint32_t)>& text, const SortKeyOf& keyOf)
        : flip_(direction == SortDirection::descending ? ~uint64_t{0} : 0), text_(text), keyOf_(keyOf) {}

    void add(uint32_t place, double number) { keys_.push_back({orderedBits(number) ^ flip_, place, 0}); }
    void add(uint32_t place, TextView text);
    void sortNumbers() {
        sort([](const Key& left, const Key& right) {
            return left.first == right.first ? 0 : left.first < right.first ? -1 : 1;
        });
    }
    void sortTexts() {
        sort([this](const Key& left, const Key& right) { return comparedTexts(left, right); });
    }
    void appendTo(std::vector<uint32_t>& order) const {
        for (const Key& key : keys_) order.push_back(key.place);
    }

private:
    static constexpr size_t firstBytes = sizeof(uint64_t);

    struct Rest {
        size_t start = 0, length = 0;  // of the whole key
    };

    // `compared` is negative where the left key comes first, and 0 for equal ones.
    template <typename Compared>
    void sort(const Compared& compared);
    int comparedTexts(const Key& left, const Key& right) const;
    std::string_view rest(const Rest& of) const {
        const size_t first = std::min(of.length, firstBytes);
        return std::string_view(bytes_).substr(of.start + first, of.length - first);
    }

    uint64_t flip_;  // turns the order of the keys round, not that of their places
    const std::function<TextView(uint32_t)>& text_;
    const SortKeyOf& keyOf_;
    std::vector<Key> keys_;
    std::vector<Rest> rests_;
    std::string bytes_;
};

void Keys::add(uint32_t place, TextView text) {
    const size_t start = bytes_.size();
    if (keyOf_)
        keyOf_(text, bytes_);
    else
        appendCapitals(text, bytes_);
    uint64_t first = 0;
    for (size_t at = start; at < start + firstBytes; ++at)
        first = first << 8 | (at < bytes_.size() ? static_cast<uint8_t>(bytes_[at]) : 0u);
    keys_.push_back({first ^ flip_, place, static_cast<uint32_t>(rests_.size())});
    rests_.push_back({start, bytes_.size() - start});
}

template <typename Compared>
void Keys::sort(const Compared& compared) {
    const auto before = [&](const Key& left, const Key& right) { return compared(left, right) < 0; };
    if (!std::is_sorted(keys_.rbegin(), keys_.rend(), before)) {
        std::sort(keys_.begin(), keys_.end(), [&](const Key& left, const Key& right) {
            const int order = compared(left, right);
            return order != 0 ? order < 0 : left.place < right.place;
        });
        return;
    }
    // They stand the other way round, as after the same column was sorted: turned, equal ones in their order.
    std::reverse(keys_.begin(), keys_.end());
    for (auto start = keys_.begin(); start != keys_.end();) {
        const auto end =
            std::find_if(start + 1, keys_.end(), [&](const Key& key) { return before(*start, key); });
        std::reverse(start, end);
        start = end;
    }
}

int Keys::comparedTexts(const Key& left, const Key& right) const {
    if (left.first != right.first) return left.first < right.first ? -1 : 1;
    const int sign = flip_ == 0 ? 1 : -1;
    const Rest& leftRest = rests_[left.index];
    const Rest& rightRest = rests_[right.index];
    if (const int order = rest(leftRest).compare(rest(rightRest)); order != 0) return order * sign;
    // Zero bytes at a key's end look like none in the first part.
    if (leftRest.length != rightRest.length) return leftRest.length < rightRest.length ? -sign : sign;
    // An alphabet may hold different texts for equal.
    return keyOf_ ? text_(left.place).compare(text_(right.place)) * sign : 0;
}

}  // namespace

bool isNumber(TextView text) {
    return readNumber(text).has_value();
}

std::vector<uint32_t> sortedOrder(uint32_t count, const std::function<TextView(uint32_t)>& text,
                                  SortDirection direction, const SortKeyOf& keyOf) {
    Keys early(direction, text, keyOf), numbers(direction, text, keyOf), late(direction, text, keyOf);
    for (uint32_t place = 0; place < count; ++place) {
        const TextView key = text(place);
        if (const auto number = readNumber(key))
            numbers.add(place, *number);
        else if (key.empty() || upperSimple(key.front()) < u'0')
            early.add(place, key);
        else
            late.add(place, key);
    }
    early.sortTexts();
    numbers.sortNumbers();
    late.sortTexts();

    std::vector<uint32_t> order;
    order.reserve(count);
    if (direction == SortDirection::ascending) {
        for (const Keys* keys : {&early, &numbers, &late}) keys->appendTo(order);
    } else {
        for (const Keys* keys : {&late, &numbers, &early}) keys->appendTo(order);
    }
    return order;
}

}  // namespace obk
