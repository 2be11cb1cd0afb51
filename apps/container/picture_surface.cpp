#include "container/picture_surface.h"

#include <objbase.h>
#include <wincodec.h>

#include <algorithm>

#include "com/com_object.h"

namespace obk::container {

namespace {

constexpr unsigned opaque = 0xFF000000u;

// DIB pixels are 0x00RRGGBB.
unsigned dibColour(COLORREF colour) {
    return static_cast<unsigned>(GetRValue(colour)) << 16 | static_cast<unsigned>(GetGValue(colour)) << 8 |
           GetBValue(colour);
}

}  // namespace

PictureSurface::PictureSurface(int width, int height)
    : width_(std::max(width, 1)), height_(std::max(height, 1)) {
    BITMAPINFO information = {};
    information.bmiHeader.biSize = sizeof information.bmiHeader;
    information.bmiHeader.biWidth = width_;
    information.bmiHeader.biHeight = -height_;
    information.bmiHeader.biPlanes = 1;
    information.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    dc_ = CreateCompatibleDC(nullptr);
    bitmap_ = CreateDIBSection(dc_, &information, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap_) {
        old_ = SelectObject(dc_, bitmap_);
        bits_ = static_cast<unsigned*>(bits);
        fill(RGB(255, 255, 255));
    }
}

PictureSurface::~PictureSurface() {
    if (old_) SelectObject(dc_, old_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
}

COLORREF PictureSurface::pixel(int x, int y) const {
    if (!bits_ || x < 0 || y < 0 || x >= width_ || y >= height_) return CLR_INVALID;
    GdiFlush();
    const unsigned value = bits_[y * width_ + x];
    return RGB(value >> 16 & 255, value >> 8 & 255, value & 255);
}

void PictureSurface::fill(COLORREF colour) {
    if (bits_) {
        GdiFlush();
        std::fill_n(bits_, width_ * height_, dibColour(colour));
    }
}

int PictureSurface::count(COLORREF colour) const {
    if (!bits_) return 0;
    GdiFlush();
    const unsigned wanted = dibColour(colour);
    const size_t pixels = static_cast<size_t>(width_) * static_cast<size_t>(height_);
    return static_cast<int>(
        std::count_if(bits_, bits_ + pixels, [&](unsigned value) { return (value & ~opaque) == wanted; }));
}

void PictureSurface::copyWindow(HWND window, POINT place) {
    RECT area{};
    GetClientRect(window, &area);
    // Without DCX_CLIPCHILDREN: the children's pixels belong to the picture.
    const HDC source = GetDCEx(window, nullptr, DCX_CACHE);
    BitBlt(dc_, place.x, place.y, area.right, area.bottom, source, 0, 0, SRCCOPY);
    ReleaseDC(window, source);
}

HRESULT PictureSurface::savePng(const std::wstring& path) const {
    if (!bits_) return E_OUTOFMEMORY;
    GdiFlush();
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGR;
    HRESULT done = CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    __uuidof(IWICImagingFactory), factory.putVoid());
    const auto then = [&](auto step) { done = SUCCEEDED(done) ? step() : done; };
    then([&] { return factory->CreateStream(stream.put()); });
    then([&] { return stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE); });
    then([&] { return factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.put()); });
    then([&] { return encoder->Initialize(stream.get(), WICBitmapEncoderNoCache); });
    then([&] { return encoder->CreateNewFrame(frame.put(), nullptr); });
    then([&] { return frame->Initialize(nullptr); });
    then([&] { return frame->SetSize(static_cast<UINT>(width_), static_cast<UINT>(height_)); });
    // The encoder answers with the nearest format that it writes; the bitmap converts to it.
    then([&] { return frame->SetPixelFormat(&format); });
    ComPtr<IWICBitmap> bitmap;
    ComPtr<IWICFormatConverter> converter;
    const auto bytes = static_cast<UINT>(width_ * height_ * 4);
    then([&] {
        return factory->CreateBitmapFromMemory(static_cast<UINT>(width_), static_cast<UINT>(height_),
                                               GUID_WICPixelFormat32bppBGR, static_cast<UINT>(width_ * 4),
                                               bytes, reinterpret_cast<BYTE*>(bits_), bitmap.put());
    });
    then([&] { return factory->CreateFormatConverter(converter.put()); });
    then([&] {
        return converter->Initialize(bitmap.get(), format, WICBitmapDitherTypeNone, nullptr, 0,
                                     WICBitmapPaletteTypeCustom);
    });
    then([&] { return frame->WriteSource(converter.get(), nullptr); });
    then([&] { return frame->Commit(); });
    then([&] { return encoder->Commit(); });
    return done;
}

}  // namespace obk::container
