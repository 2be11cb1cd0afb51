// What a control drops down, as seen from outside: windows and menus of this thread.
#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

namespace obk::testing_support {

RECT windowRect(HWND window);
// The visible tool window that a control of this thread has dropped down; null when there is none.
HWND openPanel();

// The tool tips of this thread that show.
std::vector<HWND> shownToolTips();

// Asks the system in every way to give the focus or the activation to a panel or to a window in it. Whether
// `focus` and its form have kept both.
bool keepsFocusFromPanel(HWND panel, HWND focus);

// Presses keys in the next menus of this thread while they run their own loops: one list of keys a menu. What
// is left unanswered is dismissed.
class MenuKeys {
public:
    MenuKeys(std::initializer_list<std::vector<WORD>> keys);
    MenuKeys(const MenuKeys&) = delete;
    MenuKeys& operator=(const MenuKeys&) = delete;
    ~MenuKeys();

    int menusSeen() const { return seen_; }
    // The last one has been seen to be gone: another one is told from it.
    bool gone() const { return !last_; }
    // Where the last menu stood.
    RECT place() const { return place_; }

private:
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD);
    void answer();

    static MenuKeys* current_;
    std::vector<std::vector<WORD>> keys_;
    UINT_PTR timer_;
    HWND last_ = nullptr;
    RECT place_{};
    int seen_ = 0;
};

// Answers the system's colour chooser as soon as it shows, while it runs its own loop.
class ChooserAnswer {
public:
    // Nothing for a colour: it is cancelled. `first` is done before the answer.
    explicit ChooserAnswer(std::optional<COLORREF> colour, std::function<void()> first = {});
    ChooserAnswer(const ChooserAnswer&) = delete;
    ChooserAnswer& operator=(const ChooserAnswer&) = delete;
    ~ChooserAnswer();

    int seen() const { return seen_; }

private:
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD);

    static ChooserAnswer* current_;
    std::optional<COLORREF> colour_;
    std::function<void()> first_;
    UINT_PTR timer_;
    int seen_ = 0;
};

}  // namespace obk::testing_support
