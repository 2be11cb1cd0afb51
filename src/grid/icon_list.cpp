#include "grid/icon_list.h"

#include "base/left_undone.h"
#include "cellicons/cell_icons.h"

#include <span>

namespace obk {

namespace {

// Of the cell's frame, so that it does not cut the icon.
int32_t marginOf(int32_t size) {
    return size / 8;
}

// One channel of a premultiplied pixel over the background.
uint32_t channelOver(uint32_t pixel, int shift, uint8_t background) {
    const uint32_t transparent = 255 - (pixel >> 24);
    return std::min(255u, ((pixel >> shift) & 0xFF) + (background * transparent + 127) / 255) << shift;
}

uint32_t pixelOver(uint32_t pixel, Rgb background) {
    return 0xFF000000u | channelOver(pixel, 16, background.red()) |
           channelOver(pixel, 8, background.green()) | channelOver(pixel, 0, background.blue());
}

// Icon 0 is the background alone.
PictureRef pictureOver(Rgb background, int32_t icon, int32_t size) {
    const PixelSize whole{marginOf(size) + size, size};
    std::vector<uint32_t> drawn(static_cast<size_t>(whole.width * whole.height), pixelOver(0, background));
    auto to = drawn.begin();
    int32_t x = 0;
    for (const uint32_t pixel : cell_icons::pixels(icon, size)) {
        if (x == 0) to += marginOf(size);
        *to++ = pixelOver(pixel, background);
        x = (x + 1) % size;
    }
    return std::make_shared<SharedPicture>(whole, std::move(drawn));
}

PictureRef pictureForAllScreens(Rgb background, int32_t icon) {
    PictureRef picture = pictureOver(background, icon, cell_icons::sizes.front());
    picture->setDenser([background, icon] {
        SharedPicture::Denser denser;
        for (const int32_t size : std::span(cell_icons::sizes).subspan(1))
            denser.push_back(pictureOver(background, icon, size));
        return denser;
    });
    return picture;
}

}  // namespace

int32_t IconList::count() const {
    return cell_icons::count();
}

PictureRef IconList::picture(TextView key, Rgb background) {
    if (background != background_) pictures_.clear();
    background_ = background;
    pictures_.resize(static_cast<size_t>(count()) + 1);
    const int32_t icon = cell_icons::indexOf(key).value_or(0);
    if (icon == 0) tellUndone({.kind = LeftUndone::Kind::icon, .subject = key});
    PictureRef& picture = pictures_[static_cast<size_t>(icon)];
    if (!picture) picture = pictureForAllScreens(background, icon);
    return picture;
}

}  // namespace obk
