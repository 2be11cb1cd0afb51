// The control as a picture: on screen, on paper, in a metafile, at any size.
#pragma once

#include "server/part.h"

#include <ocidl.h>

namespace obk::server {

// Every control paints all of its rectangle.
inline constexpr DWORD wholeView = VIEWSTATUS_OPAQUE;

class ViewPart final : public Part<IViewObjectEx> {
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
    HRESULT STDMETHODCALLTYPE GetRect(DWORD aspect, LPRECTL rect) override;
    HRESULT STDMETHODCALLTYPE GetViewStatus(DWORD* status) override;
    HRESULT STDMETHODCALLTYPE QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG closeHint,
                                            DWORD* result) override;
    HRESULT STDMETHODCALLTYPE QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT place, LONG closeHint,
                                           DWORD* result) override;
    HRESULT STDMETHODCALLTYPE GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC target,
                                               DVEXTENTINFO* info, LPSIZEL size) override;

private:
    HENHMETAFILE frozen_ = nullptr;  // the look to show instead, while frozen
};

}  // namespace obk::server
