#include "property_editor.h"

#include <commctrl.h>

#include <utility>

namespace obk::gallery {

namespace {

constexpr UINT_PTR editorSubclassId = 2;

// Both list and field are drawn over the value, so the parent's own children lie beneath.
void raise(HWND window) {
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

}  // namespace

void PropertyEditor::open(HWND parent, const wchar_t* className, const RECT& area, DWORD style) {
    window_ =
        CreateWindowExW(0, className, L"", style | WS_CHILD, area.left, area.top, area.right - area.left,
                        area.bottom - area.top, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(theme_.body()), FALSE);
    SetWindowSubclass(window_, &PropertyEditor::procedure, editorSubclassId,
                      reinterpret_cast<DWORD_PTR>(this));
}

void PropertyEditor::openText(HWND parent, const RECT& area, const std::wstring& text, AcceptText accept) {
    close();
    list_ = false;
    acceptText_ = std::move(accept);
    open(parent, L"EDIT", area, WS_BORDER | ES_AUTOHSCROLL);
    SetWindowTextW(window_, text.c_str());
    SendMessageW(window_, EM_SETSEL, 0, -1);
    raise(window_);
    ShowWindow(window_, SW_SHOW);
    SetFocus(window_);
}

void PropertyEditor::openChoices(HWND parent, const RECT& area, std::vector<EditorChoice> choices, int chosen,
                                 AcceptChoice accept) {
    close();
    list_ = true;
    choices_ = std::move(choices);
    chosen_ = chosen;
    acceptChoice_ = std::move(accept);
    RECT dropped = area;
    dropped.bottom += theme_.rowHeight() * 12;
    open(parent, L"COMBOBOX", dropped, CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL);
    SendMessageW(window_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), theme_.rowHeight() - theme_.scale(6));
    SendMessageW(window_, CB_SETITEMHEIGHT, 0, theme_.rowHeight() - theme_.scale(2));
    for (const EditorChoice& choice : choices_)
        SendMessageW(window_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.name.c_str()));
    SendMessageW(window_, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
    raise(window_);
    ShowWindow(window_, SW_SHOW);
    SetFocus(window_);
    SendMessageW(window_, CB_SHOWDROPDOWN, TRUE, 0);
}

bool PropertyEditor::accept() {
    // Accepting may run dialogs and the control's code, which take the focus and so come back here.
    if (!window_ || accepting_) return true;
    accepting_ = true;
    bool accepted = true;
    if (list_) {
        const int chosen = static_cast<int>(SendMessageW(window_, CB_GETCURSEL, 0, 0));
        if (chosen != CB_ERR && chosen != chosen_) {
            chosen_ = chosen;
            const AcceptChoice receiver = acceptChoice_;
            receiver(chosen);
        }
    } else {
        std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
        text.resize(static_cast<size_t>(GetWindowTextW(window_, text.data(), static_cast<int>(text.size()))));
        const AcceptText receiver = acceptText_;
        accepted = receiver(text);
    }
    accepting_ = false;
    return accepted;
}

void PropertyEditor::finish() {
    if (isOpen()) {
        accept();
        close();
    }
}

void PropertyEditor::close() {
    if (const HWND window = std::exchange(window_, nullptr)) {
        RemoveWindowSubclass(window, &PropertyEditor::procedure, editorSubclassId);
        DestroyWindow(window);
    }
}

void PropertyEditor::closedByKey() {
    close();
    if (onClosedByKey) onClosedByKey();
}

void PropertyEditor::drawItem(const DRAWITEMSTRUCT& item) const {
    const bool selected = item.itemState & ODS_SELECTED;
    fillRect(item.hDC, item.rcItem, selected ? theme_.selected : theme_.card);
    if (item.itemID >= choices_.size()) return;
    const EditorChoice& choice = choices_[item.itemID];
    RECT area = item.rcItem;
    area.left += theme_.scale(5);
    if (choice.swatch) {
        const int side = area.bottom - area.top - theme_.scale(6);
        const int top = area.top + theme_.scale(3);
        const RECT swatch = {area.left, top, area.left + side, top + side};
        fillRect(item.hDC, swatch, choice.colour);
        frameRect(item.hDC, swatch, theme_.border);
        area.left = swatch.right + theme_.scale(6);
    }
    drawText(item.hDC, choice.name, area, theme_.body(), selected ? theme_.selectedText : theme_.text,
             oneLine);
}

void PropertyEditor::command(HWND from, int code) {
    if (from == window_ && list_ && code == CBN_CLOSEUP) {
        // A click on an entry, or Enter, closes the list: that is the choice. Esc restores it before.
        PostMessageW(window_, WM_APP, 0, 0);
    }
}

LRESULT CALLBACK PropertyEditor::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                           DWORD_PTR data) {
    auto& self = *reinterpret_cast<PropertyEditor*>(data);
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS;
        case WM_KEYDOWN:
            if (wParam == VK_ESCAPE) {
                if (self.list_) SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(self.chosen_), 0);
                self.closedByKey();
                return 0;
            }
            if (wParam == VK_RETURN || wParam == VK_TAB) {
                if (self.accept()) {
                    self.closedByKey();
                } else {
                    MessageBeep(MB_ICONWARNING);
                }
                return 0;
            }
            break;
        case WM_CHAR:
            if (wParam == L'\r' || wParam == L'\t' || wParam == VK_ESCAPE) return 0;
            break;
        case WM_APP:
            self.accept();
            self.closedByKey();
            return 0;
        case WM_KILLFOCUS: {
            const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
            const HWND to = reinterpret_cast<HWND>(wParam);
            if (!self.accepting_ && to != window && !IsChild(window, to)) self.finish();
            return result;
        }
        default:
            break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace obk::gallery
