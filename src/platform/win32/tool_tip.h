// The tool tip of one window.
#pragma once

#include "base/text.h"
#include "base/units.h"
#include "platform/win32/environment.h"
#include "widgets/input.h"

#include <windows.h>

#include <commctrl.h>

#include <string>

namespace obk::win32 {

class ToolTip {
public:
    ToolTip() = default;
    ToolTip(const ToolTip&) = delete;
    ToolTip& operator=(const ToolTip&) = delete;
    ~ToolTip() { close(); }

    // Shown over `owner` while the mouse rests inside `rect`, or at once below that; an empty text removes
    // it.
    void set(const Environment& environment, HWND owner, const PixelRect& rect, TextView text,
             ToolTipShown shown);
    void close();

private:
    void showAtOnce(TTTOOLINFOW& tool, const PixelRect& rect) const;

    HWND window_ = nullptr;  // made when it is first needed
    HWND owner_ = nullptr;
    std::wstring text_;
    PixelRect rect_;
    ToolTipShown shown_ = ToolTipShown::whenMouseRests;
};

}  // namespace obk::win32
