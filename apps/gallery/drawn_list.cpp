#include "drawn_list.h"

#include <commctrl.h>

namespace obk::gallery {

namespace {

constexpr UINT_PTR subclassId = 1;
constexpr wchar_t listProperty[] = L"OrbekDrawnList";

}  // namespace

DrawnList::~DrawnList() {
    if (handle_) DestroyWindow(handle_);
}

void DrawnList::create(HWND parent, const wchar_t* name) {
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | LBS_OWNERDRAWFIXED |
                            LBS_HASSTRINGS | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
    handle_ = CreateWindowExW(0, L"LISTBOX", name, style, 0, 0, 0, 0, parent, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    SetWindowSubclass(handle_, &DrawnList::procedure, subclassId, reinterpret_cast<DWORD_PTR>(this));
    SetPropW(handle_, listProperty, this);
    themeChanged();
}

void DrawnList::themeChanged() {
    SendMessageW(handle_, WM_SETFONT, reinterpret_cast<WPARAM>(theme_.body()), FALSE);
    SendMessageW(handle_, LB_SETITEMHEIGHT, 0, rowHeight());
    InvalidateRect(handle_, nullptr, TRUE);
}

DrawnList* DrawnList::of(HWND window) {
    return window ? static_cast<DrawnList*>(GetPropW(window, listProperty)) : nullptr;
}

int DrawnList::count() const {
    return static_cast<int>(SendMessageW(handle_, LB_GETCOUNT, 0, 0));
}

int DrawnList::selection() const {
    return static_cast<int>(SendMessageW(handle_, LB_GETCURSEL, 0, 0));
}

void DrawnList::select(int row) {
    SendMessageW(handle_, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
    selectionChanged(row);
}

RECT DrawnList::rowArea(int row) const {
    RECT area = {};
    SendMessageW(handle_, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
    return area;
}

void DrawnList::redrawRow(int row) const {
    const RECT area = rowArea(row);
    InvalidateRect(handle_, &area, FALSE);
}

COLORREF DrawnList::rowBackground(int, bool selected) const {
    return selected ? theme_.selected : background();
}

void DrawnList::draw(const DRAWITEMSTRUCT& item) {
    const int width = item.rcItem.right - item.rcItem.left;
    const int height = item.rcItem.bottom - item.rcItem.top;
    if (item.itemID == static_cast<UINT>(-1) || width <= 0 || height <= 0) {
        if (item.itemState & ODS_FOCUS) DrawFocusRect(item.hDC, &item.rcItem);
        return;
    }
    const HDC memory = CreateCompatibleDC(item.hDC);
    const HBITMAP bitmap = CreateCompatibleBitmap(item.hDC, width, height);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    const RECT area = {0, 0, width, height};
    const bool selected = item.itemState & ODS_SELECTED;
    fillRect(memory, area, rowBackground(static_cast<int>(item.itemID), selected));
    drawRow(memory, area, static_cast<int>(item.itemID), selected);
    if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT)) {
        SetTextColor(memory, theme_.text);
        SetBkColor(memory, theme_.card);
        DrawFocusRect(memory, &area);
    }
    BitBlt(item.hDC, item.rcItem.left, item.rcItem.top, width, height, memory, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
}

void DrawnList::notify(int code) {
    if (code == LBN_SELCHANGE) {
        selectionChanged(selection());
    } else if (code == LBN_DBLCLK) {
        doubleClicked(selection());
    }
}

LRESULT CALLBACK DrawnList::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) {
    auto& list = *reinterpret_cast<DrawnList*>(self);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, &DrawnList::procedure, subclassId);
        RemovePropW(window, listProperty);
        list.handle_ = nullptr;
        return DefSubclassProc(window, message, wParam, lParam);
    }
    if (message == WM_ERASEBKGND) {
        // Only the part under the last row: rows fill themselves.
        RECT area = {};
        GetClientRect(window, &area);
        const int rows = list.count();
        if (rows > 0) area.top = list.rowArea(rows - 1).bottom;
        if (area.top < area.bottom) fillRect(reinterpret_cast<HDC>(wParam), area, list.background());
        return 1;
    }
    return list.onMessage(message, wParam, lParam) ? 0 : DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace obk::gallery
