// A 32-bit picture in memory with a device context to draw on it.
#pragma once

#include "base/units.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <map>

namespace obk::testing_support {

class DrawnPixels {
public:
    DrawnPixels(int width, int height) : width_(width), height_(height), dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        previous_ = SelectObject(dc_, bitmap_);
        clear(untouched);
    }
    DrawnPixels(const DrawnPixels&) = delete;
    DrawnPixels& operator=(const DrawnPixels&) = delete;
    ~DrawnPixels() {
        SelectObject(dc_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    static constexpr uint32_t untouched = 0x123456;
    HDC dc() const { return dc_; }
    // 0xRRGGBB
    uint32_t at(int x, int y) const {
        GdiFlush();
        return static_cast<const uint32_t*>(bits_)[y * width_ + x] & 0xFFFFFF;
    }
    void clear(uint32_t colour) {
        GdiFlush();
        std::fill_n(static_cast<uint32_t*>(bits_), width_ * height_, colour);
    }
    RECT all() const { return {0, 0, width_, height_}; }
    // How many pixels there are of each colour.
    std::map<uint32_t, int> colours(const RECT& bounds) const {
        std::map<uint32_t, int> found;
        for (int y = bounds.top; y < bounds.bottom; ++y) {
            for (int x = bounds.left; x < bounds.right; ++x) ++found[at(x, y)];
        }
        return found;
    }
    // The smallest rectangle around everything that is not `background`.
    PixelRect ink(uint32_t background) const {
        PixelRect found{width_, height_, 0, 0};
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                if (at(x, y) == background) continue;
                found = {std::min(found.left, x), std::min(found.top, y), std::max(found.right, x + 1),
                         std::max(found.bottom, y + 1)};
            }
        }
        return found;
    }

private:
    int width_, height_;
    HDC dc_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
    void* bits_ = nullptr;
};

}  // namespace obk::testing_support
