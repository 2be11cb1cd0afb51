// Where the tabs of a strip stand: widths, scrolling by whole tabs, hit test, in either reading direction.
#pragma once

#include "base/units.h"

#include <cstdint>
#include <span>
#include <vector>

namespace obk {

// What tabs are laid out in.
struct StripSpace {
    PixelSize size;
    Dpi dpi;
    bool rightToLeft = false;
    friend bool operator==(const StripSpace&, const StripSpace&) = default;
};

// The captions as they are drawn, in pixels.
struct CaptionSizes {
    std::vector<int32_t> widths;
    int32_t height = 0;
};

// Tabs count from 1. `first` is the tab that stands at the beginning of the view; tabs before it, and those
// that the view has no room for, lie outside.
class StripLayout {
public:
    StripLayout() = default;
    StripLayout(const CaptionSizes& captions, const StripSpace& space);

    const StripSpace& space() const { return space_; }
    int32_t count() const { return static_cast<int32_t>(ends_.size()); }
    // Whether the tabs need more room than there is; the scroll buttons then stand at the end of the strip.
    bool scrolls() const { return !buttons_.empty(); }
    // Where tabs show.
    PixelRect view() const { return placed(view_); }
    // The same with the room beside it into which a selected tab grows.
    PixelRect reach() const { return placed({0, view_.top, view_.right + view_.left, view_.bottom}); }
    // The left and the right scroll button, side by side.
    PixelRect buttons() const { return placed(buttons_); }
    // What is below the tabs.
    PixelRect page() const { return page_; }

    // Empty for an index without a tab.
    PixelRect tab(int32_t index, int32_t first) const;
    // The part of a tab that its caption is drawn in.
    PixelRect captionPlace(const PixelRect& tab) const;
    // The tab that shows at a point; 0 for none.
    int32_t tabAt(PixelPoint point, int32_t first) const;
    // The last tab of which something shows.
    int32_t lastShown(int32_t first) const;
    // The furthest that scrolling leads: no more room is left at the end than need be.
    int32_t furthestFirst() const;
    // `first` held in range, and changed as little as brings the tab whole into the view; 0 asks for none.
    int32_t revealing(int32_t index, int32_t first) const;

private:
    int64_t start(int32_t index) const;
    int32_t firstEndingAfter(int64_t position) const;
    int32_t firstStartingAt(int64_t position) const;
    void layOut(const CaptionSizes& captions, int32_t widest);
    // From left to right into the reading direction.
    PixelRect placed(const PixelRect& rect) const;

    StripSpace space_;
    std::vector<int64_t> ends_;  // of each tab, from the beginning of the first one
    PixelRect view_, buttons_, page_;
};

}  // namespace obk
