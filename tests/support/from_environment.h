// What a random walk goes by, and numbers that make it longer or lead it elsewhere than it goes by itself.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <random>

namespace obk::test {

inline int32_t fromEnvironment(const char* name, int32_t otherwise) {
    const char* const value = std::getenv(name);
    return value ? std::atoi(value) : otherwise;
}

// Any number from 0 to one less than the argument; the library's distributions differ between systems.
inline auto diceOf(std::mt19937& random) {
    return [&random](int32_t limit) { return static_cast<int32_t>(random() % static_cast<uint32_t>(limit)); };
}

// The seeds of a walk: the one that OBK_MONKEY_SEED names, or the first `count`.
struct Seeds {
    int32_t first, last;
};
inline Seeds walkSeeds(int32_t count) {
    if (std::getenv("OBK_MONKEY_SEED") == nullptr) return {1, count};
    const int32_t one = fromEnvironment("OBK_MONKEY_SEED", 1);
    return {one, one};
}

}  // namespace obk::test
