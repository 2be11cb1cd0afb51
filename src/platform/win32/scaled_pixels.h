// Pictures at another size, without the steps that the system's own stretching leaves.
#pragma once

#include "base/units.h"

#include <cstdint>
#include <span>
#include <vector>

namespace obk::win32 {

// Each result pixel is the mean of the source area it covers, weighted by the overlap; enlarging interpolates
// between neighbours. Premultiplied 0xAARRGGBB in and out, both sizes at least 1 x 1.
std::vector<uint32_t> scaledPixels(std::span<const uint32_t> pixels, PixelSize from, PixelSize to);

}  // namespace obk::win32
