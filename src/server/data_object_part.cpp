#include "server/data_object_part.h"

#include "server/control_object.h"
#include "server/control_picture.h"
#include "server/enumerator.h"

namespace obk::server {

namespace {

struct Format {
    FORMATETC format;
    FORMATETC give() const { return format; }
};

// The best first.
constexpr FORMATETC offered[] = {{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF},
                                 {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT}};

HRESULT check(const FORMATETC* wanted) {
    if (!wanted) return E_POINTER;
    if (wanted->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (wanted->lindex != -1) return DV_E_LINDEX;
    for (const FORMATETC& known : offered) {
        if (known.cfFormat == wanted->cfFormat) return wanted->tymed & known.tymed ? S_OK : DV_E_TYMED;
    }
    return DV_E_FORMATETC;
}

HGLOBAL oldPicture(ControlObject& object) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT));
    auto* picture = memory ? static_cast<METAFILEPICT*>(GlobalLock(memory)) : nullptr;
    if (!picture) {
        GlobalFree(memory);
        return nullptr;
    }
    const SIZEL extent = extentOf(object);
    *picture = {MM_ANISOTROPIC, extent.cx, extent.cy, recordOldPicture(object)};
    const bool drawn = picture->hMF != nullptr;
    GlobalUnlock(memory);
    return drawn ? memory : GlobalFree(memory);
}

}  // namespace

HRESULT DataObjectPart::GetData(FORMATETC* format, STGMEDIUM* medium) {
    if (!medium) return E_POINTER;
    *medium = {};
    if (const HRESULT known = check(format); FAILED(known)) return known;
    return perform([&] {
        if (format->cfFormat == CF_ENHMETAFILE) {
            medium->tymed = TYMED_ENHMF;
            medium->hEnhMetaFile = recordPicture(object_);
        } else {
            medium->tymed = TYMED_MFPICT;
            medium->hMetaFilePict = oldPicture(object_);
        }
        if (medium->hGlobal) return S_OK;
        *medium = {};
        return E_OUTOFMEMORY;
    });
}

HRESULT DataObjectPart::GetDataHere(FORMATETC*, STGMEDIUM*) {
    return DATA_E_FORMATETC;  // a metafile has no place that a caller could give
}

HRESULT DataObjectPart::QueryGetData(FORMATETC* format) {
    return check(format);
}

HRESULT DataObjectPart::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) {
    if (!format || !canonical) return E_POINTER;
    *canonical = *format;
    canonical->ptd = nullptr;  // the same for every device
    return DATA_S_SAMEFORMATETC;
}

HRESULT DataObjectPart::SetData(FORMATETC*, STGMEDIUM*, BOOL) {
    return E_NOTIMPL;
}

HRESULT DataObjectPart::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
    if (!formats) return E_POINTER;
    *formats = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    return perform([&] {
        std::vector<Format> all;
        for (const FORMATETC& format : offered) all.push_back({format});
        return Enumerator<IEnumFORMATETC, FORMATETC, Format>::create(std::move(all), formats);
    });
}

HRESULT DataObjectPart::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) {
    if (!format || !cookie) return E_POINTER;
    *cookie = 0;
    return perform([&]() -> HRESULT {
        if (!holder_) {
            if (const HRESULT made = CreateDataAdviseHolder(holder_.put()); FAILED(made)) return made;
        }
        const ComPtr<IDataAdviseHolder> holder = holder_;
        return holder->Advise(this, format, flags, sink, cookie);
    });
}

HRESULT DataObjectPart::DUnadvise(DWORD cookie) {
    return perform([&] {
        const ComPtr<IDataAdviseHolder> holder = holder_;
        return holder ? holder->Unadvise(cookie) : OLE_E_NOCONNECTION;
    });
}

HRESULT DataObjectPart::EnumDAdvise(IEnumSTATDATA** advises) {
    if (!advises) return E_POINTER;
    *advises = nullptr;
    return perform([&] {
        const ComPtr<IDataAdviseHolder> holder = holder_;
        return holder ? holder->EnumAdvise(advises) : S_OK;
    });
}

void DataObjectPart::changed() {
    const ComPtr<IDataAdviseHolder> holder = holder_;
    if (holder) holder->SendOnDataChange(this, 0, 0);
}

}  // namespace obk::server
