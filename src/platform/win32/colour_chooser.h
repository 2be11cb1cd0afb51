// The system's colour chooser.
#pragma once

#include "widgets/platform.h"

#include <windows.h>

#include <array>
#include <optional>

namespace obk::win32 {

class ColourChooser {
public:
    ColourChooser() { mixed_.fill(RGB(255, 255, 255)); }

    // Modal above the top-level window that `owner` is in. Nothing when it was cancelled or could not be
    // shown.
    std::optional<Rgb> choose(HWND owner, const ColourQuestion& question);

private:
    std::array<COLORREF, 16> mixed_{};  // a person's own colours, offered again the next time
};

}  // namespace obk::win32
