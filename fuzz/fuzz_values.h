// Values of every type, out of a fuzzer's bytes.
#pragma once

#include "framework/value.h"
#include "support/skipped_statements.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <bit>
#include <cstdio>
#include <cstdlib>

namespace obk::fuzz {

// What must hold whatever the bytes are.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// Nothing that a host or a person does makes a statement fail unexpectedly.
[[maybe_unused]] inline const SkippedObserver nobody =
    observeSkipped([](const SkippedStatement& statement) noexcept {
        if (test::AllowSkipped::allows(statement)) return;
        test::AllowSkipped::print("a statement was skipped", statement);
        std::abort();
    });

inline Text textFrom(FuzzedDataProvider& input) {
    static const Text known[] = {u"",     u"1",    u".",  u"-1",     u"1,234.5",    u"1e308", u"True",
                                 u"9.99", u"&HFF", u"10", u"a\r\nb", u"\xD800\xDC", u"0.15",  u"2147483648"};
    if (input.ConsumeBool()) return input.PickValueInArray(known);
    Text text;
    for (const char unit : input.ConsumeRandomLengthString(24))
        text.push_back(static_cast<char16_t>(static_cast<unsigned char>(unit)));
    if (!text.empty() && input.ConsumeBool()) text.back() = input.ConsumeIntegral<uint16_t>();
    return text;
}

inline FontRef fontFrom(FuzzedDataProvider& input) {
    if (input.ConsumeIntegralInRange(0, 5) == 0) return nullptr;
    return std::make_shared<SharedFont>(FontDescription{
        textFrom(input), input.ConsumeFloatingPointInRange(0.25, 8192.0), input.ConsumeIntegral<int16_t>(),
        input.ConsumeIntegral<int16_t>(), input.ConsumeBool()});
}

inline Value valueOf(ValueType type, FuzzedDataProvider& input) {
    switch (type) {
        case ValueType::empty:
            return {};
        case ValueType::boolean:
            return input.ConsumeBool();
        case ValueType::byte:
            return input.ConsumeIntegral<uint8_t>();
        case ValueType::integer:
            return input.ConsumeIntegral<int16_t>();
        case ValueType::longInteger:
            return input.ConsumeBool() ? input.ConsumeIntegralInRange<int32_t>(-3, 20)
                                       : input.ConsumeIntegral<int32_t>();
        case ValueType::single:
            return std::bit_cast<float>(input.ConsumeIntegral<uint32_t>());
        case ValueType::doubleFloat:
            return input.ConsumeBool() ? input.ConsumeFloatingPointInRange(-10.0, 10.0)
                                       : std::bit_cast<double>(input.ConsumeIntegral<uint64_t>());
        case ValueType::text:
            return textFrom(input);
        case ValueType::colour:
            return OleColour(input.ConsumeIntegral<uint32_t>());
        case ValueType::font:
            return fontFrom(input);
        case ValueType::picture:
            return std::make_shared<SharedPicture>(PixelSize{1, 1},
                                                   std::vector{input.ConsumeIntegral<uint32_t>()});
        case ValueType::object:
            return std::make_shared<OpaqueObject>();
    }
    return {};
}

inline Value anyValue(FuzzedDataProvider& input) {
    constexpr auto last = static_cast<int>(ValueType::object);
    return valueOf(static_cast<ValueType>(input.ConsumeIntegralInRange(0, last)), input);
}

// Mostly of the type that is wanted, as real hosts give it.
inline Value valueFor(ValueType type, FuzzedDataProvider& input) {
    return input.ConsumeIntegralInRange(0, 3) == 0 ? anyValue(input) : valueOf(type, input);
}

}  // namespace obk::fuzz
