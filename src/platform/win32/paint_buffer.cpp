#include "platform/win32/paint_buffer.h"

#include "platform/win32/display.h"

#include <algorithm>
#include <utility>

namespace obk::win32 {

namespace {

// Of 32 bits: a window on the whole of a common screen. What is larger is made for the occasion.
constexpr int64_t mostPixelsKept = int64_t{1920} * 1200;

}  // namespace

PaintBuffer::Use::Use(PaintBuffer& buffer, PixelSize size)
    : buffer_(buffer),
      size_(std::exchange(buffer.size_, {})),
      bitmap_(std::move(buffer.bitmap_)),
      dc_(CreateCompatibleDC(nullptr)) {
    if (size.width > size_.width || size.height > size_.height) {
        const PixelSize both{std::max(size.width, size_.width), std::max(size.height, size_.height)};
        size_ = int64_t{both.width} * both.height <= mostPixelsKept ? both : size;
        const BITMAPINFO info = bitmapInfo(size_);
        void* bits = nullptr;
        bitmap_.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    }
    if (bitmap_ && dc_) selection_.emplace(dc_.get(), bitmap_.get());
}

PaintBuffer::Use::~Use() {
    selection_.reset();
    if (!bitmap_ || int64_t{size_.width} * size_.height > mostPixelsKept) return;
    buffer_.bitmap_ = std::move(bitmap_);
    buffer_.size_ = size_;
}

}  // namespace obk::win32
