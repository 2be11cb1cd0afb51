#include "platform/win32/dragged_text.h"

#include "com/com_object.h"
#include "platform/win32/handles.h"
#include "platform/win32/text_conversion.h"

#include <ole2.h>
#include <shlobj.h>

#include <string>
#include <utility>

namespace obk::win32 {

namespace {

constexpr FORMATETC formats[] = {{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL},
                                 {CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}};

// In the system's code page, for programs that know no other.
std::string narrow(std::wstring_view text) {
    const auto units = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(CP_ACP, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), units, bytes.data(), length, nullptr, nullptr);
    return bytes;
}

class DraggedText final : public ComObject<IDataObject> {
public:
    DraggedText(std::wstring text, std::shared_ptr<void> moduleLock)
        : ComObject(std::move(moduleLock)), text_(std::move(text)) {}

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override {
        if (!medium) return E_POINTER;
        *medium = {};
        if (const HRESULT offered = QueryGetData(format); offered != S_OK) return offered;
        try {
            UniqueGlobalMemory memory = format->cfFormat == CF_UNICODETEXT
                                            ? inGlobalMemory(std::wstring_view(text_))
                                            : inGlobalMemory(std::string_view(narrow(text_)));
            if (!memory) return STG_E_MEDIUMFULL;
            medium->tymed = TYMED_HGLOBAL;
            medium->hGlobal = memory.release();
        } catch (...) {
            return E_OUTOFMEMORY;
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override {
        if (!format) return E_POINTER;
        for (const FORMATETC& offered : formats) {
            if (format->cfFormat == offered.cfFormat && (format->tymed & offered.tymed) != 0) return S_OK;
        }
        return DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC* same) override {
        if (!same) return E_POINTER;
        same->ptd = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** all) override {
        if (!all) return E_POINTER;
        *all = nullptr;
        return direction == DATADIR_GET ? SHCreateStdEnumFmtEtc(std::size(formats), formats, all) : E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }

private:
    const std::wstring text_;
};

// Let go with the left button; Escape and another button give up.
class LeftButtonDrag final : public ComObject<IDropSource> {
public:
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override {
        if (escape || (keys & (MK_RBUTTON | MK_MBUTTON)) != 0) return DRAGDROP_S_CANCEL;
        return (keys & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }
};

}  // namespace

int32_t dragText(TextView text, std::shared_ptr<void> moduleLock) {
    const ComPtr<DraggedText> data(new DraggedText(std::wstring(asWide(text)), std::move(moduleLock)));
    const ComPtr<LeftButtonDrag> source(new LeftButtonDrag);
    DWORD effect = DROPEFFECT_NONE;
    const HRESULT done = DoDragDrop(data.get(), source.get(), DROPEFFECT_COPY, &effect);
    return done == DRAGDROP_S_DROP ? static_cast<int32_t>(effect) : 0;
}

}  // namespace obk::win32
