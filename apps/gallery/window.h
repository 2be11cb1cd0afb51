// A window whose messages come to a C++ object.
#pragma once

#include <windows.h>

#include <string>

#include "theme.h"

namespace obk::gallery {

// In pixels of its parent.
void placeWindow(HWND window, const RECT& pixels);

// Base of the gallery's windows. The object owns its window and is the one to destroy it.
class Window {
public:
    explicit Window(const Theme& theme) : theme_(theme) {}
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    HWND handle() const { return handle_; }
    void place(const RECT& pixels) const { placeWindow(handle_, pixels); }
    RECT client() const;
    // Fonts and sizes of the children, after the theme changed.
    virtual void themeChanged() {}

protected:
    bool create(const std::wstring& title, DWORD style, DWORD extendedStyle, HWND parent, const RECT& pixels);
    // A system control as child of this window, in the body font.
    HWND addChild(const wchar_t* className, const wchar_t* text, DWORD style, DWORD extendedStyle = 0,
                  int id = 0);
    void setFont(HWND child, HFONT font) const;

    // Draws the client area off screen; the background is already the page's colour.
    virtual void paint(HDC, const RECT&) {}
    virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    const Theme& theme() const { return theme_; }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    const Theme& theme_;
    HWND handle_ = nullptr;
};

// Draws the frame of a card and its heading; answers the area under the heading.
RECT drawCard(HDC dc, const Theme& theme, const RECT& area, std::wstring_view heading);
// The same area without drawing.
RECT cardContent(const Theme& theme, const RECT& area);

}  // namespace obk::gallery
