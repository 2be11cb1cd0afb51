// The control as data: the picture of it that a document keeps for where the control cannot be made.
#pragma once

#include "com/com_ptr.h"
#include "server/part.h"

#include <objidl.h>

namespace obk::server {

class DataObjectPart final : public Part<IDataObject> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override;
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* format, STGMEDIUM* medium) override;
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override;
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) override;
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) override;
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                      DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** advises) override;

    bool watched() const { return static_cast<bool>(holder_); }
    // Tells those who want to know that the picture is another.
    void changed();

private:
    ComPtr<IDataAdviseHolder> holder_;
};

}  // namespace obk::server
