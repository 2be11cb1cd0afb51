#include "pagetab/strip_layout.h"

#include <algorithm>

namespace obk {

namespace {

// Pixels at 96 DPI.
constexpr int32_t captionMarginX = 8;
constexpr int32_t captionMarginY = 4;
constexpr int32_t narrowestTab = 36;
constexpr int32_t widestTab = 240;
constexpr int32_t buttonWidth = 17;
constexpr int32_t stripMargin = 2;  // beside the outermost tabs, which grow into it when they are selected
constexpr int32_t raise = 2;        // of the selected tab above the others
constexpr int32_t pageEdge = 3;     // that shows of the page in any case

constexpr int64_t farAway = 1 << 29;  // leaves room for sums of coordinates

}  // namespace

StripLayout::StripLayout(const CaptionSizes& captions, const StripSpace& space) : space_(space) {
    const Dpi dpi = space.dpi;
    const int32_t width = std::max(space.size.width, 0);
    const int32_t height = std::max(space.size.height, 0);
    const int32_t natural = captions.height + 2 * dpi.scaled(captionMarginY) + dpi.scaled(raise);
    const int32_t bottom = std::clamp(natural, 0, std::max(height - dpi.scaled(pageEdge), 0));
    const int32_t margin = std::min(dpi.scaled(stripMargin), width / 2);
    page_ = {0, bottom, width, height};
    view_ = {margin, 0, width - margin, bottom};
    layOut(captions, dpi.scaled(widestTab));
    if (ends_.empty() || ends_.back() <= view_.width()) return;
    const int32_t both = 2 * dpi.scaled(buttonWidth);
    if (view_.width() - both >= dpi.scaled(narrowestTab)) {
        const int32_t end = width - both;
        buttons_ = {end, std::min(dpi.scaled(raise), bottom), width, bottom};
        view_.right = end - margin;
    }
    // Whatever is brought into the view is then whole.
    layOut(captions, std::min(dpi.scaled(widestTab), view_.width()));
}

void StripLayout::layOut(const CaptionSizes& captions, int32_t widest) {
    const int32_t narrowest = std::min(space_.dpi.scaled(narrowestTab), widest);
    const int32_t margins = 2 * space_.dpi.scaled(captionMarginX);
    ends_.resize(captions.widths.size());
    int64_t end = 0;
    for (size_t at = 0; at < ends_.size(); ++at) {
        const int64_t wanted = int64_t{captions.widths[at]} + margins;
        end += std::clamp<int64_t>(wanted, narrowest, widest);
        ends_[at] = end;
    }
}

PixelRect StripLayout::placed(const PixelRect& rect) const {
    if (!space_.rightToLeft) return rect;
    return {space_.size.width - rect.right, rect.top, space_.size.width - rect.left, rect.bottom};
}

int64_t StripLayout::start(int32_t index) const {
    const int32_t before = std::clamp(index - 1, 0, count());
    return before == 0 ? 0 : ends_[static_cast<size_t>(before) - 1];
}

PixelRect StripLayout::tab(int32_t index, int32_t first) const {
    if (index < 1 || index > count()) return {};
    const auto x = [this, first](int64_t position) {
        return static_cast<int32_t>(std::clamp(view_.left + position - start(first), -farAway, farAway));
    };
    return placed({x(start(index)), std::min(space_.dpi.scaled(raise), view_.bottom),
                   x(ends_[static_cast<size_t>(index) - 1]), view_.bottom});
}

PixelRect StripLayout::captionPlace(const PixelRect& tab) const {
    const int32_t margin = space_.dpi.scaled(captionMarginX);
    return {tab.left + margin, tab.top, tab.right - margin, tab.bottom};
}

int32_t StripLayout::firstEndingAfter(int64_t position) const {
    return static_cast<int32_t>(std::upper_bound(ends_.begin(), ends_.end(), position) - ends_.begin()) + 1;
}

int32_t StripLayout::firstStartingAt(int64_t position) const {
    if (position <= 0) return 1;
    return static_cast<int32_t>(std::lower_bound(ends_.begin(), ends_.end(), position) - ends_.begin()) + 2;
}

int32_t StripLayout::tabAt(PixelPoint point, int32_t first) const {
    if (!view().contains(point) || ends_.empty()) return 0;
    const int32_t x = space_.rightToLeft ? space_.size.width - 1 - point.x : point.x;
    const int32_t index = firstEndingAfter(start(first) + x - view_.left);
    return index <= count() ? index : 0;
}

int32_t StripLayout::lastShown(int32_t first) const {
    return std::min(firstEndingAfter(start(first) + view_.width() - 1), count());
}

int32_t StripLayout::furthestFirst() const {
    return ends_.empty() ? 1 : std::min(firstStartingAt(ends_.back() - view_.width()), count());
}

int32_t StripLayout::revealing(int32_t index, int32_t first) const {
    const int32_t held = std::clamp(first, 1, furthestFirst());
    if (index < 1 || index > count()) return held;
    const int32_t needed =
        std::min(firstStartingAt(ends_[static_cast<size_t>(index) - 1] - view_.width()), index);
    return std::clamp(held, needed, index);
}

}  // namespace obk
