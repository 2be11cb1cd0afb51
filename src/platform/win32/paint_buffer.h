// The off-screen bitmap that windows are painted on.
#pragma once

#include "base/units.h"
#include "platform/win32/handles.h"

#include <optional>

namespace obk::win32 {

// Remembers the bitmap of the last painting: the pages of a new one would cost as much as half of what is
// drawn on it. One for all windows of a thread, which paint one after the other.
class PaintBuffer {
public:
    // A bitmap for one painting, with anything on it. A painting inside another one has its own.
    class Use {
    public:
        // `size` in pixels; null handles when the system refuses.
        Use(PaintBuffer& buffer, PixelSize size);
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        ~Use();

        // With the bitmap selected, its origin at the top left; null when the system refuses.
        HDC dc() const { return selection_ ? dc_.get() : nullptr; }

    private:
        PaintBuffer& buffer_;
        PixelSize size_;
        UniqueBitmap bitmap_;
        UniqueMemoryDc dc_;
        std::optional<Selection> selection_;
    };

private:
    PixelSize size_;
    UniqueBitmap bitmap_;
};

}  // namespace obk::win32
