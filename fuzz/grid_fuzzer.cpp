// A session with the flexible grid: the tests' monkey, with the fuzzer's bytes for its dice.
#include "fuzz_values.h"
#include "support/flex_grid_monkey.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    obk::test::FlexGridMonkey monkey(
        [&](int32_t limit) { return input.ConsumeIntegralInRange<int32_t>(0, limit - 1); });
    for (int step = 0; step < 300 && input.remaining_bytes() > 0; ++step) {
        const char* const broken = monkey.step();
        obk::fuzz::require(!broken, broken);
    }
    return 0;
}
