// The system's font objects for font descriptions, a few kept for the next use.
#pragma once

#include "base/font.h"
#include "base/units.h"
#include "platform/win32/handles.h"
#include "widgets/appearance.h"

#include <memory>
#include <optional>
#include <vector>

namespace obk::win32 {

// Shared, because a window goes on using a font which the cache has let go.
using SharedGdiFont = std::shared_ptr<std::remove_pointer_t<HFONT>>;

class FontCache {
public:
    // Null when the system refuses. A size that is no positive number counts as 8.25 points.
    SharedGdiFont get(const FontDescription& font, Dpi dpi);
    // Its own, which layouts ask for all the time; those of the font in `dc` when the system refuses.
    FontMetrics metrics(const FontDescription& font, Dpi dpi, HDC dc);
    void clear() { entries_.clear(); }

private:
    struct Entry {
        FontDescription description;
        Dpi dpi;
        SharedGdiFont font;
        std::optional<FontMetrics> metrics;
    };
    Entry* find(const FontDescription& font, Dpi dpi);
    std::vector<Entry> entries_;  // the last used one at the end
};

LOGFONTW toLogFont(const FontDescription& font, Dpi dpi);
FontDescription fromLogFont(const LOGFONTW& font, Dpi dpi);

}  // namespace obk::win32
