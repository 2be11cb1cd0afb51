// The control as a picture: on screen, on paper, in a metafile, at any size.
#pragma once

#include "server/part.h"

#include <oleidl.h>

namespace obk::server {

class ViewPart final : public Part<IViewObject2> {
public:
    using Part::Part;
    ~ViewPart();

    HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* reserved, DVTARGETDEVICE* device,
                                   HDC target, HDC context, LPCRECTL bounds, LPCRECTL windowBounds,
                                   BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR), ULONG_PTR data) override;
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* reserved, DVTARGETDEVICE* device,
                                          HDC target, LOGPALETTE** palette) override;
    HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void* reserved, DWORD* key) override;
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD key) override;
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                                        LPSIZEL size) override;

private:
    void paint(HDC context, const RECT& bounds);

    HENHMETAFILE frozen_ = nullptr;  // the look to show instead, while frozen
};

}  // namespace obk::server
