#include "platform/win32/scaled_pixels.h"

#include <algorithm>
#include <cmath>

namespace obk::win32 {

namespace {

struct Weights {
    int32_t first = 0;
    std::vector<float> shares;  // of the source pixels from `first`; their sum is 1
};

// Which source pixels make up each result pixel along one axis.
std::vector<Weights> weightsFor(int32_t from, int32_t to) {
    std::vector<Weights> result(static_cast<size_t>(to));
    const double step = static_cast<double>(from) / to;
    // Half the width of the tent that is laid over the source, never narrower than one source pixel.
    const double reach = std::max(step, 1.0);
    for (int32_t at = 0; at < to; ++at) {
        Weights& weights = result[static_cast<size_t>(at)];
        const double centre = (at + 0.5) * step - 0.5;
        weights.first = std::max(0, static_cast<int32_t>(std::floor(centre - reach)) + 1);
        const int32_t last = std::min(from - 1, static_cast<int32_t>(std::ceil(centre + reach)) - 1);
        float sum = 0;
        for (int32_t source = weights.first; source <= last; ++source) {
            const auto share = static_cast<float>(std::max(0.0, 1 - std::abs(source - centre) / reach));
            weights.shares.push_back(share);
            sum += share;
        }
        for (float& share : weights.shares) share /= sum;
    }
    return result;
}

struct Channels {
    float value[4] = {};
};

uint32_t packed(const Channels& channels) {
    uint32_t pixel = 0;
    for (int channel = 0; channel < 4; ++channel) {
        const auto rounded = static_cast<uint32_t>(std::clamp(channels.value[channel] + 0.5f, 0.0f, 255.0f));
        pixel |= rounded << (8 * channel);
    }
    return pixel;
}

}  // namespace

std::vector<uint32_t> scaledPixels(std::span<const uint32_t> pixels, PixelSize from, PixelSize to) {
    const auto across = weightsFor(from.width, to.width);
    const auto down = weightsFor(from.height, to.height);
    const auto width = static_cast<size_t>(to.width);
    std::vector<Channels> rows(width * static_cast<size_t>(from.height));
    for (size_t y = 0; y < static_cast<size_t>(from.height); ++y) {
        for (size_t x = 0; x < width; ++x) {
            const Weights& weights = across[x];
            size_t source = y * static_cast<size_t>(from.width) + static_cast<size_t>(weights.first);
            Channels& sum = rows[y * width + x];
            for (const float share : weights.shares) {
                const uint32_t pixel = pixels[source++];
                for (int channel = 0; channel < 4; ++channel)
                    sum.value[channel] += share * static_cast<float>(pixel >> (8 * channel) & 0xFF);
            }
        }
    }
    std::vector<uint32_t> result(width * static_cast<size_t>(to.height));
    for (size_t y = 0; y < static_cast<size_t>(to.height); ++y) {
        const Weights& weights = down[y];
        for (size_t x = 0; x < width; ++x) {
            Channels sum;
            size_t source = static_cast<size_t>(weights.first) * width + x;
            for (const float share : weights.shares) {
                for (int channel = 0; channel < 4; ++channel)
                    sum.value[channel] += share * rows[source].value[channel];
                source += width;
            }
            result[y * width + x] = packed(sum);
        }
    }
    return result;
}

}  // namespace obk::win32
