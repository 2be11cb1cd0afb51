// What a control drops down, as seen from outside: windows and menus of this thread.
#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace obk::testing_support {

RECT windowRect(HWND window);
// The visible tool window that a control of this thread has dropped down; null when there is none.
HWND openPanel();

std::wstring classOf(HWND window);
// The windows that show, of one class or of all: the top-level ones of this thread, or those in another.
std::vector<HWND> shownWindows(std::wstring_view className = {}, HWND parent = nullptr);
inline std::vector<HWND> shownToolTips() {
    return shownWindows(L"tooltips_class32");
}

// Asks the system in every way to give the focus or the activation to a panel or to a window in it. Whether
// `focus` and its form have kept both.
bool keepsFocusFromPanel(HWND panel, HWND focus);

// Does something every few moments while it lives, also in the loops that dialogs, menus and drags run.
class Meanwhile {
public:
    explicit Meanwhile(std::function<void()> what, UINT milliseconds = 50);
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;
    ~Meanwhile();

private:
    UINT_PTR timer_;
};

// Presses keys in the next menus of this thread while they run their own loops: one list of keys a menu. What
// is left unanswered is dismissed.
class MenuKeys {
public:
    MenuKeys(std::initializer_list<std::vector<WORD>> keys) : keys_(keys) {}

    int menusSeen() const { return seen_; }
    // The last one has been seen to be gone: another one is told from it.
    bool gone() const { return !last_; }
    // Where the last menu stood.
    RECT place() const { return place_; }

private:
    void answer();

    std::vector<std::vector<WORD>> keys_;
    HWND last_ = nullptr;
    RECT place_{};
    int seen_ = 0;
    Meanwhile meanwhile_{[this] { answer(); }};
};

// Enters a colour in the system's colour chooser.
void enterColour(HWND chooser, COLORREF colour);

// Answers the system's dialogs as soon as they show, while they run their own loops: each with the same
// button, after the first one has been filled in.
class DialogAnswer {
public:
    explicit DialogAnswer(std::function<void(HWND)> fill, WPARAM button = IDOK)
        : fill_(std::move(fill)), button_(button) {}

    int seen() const { return seen_; }

private:
    void answer();

    std::function<void(HWND)> fill_;
    WPARAM button_;
    int seen_ = 0;
    Meanwhile meanwhile_{[this] { answer(); }};
};

// Answers the system's colour chooser likewise.
class ChooserAnswer : public DialogAnswer {
public:
    // Nothing for a colour: it is cancelled. `first` is done before the answer.
    explicit ChooserAnswer(std::optional<COLORREF> colour, std::function<void()> first = {});
};

}  // namespace obk::testing_support
