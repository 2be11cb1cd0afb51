#include "server/picture_bridge.h"

#include "platform/win32/display.h"
#include "platform/win32/handles.h"

#include <ocidl.h>
#include <olectl.h>

#include <cstring>

namespace obk::server {

namespace {

// Larger pictures are not drawn in a control; their pixels are not worth the memory.
constexpr int32_t longestEdge = 8192;
constexpr int himetricPerInch = 2540;

class PictureCounterpart final : public SharedPicture::Counterpart {
public:
    explicit PictureCounterpart(ComPtr<IPicture> object) : object_(std::move(object)) {}
    ComPtr<IDispatch> dispatch() const { return object_.query<IDispatch>(); }

private:
    ComPtr<IPicture> object_;
};

// A 32-bit bitmap, rows from the top, selected into a context of its own.
class PixelBuffer {
public:
    explicit PixelBuffer(PixelSize size)
        : size_(size),
          context_(CreateCompatibleDC(nullptr)),
          bitmap_(bitmapOf(size)),
          selection_(context_.get(), bitmap_.get()) {}
    bool usable() const { return bitmap_ != nullptr; }
    HDC context() const { return context_.get(); }
    uint32_t* pixels() const { return pixels_; }
    size_t count() const { return static_cast<size_t>(size_.width) * static_cast<size_t>(size_.height); }
    // The bitmap, for the caller to own.
    HBITMAP detach() {
        selection_.end();
        return bitmap_.release();
    }
    void fill(uint32_t pixel) { std::fill_n(pixels_, count(), pixel); }

private:
    HBITMAP bitmapOf(PixelSize size) {
        const BITMAPINFO info = win32::bitmapInfo(size);
        return CreateDIBSection(context_.get(), &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&pixels_),
                                nullptr, 0);
    }

    PixelSize size_;
    uint32_t* pixels_ = nullptr;
    win32::UniqueMemoryDc context_;
    win32::UniqueBitmap bitmap_;
    win32::Selection selection_;
};

bool render(IPicture& picture, PixelSize size, PixelBuffer& buffer, uint32_t ground) {
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    picture.get_Width(&width);
    picture.get_Height(&height);
    buffer.fill(ground);
    const RECT all{0, 0, size.width, size.height};
    const HRESULT drawn =
        picture.Render(buffer.context(), 0, 0, size.width, size.height, 0, height, width, -height, &all);
    GdiFlush();
    return SUCCEEDED(drawn);
}

// Pixels with their transparency. A picture does not tell how it is transparent (a mask, a key colour, an
// alpha channel), but it shows: drawn on black and on white, it differs where the ground comes through.
std::vector<uint32_t> pixelsOf(IPicture& picture, PixelSize size) {
    PixelBuffer onBlack(size), onWhite(size);
    if (!onBlack.usable() || !onWhite.usable() || !render(picture, size, onBlack, 0) ||
        !render(picture, size, onWhite, 0x00FFFFFF))
        return {};
    std::vector<uint32_t> pixels(onBlack.count());
    for (size_t at = 0; at < pixels.size(); ++at) {
        const uint32_t black = onBlack.pixels()[at] & 0x00FFFFFF;
        const uint32_t green = (onWhite.pixels()[at] >> 8 & 0xFF) - (black >> 8 & 0xFF);
        const uint32_t alpha = green > 0xFF ? 0xFF : 0xFF - green;
        pixels[at] = alpha << 24 | (alpha == 0 ? 0 : black);
    }
    return pixels;
}

PixelSize sizeOf(IPicture& picture) {
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (FAILED(picture.get_Width(&width)) || FAILED(picture.get_Height(&height))) return {};
    const win32::ScreenDc screen;
    const int dpiX = GetDeviceCaps(screen.get(), LOGPIXELSX), dpiY = GetDeviceCaps(screen.get(), LOGPIXELSY);
    const PixelSize size{MulDiv(width, dpiX, himetricPerInch), MulDiv(height, dpiY, himetricPerInch)};
    const bool reasonable =
        size.width > 0 && size.height > 0 && size.width <= longestEdge && size.height <= longestEdge;
    return reasonable ? size : PixelSize{};
}

}  // namespace

PictureRef pictureFromObject(IUnknown* object) {
    auto source = query<IPicture>(object);
    if (!source) return nullptr;
    const PixelSize size = sizeOf(*source);
    auto picture = size.width > 0 ? std::make_shared<SharedPicture>(size, pixelsOf(*source, size))
                                  : std::make_shared<SharedPicture>();
    picture->setCounterpart(std::make_unique<PictureCounterpart>(std::move(source)));
    return picture;
}

ComPtr<IDispatch> objectFromPicture(const PictureRef& picture) {
    if (!picture) return nullptr;
    // Nobody but this bridge gives a picture of this process a counterpart.
    if (const auto* counterpart = static_cast<PictureCounterpart*>(picture->counterpart()))
        return counterpart->dispatch();
    PICTDESC wanted{};
    wanted.cbSizeofstruct = sizeof wanted;
    wanted.picType = PICTYPE_NONE;
    if (!picture->pixels().empty()) {
        PixelBuffer buffer(picture->size());
        if (!buffer.usable()) return nullptr;
        std::memcpy(buffer.pixels(), picture->pixels().data(), buffer.count() * sizeof(uint32_t));
        wanted.picType = PICTYPE_BITMAP;
        wanted.bmp.hbitmap = buffer.detach();
    }
    ComPtr<IPicture> object;
    if (FAILED(OleCreatePictureIndirect(&wanted, __uuidof(IPicture), TRUE, object.putVoid()))) {
        if (wanted.bmp.hbitmap) DeleteObject(wanted.bmp.hbitmap);
        return nullptr;
    }
    picture->setCounterpart(std::make_unique<PictureCounterpart>(object));
    return object.query<IDispatch>();
}

}  // namespace obk::server
