#include "grid/icon_list.h"

#include "cellicons/cell_icons.h"

#include <span>

namespace obk {

namespace {

// Of the cell's frame, so that it does not cut the icon.
int32_t marginOf(int32_t size) {
    return size / 8;
}

// One channel of a premultiplied pixel over the ground.
uint32_t channelOver(uint32_t pixel, int shift, uint8_t ground) {
    const uint32_t transparent = 255 - (pixel >> 24);
    return std::min(255u, ((pixel >> shift) & 0xFF) + (ground * transparent + 127) / 255) << shift;
}

uint32_t pixelOver(uint32_t pixel, Rgb ground) {
    return 0xFF000000u | channelOver(pixel, 16, ground.red()) | channelOver(pixel, 8, ground.green()) |
           channelOver(pixel, 0, ground.blue());
}

// Icon 0 is the ground alone.
PictureRef pictureOver(Rgb ground, int32_t icon, int32_t size) {
    const PixelSize whole{marginOf(size) + size, size};
    std::vector<uint32_t> drawn(static_cast<size_t>(whole.width * whole.height), pixelOver(0, ground));
    auto to = drawn.begin();
    int32_t x = 0;
    for (const uint32_t pixel : cell_icons::pixels(icon, size)) {
        if (x == 0) to += marginOf(size);
        *to++ = pixelOver(pixel, ground);
        x = (x + 1) % size;
    }
    return std::make_shared<SharedPicture>(whole, std::move(drawn));
}

PictureRef pictureForAllScreens(Rgb ground, int32_t icon) {
    PictureRef usual = pictureOver(ground, icon, cell_icons::sizes.front());
    usual->setDenser([ground, icon] {
        SharedPicture::Denser denser;
        for (const int32_t size : std::span(cell_icons::sizes).subspan(1))
            denser.push_back(pictureOver(ground, icon, size));
        return denser;
    });
    return usual;
}

}  // namespace

int32_t IconList::count() const {
    return cell_icons::count();
}

PictureRef IconList::picture(TextView key, Rgb ground) {
    if (ground != ground_) pictures_.clear();
    ground_ = ground;
    pictures_.resize(static_cast<size_t>(count()) + 1);
    const int32_t icon = cell_icons::indexOf(key).value_or(0);
    PictureRef& picture = pictures_[static_cast<size_t>(icon)];
    if (!picture) picture = pictureForAllScreens(ground, icon);
    return picture;
}

}  // namespace obk
