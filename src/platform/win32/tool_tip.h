// The tool tip of one window.
#pragma once

#include "base/text.h"
#include "base/units.h"
#include "platform/win32/environment.h"

#include <windows.h>

#include <string>

namespace obk::win32 {

class ToolTip {
public:
    ToolTip() = default;
    ToolTip(const ToolTip&) = delete;
    ToolTip& operator=(const ToolTip&) = delete;
    ~ToolTip() { close(); }

    // Shown over `owner` while the mouse rests inside `rect`; an empty text removes it.
    void set(const Environment& environment, HWND owner, const PixelRect& rect, TextView text);
    void close();

private:
    HWND window_ = nullptr;  // made when it is first needed
    HWND owner_ = nullptr;
    std::wstring text_;
    PixelRect rect_;
};

}  // namespace obk::win32
