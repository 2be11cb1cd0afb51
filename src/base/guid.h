// The 128-bit identifiers by which the outside world knows classes and interfaces.
#pragma once

#include <array>
#include <cstdint>

namespace obk {

struct Guid {
    uint32_t first = 0;
    uint16_t second = 0;
    uint16_t third = 0;
    std::array<uint8_t, 8> rest{};

    friend constexpr bool operator==(const Guid&, const Guid&) = default;
};

}  // namespace obk
