// The hidden window of a platform: its timers' ticks, and news that only top-level windows hear.
#pragma once

#include "platform/win32/fonts.h"

#include <windows.h>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace obk::win32 {

using SystemColours = std::array<COLORREF, COLOR_MENUBAR + 1>;

// Told when colours, metrics, fonts or themes changed.
class AppearanceListener {
public:
    virtual void appearanceChanged() = 0;

protected:
    ~AppearanceListener() = default;
};

class ServiceWindow {
public:
    // `fonts` is borrowed and outlives this.
    ServiceWindow(HINSTANCE module, std::wstring className, FontCache& fonts);
    ServiceWindow(const ServiceWindow&) = delete;
    ServiceWindow& operator=(const ServiceWindow&) = delete;
    ~ServiceWindow();

    // Answers the timer's number, never used twice; 0 when the system refuses.
    UINT_PTR startTimer(UINT milliseconds, std::function<void()> tick);
    void stopTimer(UINT_PTR timer);

    void addListener(std::weak_ptr<AppearanceListener> listener);
    // Hears of news from now on, when something is painted for the first time; other colours than when the
    // first listener came are news.
    void listen() { window(); }
    // From the message loop, with what is posted: before the mouse and the keys go on. Whether it will be.
    bool soon(std::function<void()> action);
    // One change of theme comes as a dozen messages; the listeners are told once, when they have all come.
    void appearanceChangedSoon();

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    HWND window();
    void tellListeners();
    void runActions();

    HINSTANCE module_;
    std::wstring className_;
    FontCache& fonts_;
    HWND window_ = nullptr;
    bool registered_ = false;
    bool newsPending_ = false;
    SystemColours unheard_{};  // while there is no window to hear of others
    UINT_PTR lastTimer_ = 0;
    std::map<UINT_PTR, std::shared_ptr<std::function<void()>>> timers_;
    std::vector<std::weak_ptr<AppearanceListener>> listeners_;
    std::vector<std::function<void()>> actions_;
};

}  // namespace obk::win32
