// Numbers that make a test walk longer or elsewhere than it does by itself.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace obk::test {

inline int32_t fromEnvironment(const char* name, int32_t otherwise) {
    const char* const value = std::getenv(name);
    return value ? std::atoi(value) : otherwise;
}

}  // namespace obk::test
