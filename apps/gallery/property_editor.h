// Edits one value in place: a field for text and numbers, a list for choices.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "theme.h"

namespace obk::gallery {

// An entry of the list; with `swatch` a square of `colour` is drawn before the name.
struct EditorChoice {
    std::wstring name;
    bool swatch = false;
    COLORREF colour = 0;
};

// At most one editor is open. It closes itself when it is left: Enter and leaving accept, Esc
// gives up.
class PropertyEditor {
public:
    explicit PropertyEditor(const Theme& theme) : theme_(theme) {}
    PropertyEditor(const PropertyEditor&) = delete;
    PropertyEditor& operator=(const PropertyEditor&) = delete;
    ~PropertyEditor() { close(); }

    // Answers false to keep the editor open: the text is no value.
    using AcceptText = std::function<bool(const std::wstring&)>;
    using AcceptChoice = std::function<void(int)>;

    void openText(HWND parent, const RECT& area, const std::wstring& text, AcceptText accept);
    void openChoices(HWND parent, const RECT& area, std::vector<EditorChoice> choices, int chosen,
                     AcceptChoice accept);
    bool isOpen() const { return window_ != nullptr; }
    // Accepts what was entered, as leaving the editor does.
    void finish();
    void close();

    // The parent passes on what concerns the list.
    void drawItem(const DRAWITEMSTRUCT& item) const;
    void command(HWND from, int code);
    HWND window() const { return window_; }

    // Told after closing by a key, which leaves the focus to be given back.
    std::function<void()> onClosedByKey;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR data);
    void open(HWND parent, const wchar_t* className, const RECT& area, DWORD style);
    bool accept();
    void closedByKey();

    const Theme& theme_;
    HWND window_ = nullptr;
    bool list_ = false;
    bool accepting_ = false;
    std::vector<EditorChoice> choices_;
    int chosen_ = -1;
    AcceptText acceptText_;
    AcceptChoice acceptChoice_;
};

}  // namespace obk::gallery
