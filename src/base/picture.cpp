#include "base/picture.h"

#include "base/attempt.h"

namespace obk {

const SharedPicture::Denser& SharedPicture::denser() const {
    if (drawDenser_ && attempt([this] { denser_ = drawDenser_(); })) drawDenser_ = nullptr;
    return denser_;
}

ScreenPicture onScreen(const SharedPicture& picture, Dpi dpi) {
    const PixelSize full{dpi.scaled(picture.size().width), dpi.scaled(picture.size().height)};
    if (full == picture.size() || picture.denser().empty()) return {picture, full};
    const SharedPicture* best = &picture;
    PixelSize size = picture.size();
    const auto consider = [&](const SharedPicture& candidate) {
        const PixelSize own = candidate.size();
        if (own.width < 1 || own.height < 1) return;
        const int32_t times = std::min(full.width / own.width, full.height / own.height);
        // Of two that fill the same, the later one has finer pixels.
        if (times * own.width < size.width) return;
        best = &candidate;
        size = {times * own.width, times * own.height};
    };
    consider(picture);
    for (const auto& candidate : picture.denser()) consider(*candidate);
    return {*best, size};
}

}  // namespace obk
