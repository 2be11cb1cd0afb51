#include "support/grid_monkey.h"
#include "support/from_environment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace obk::test {
namespace {

// A walk is the same whenever its seed is: OBK_MONKEY_SEED=7 OBK_MONKEY_STEPS=1000000 walks one of them for
// long. A screen reader asks for everything that shows in each event.
TEST(GridMonkey, WalksThroughEditingWithoutHarm) {
    const int32_t steps = fromEnvironment("OBK_MONKEY_STEPS", 600);
    const auto [first, last] = walkSeeds(8);
    for (int32_t seed = first; seed <= last; ++seed) {
        std::mt19937 random(static_cast<uint32_t>(seed));
        GridMonkey monkey(diceOf(random));
        monkey.asksAlways = true;
        for (int32_t step = 0; step < steps; ++step) {
            const char* const broken = monkey.step();
            ASSERT_EQ(broken, nullptr) << broken << ": seed " << seed << ", step " << step;
        }
    }
}

}  // namespace
}  // namespace obk::test
