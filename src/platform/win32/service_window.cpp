#include "platform/win32/service_window.h"

#include "base/attempt.h"

#include <utility>

namespace obk::win32 {

namespace {

constexpr UINT tellListenersMessage = WM_APP;
constexpr UINT runActionsMessage = WM_APP + 1;

SystemColours systemColours() {
    SystemColours colours{};
    for (size_t index = 0; index < colours.size(); ++index)
        colours[index] = GetSysColor(static_cast<int>(index));
    return colours;
}

}  // namespace

ServiceWindow::ServiceWindow(HINSTANCE module, std::wstring className, FontCache& fonts)
    : module_(module), className_(std::move(className)), fonts_(fonts) {}

ServiceWindow::~ServiceWindow() {
    for (const auto& [timer, tick] : timers_) KillTimer(window_, timer);
    if (window_) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        DestroyWindow(window_);
    }
    if (registered_) UnregisterClassW(className_.c_str(), module_);
}

HWND ServiceWindow::window() {
    if (window_) return window_;
    if (!registered_) {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.lpfnWndProc = procedure;
        description.hInstance = module_;
        description.lpszClassName = className_.c_str();
        registered_ = RegisterClassExW(&description) != 0;
        if (!registered_) return nullptr;
    }
    // Top-level, although it never shows: message-only windows do not hear of changed colours.
    window_ = CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, className_.c_str(), L"", WS_POPUP, 0, 0, 0,
                              0, nullptr, nullptr, module_, nullptr);
    if (!window_) return nullptr;
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    if (!listeners_.empty() && unheard_ != systemColours()) appearanceChangedSoon();
    return window_;
}

UINT_PTR ServiceWindow::startTimer(UINT milliseconds, std::function<void()> tick) {
    const HWND target = window();
    if (!target) return 0;
    // A number is not used again: a tick that was under way when its timer stopped finds nobody.
    const UINT_PTR timer = ++lastTimer_;
    timers_[timer] = std::make_shared<std::function<void()>>(std::move(tick));
    if (SetTimer(target, timer, milliseconds, nullptr)) return timer;
    timers_.erase(timer);
    return 0;
}

void ServiceWindow::stopTimer(UINT_PTR timer) {
    if (timers_.erase(timer) && window_) KillTimer(window_, timer);
}

void ServiceWindow::addListener(std::weak_ptr<AppearanceListener> listener) {
    std::erase_if(listeners_, [](const auto& known) { return known.expired(); });
    if (!window_ && listeners_.empty()) unheard_ = systemColours();
    listeners_.push_back(std::move(listener));
}

bool ServiceWindow::soon(std::function<void()> action) {
    if (!window()) return false;
    if (actions_.empty() && !PostMessageW(window_, runActionsMessage, 0, 0)) return false;
    actions_.push_back(std::move(action));
    return true;
}

void ServiceWindow::runActions() {
    for (const auto& action : std::exchange(actions_, {})) attempt(action);
}

void ServiceWindow::appearanceChangedSoon() {
    if (newsPending_ || !window()) return;
    newsPending_ = PostMessageW(window_, tellListenersMessage, 0, 0) != 0;
}

void ServiceWindow::tellListeners() {
    newsPending_ = false;
    fonts_.clear();
    const auto listeners = listeners_;
    for (const auto& known : listeners) {
        if (const auto listener = known.lock()) attempt([&] { listener->appearanceChanged(); });
    }
}

LRESULT ServiceWindow::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_TIMER: {
            const auto found = timers_.find(wParam);
            if (found == timers_.end()) return 0;
            const auto tick = found->second;  // outlives a tick that stops its own timer
            (*tick)();
            return 0;
        }
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED:
        case WM_FONTCHANGE:
            appearanceChangedSoon();
            break;
        case tellListenersMessage:
            tellListeners();
            return 0;
        case runActionsMessage:
            runActions();
            return 0;
        case WM_NCDESTROY:
            window_ = nullptr;
            timers_.clear();
            actions_.clear();  // whose message is gone
            break;
        default:
            break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK ServiceWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<ServiceWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
        return self ? self->handle(window, message, wParam, lParam)
                    : DefWindowProcW(window, message, wParam, lParam);
    } catch (...) {
        return 0;  // nothing may pass through the system's frames
    }
}

}  // namespace obk::win32
