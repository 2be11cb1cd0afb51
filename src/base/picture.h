// Pictures that hosts and the library share by reference.
#pragma once

#include "base/units.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace obk {

// An unchanging picture of 32-bit pixels with identity.
class SharedPicture {
public:
    // The same picture as the system's own object; it keeps what pixels cannot say (its file format, a
    // metafile).
    class Counterpart {
    public:
        virtual ~Counterpart() = default;
    };

    SharedPicture() = default;
    // `pixels` are premultiplied 0xAARRGGBB, row by row from the top; a wrong count makes the picture empty.
    SharedPicture(PixelSize size, std::vector<uint32_t> pixels) : size_(size), pixels_(std::move(pixels)) {
        const auto count = static_cast<uint64_t>(size.width < 0 ? 0 : size.width) *
                           static_cast<uint64_t>(size.height < 0 ? 0 : size.height);
        if (count != pixels_.size()) *this = {};
    }

    PixelSize size() const { return size_; }
    const std::vector<uint32_t>& pixels() const { return pixels_; }

    // The same picture drawn for denser screens, where this one is drawn for 96 DPI; the smallest one first.
    // `draw` is called when such a screen asks; what fails is tried again the next time.
    using Denser = std::vector<std::shared_ptr<const SharedPicture>>;
    void setDenser(std::function<Denser()> draw) { drawDenser_ = std::move(draw); }
    const Denser& denser() const;

    Counterpart* counterpart() const { return counterpart_.get(); }
    void setCounterpart(std::unique_ptr<Counterpart> counterpart) { counterpart_ = std::move(counterpart); }

private:
    PixelSize size_;
    std::vector<uint32_t> pixels_;
    mutable std::function<Denser()> drawDenser_;
    mutable Denser denser_;
    std::unique_ptr<Counterpart> counterpart_;
};

// Null means "no picture".
using PictureRef = std::shared_ptr<SharedPicture>;

// What is drawn for a picture on one screen, and how large.
struct ScreenPicture {
    const SharedPicture& picture;
    PixelSize size;
};
// As large as it is at 96 DPI. A picture that was drawn for denser screens too is not stretched to that size,
// but keeps within it in whole multiples of its pixels, so that it is sharp everywhere.
ScreenPicture onScreen(const SharedPicture& picture, Dpi dpi);

}  // namespace obk
