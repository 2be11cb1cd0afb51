#include "platform/win32/tool_tip.h"

#include "platform/win32/display.h"
#include "platform/win32/text_conversion.h"

namespace obk::win32 {

void ToolTip::set(const Environment& environment, HWND owner, const PixelRect& rect, TextView text,
                  ToolTipShown shown) {
    std::wstring wanted = toWide(text);
    if (wanted == text_ && rect == rect_ && owner == owner_ && shown == shown_) return;
    if (wanted.empty() || !owner) {
        close();
        return;
    }
    if (owner != owner_ || shown != shown_) close();
    const bool atOnce = shown == ToolTipShown::atOnce;
    TTTOOLINFOW tool{};
    // The size that every version of the common controls accepts.
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_TRANSPARENT | (atOnce ? TTF_TRACK | TTF_ABSOLUTE : TTF_SUBCLASS);
    tool.hwnd = owner;
    tool.uId = 1;
    tool.rect = toRect(rect);
    tool.lpszText = wanted.data();
    if (!window_) {
        const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
        InitCommonControlsEx(&classes);
        const Environment::ActivationScope scope(environment);
        window_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW,
                                  nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0, owner,
                                  nullptr, environment.module(), nullptr);
        if (!window_) return;
        owner_ = owner;
        SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    } else {
        SendMessageW(window_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
        SendMessageW(window_, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    text_ = std::move(wanted);
    rect_ = rect;
    shown_ = shown;
    if (atOnce) showAtOnce(tool, rect);
}

void ToolTip::showAtOnce(TTTOOLINFOW& tool, const PixelRect& rect) const {
    POINT below{rect.left, rect.bottom};
    ClientToScreen(owner_, &below);
    SendMessageW(window_, TTM_TRACKPOSITION, 0, MAKELPARAM(below.x, below.y));
    SendMessageW(window_, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
}

void ToolTip::close() {
    if (window_ && IsWindow(window_)) DestroyWindow(window_);
    window_ = nullptr;
    owner_ = nullptr;
    text_.clear();
}

}  // namespace obk::win32
