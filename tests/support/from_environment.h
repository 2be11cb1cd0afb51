// Numbers that make a test walk longer or elsewhere than it does by itself.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace obk::test {

inline int32_t fromEnvironment(const char* name, int32_t otherwise) {
    const char* const value = std::getenv(name);
    return value ? std::atoi(value) : otherwise;
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
