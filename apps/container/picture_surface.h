// Pixels in memory to draw into, look at and save.
#pragma once

#include <windows.h>

#include <string>

namespace obk::container {

// A 32-bit picture with a device context of its own. Sizes are in pixels; starts all white.
class PictureSurface {
public:
    PictureSurface(int width, int height);
    PictureSurface(const PictureSurface&) = delete;
    PictureSurface& operator=(const PictureSurface&) = delete;
    ~PictureSurface();

    HDC dc() const { return dc_; }
    int width() const { return width_; }
    int height() const { return height_; }
    // False when the system refused the memory; drawing and reading then do nothing.
    bool valid() const { return bits_ != nullptr; }

    // The colour as 0x00BBGGRR; CLR_INVALID outside.
    COLORREF pixel(int x, int y) const;
    void fill(COLORREF colour);
    // How many pixels have the colour.
    int count(COLORREF colour) const;

    // Copies what a window's client area shows on the screen, its children included, to a place in the
    // picture. The window must be visible.
    void copyWindow(HWND window, POINT place = {0, 0});

    HRESULT savePng(const std::wstring& path) const;

private:
    int width_;
    int height_;
    HDC dc_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ old_ = nullptr;
    unsigned* bits_ = nullptr;
};

}  // namespace obk::container
