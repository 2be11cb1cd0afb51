// A list box of the system whose rows are drawn here: its keys, scrolling and accessibility come
// with it.
#pragma once

#include <windows.h>

#include <string>

#include "theme.h"

namespace obk::gallery {

class DrawnList {
public:
    explicit DrawnList(const Theme& theme) : theme_(theme) {}
    DrawnList(const DrawnList&) = delete;
    DrawnList& operator=(const DrawnList&) = delete;
    virtual ~DrawnList();

    HWND handle() const { return handle_; }
    int count() const;
    // The selected row, -1 for none.
    int selection() const;
    void select(int row);
    // Area of a row in pixels of the list's client area; empty for a row that does not exist.
    RECT rowArea(int row) const;
    void redrawRow(int row) const;
    // Fonts and row height, after the theme changed.
    virtual void themeChanged();

    void draw(const DRAWITEMSTRUCT& item);
    virtual void notify(int code);
    // The list object of a window, null for other windows.
    static DrawnList* of(HWND window);

protected:
    void create(HWND parent, const wchar_t* name);
    virtual int rowHeight() const { return theme_.rowHeight(); }
    // Draws on a background that is already filled; `area` starts at (0, 0).
    virtual void drawRow(HDC dc, const RECT& area, int row, bool selected) = 0;
    virtual COLORREF background() const { return theme_.card; }
    virtual COLORREF rowBackground(int row, bool selected) const;
    virtual void selectionChanged(int) {}
    virtual void doubleClicked(int) {}
    // True when the message was used.
    virtual bool onMessage(UINT, WPARAM, LPARAM) { return false; }
    const Theme& theme() const { return theme_; }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR self);

    const Theme& theme_;
    HWND handle_ = nullptr;
};

}  // namespace obk::gallery
