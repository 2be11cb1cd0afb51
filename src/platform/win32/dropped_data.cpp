#include "platform/win32/dropped_data.h"

#include "com/automation.h"
#include "com/com_object.h"
#include "platform/win32/text_conversion.h"

#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace obk::win32 {

namespace {

constexpr DISPID getData = 1, getFormat = 2, files = 3, itemCount = 4;

struct MemberName {
    const wchar_t* name;
    DISPID number;
};

// Late binding alone: nobody knows these objects by a type.
template <typename... Others>
class Scripted : public ComObject<IDispatch, Others...> {
public:
    using ComObject<IDispatch, Others...>::ComObject;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* numbers) override {
        if (!names || !numbers || count == 0) return E_INVALIDARG;
        for (UINT at = 0; at < count; ++at) numbers[at] = DISPID_UNKNOWN;
        for (const MemberName& member : members()) {
            // Alike in every country: "files" is "FILES" in Turkey, too.
            if (CompareStringOrdinal(names[0], -1, member.name, -1, TRUE) == CSTR_EQUAL)
                numbers[0] = member.number;
        }
        return numbers[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        if (!arguments) return E_POINTER;
        VARIANT argument, answer;
        VariantInit(&argument);
        VariantInit(&answer);
        if (arguments->cArgs > 1) return DISP_E_BADPARAMCOUNT;
        if (arguments->cArgs == 1 && FAILED(VariantChangeType(&argument, &arguments->rgvarg[0], 0, VT_I4)))
            return DISP_E_TYPEMISMATCH;
        HRESULT done = E_OUTOFMEMORY;
        try {
            done = call(number, arguments->cArgs == 1 ? V_I4(&argument) : 0, answer);
        } catch (...) {
        }
        if (SUCCEEDED(done) && result) {
            *result = answer;
        } else {
            VariantClear(&answer);
        }
        return done;
    }

protected:
    virtual std::vector<MemberName> members() const = 0;
    virtual HRESULT call(DISPID number, LONG argument, VARIANT& answer) = 0;
};

void putText(std::wstring_view text, VARIANT& answer) {
    V_BSTR(&answer) = Bstr(text).detach();
    V_VT(&answer) = VT_BSTR;
}

class FileNames final : public Scripted<> {
public:
    FileNames(std::vector<std::wstring> names, std::shared_ptr<void> moduleLock)
        : Scripted(std::move(moduleLock)), names_(std::move(names)) {}

private:
    // One of its own for each that goes through them.
    class Walk final : public ComObject<IEnumVARIANT> {
    public:
        Walk(ComPtr<FileNames> of, size_t at) : of_(std::move(of)), at_(at) {}
        HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* items, ULONG* fetched) override {
            if (!items) return E_POINTER;
            HRESULT outcome = S_OK;
            ULONG done = 0;
            try {
                for (; done < count && at_ + done < of_->names_.size(); ++done)
                    putText(of_->names_[at_ + done], items[done]);
                if (done < count) outcome = S_FALSE;
            } catch (const std::bad_alloc&) {
                while (done > 0) VariantClear(&items[--done]);
                outcome = E_OUTOFMEMORY;
            }
            at_ += done;
            if (fetched) *fetched = done;
            return outcome;
        }
        HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
            const size_t left = of_->names_.size() - at_;
            at_ += count < left ? count : left;
            return count <= left ? S_OK : S_FALSE;
        }
        HRESULT STDMETHODCALLTYPE Reset() override {
            at_ = 0;
            return S_OK;
        }
        HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
            if (!copy) return E_POINTER;
            *copy = ComPtr<IEnumVARIANT>(new (std::nothrow) Walk(of_, at_)).detach();
            return *copy ? S_OK : E_OUTOFMEMORY;
        }

    private:
        const ComPtr<FileNames> of_;
        size_t at_;
    };

    std::vector<MemberName> members() const override {
        return {{L"Item", DISPID_VALUE}, {L"Count", itemCount}};
    }
    HRESULT call(DISPID number, LONG argument, VARIANT& answer) override {
        switch (number) {
            case DISPID_VALUE:
                if (argument < 1 || static_cast<size_t>(argument) > names_.size()) return DISP_E_BADINDEX;
                putText(names_[static_cast<size_t>(argument) - 1], answer);
                return S_OK;
            case itemCount:
                V_I4(&answer) = static_cast<LONG>(names_.size());
                V_VT(&answer) = VT_I4;
                return S_OK;
            case DISPID_NEWENUM:
                V_UNKNOWN(&answer) = ComPtr<IUnknown>(new Walk(this, 0)).detach();
                V_VT(&answer) = VT_UNKNOWN;
                return S_OK;
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }

    const std::vector<std::wstring> names_;
};

FORMATETC inMemory(LONG format) {
    return {static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

class DroppedData final : public Scripted<IDataObject> {
public:
    DroppedData(ComPtr<IDataObject> data, std::shared_ptr<void> moduleLock)
        : Scripted(moduleLock), data_(std::move(data)), moduleLock_(std::move(moduleLock)) {}

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override {
        return data_->GetData(format, medium);
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* format, STGMEDIUM* medium) override {
        return data_->GetDataHere(format, medium);
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override { return data_->QueryGetData(format); }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* same) override {
        return data_->GetCanonicalFormatEtc(format, same);
    }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) override {
        return data_->SetData(format, medium, release);
    }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override {
        return data_->EnumFormatEtc(direction, formats);
    }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                      DWORD* number) override {
        return data_->DAdvise(format, flags, sink, number);
    }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD number) override { return data_->DUnadvise(number); }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** sinks) override {
        return data_->EnumDAdvise(sinks);
    }

private:
    std::vector<MemberName> members() const override {
        return {{L"GetData", getData}, {L"GetFormat", getFormat}, {L"Files", files}};
    }
    HRESULT call(DISPID number, LONG argument, VARIANT& answer) override {
        switch (number) {
            case getData:
                return answerData(argument, answer);
            case getFormat:
                V_BOOL(&answer) = offers(argument) ? VARIANT_TRUE : VARIANT_FALSE;
                V_VT(&answer) = VT_BOOL;
                return S_OK;
            case files:
                V_DISPATCH(&answer) = ComPtr<IDispatch>(new FileNames(fileNames(), moduleLock_)).detach();
                V_VT(&answer) = VT_DISPATCH;
                return S_OK;
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }
    bool has(LONG format) const {
        FORMATETC asked = inMemory(format);
        return format > 0 && format <= 0xFFFF && data_->QueryGetData(&asked) == S_OK;
    }
    // Both formats of texts stand for each other.
    bool offers(LONG format) const {
        return has(format) || (format == CF_TEXT && has(CF_UNICODETEXT)) ||
               (format == CF_UNICODETEXT && has(CF_TEXT));
    }
    // The memory of a format; empty where there is none.
    std::string bytes(LONG format) const {
        FORMATETC asked = inMemory(format);
        STGMEDIUM medium{};
        if (data_->GetData(&asked, &medium) != S_OK) return {};
        std::string copy;
        if (medium.tymed == TYMED_HGLOBAL) {
            if (const auto* memory = static_cast<const char*>(GlobalLock(medium.hGlobal))) {
                copy.assign(memory, GlobalSize(medium.hGlobal));
                GlobalUnlock(medium.hGlobal);
            }
        }
        ReleaseStgMedium(&medium);
        return copy;
    }
    HRESULT answerData(LONG format, VARIANT& answer) const {
        if (!offers(format)) return DV_E_FORMATETC;
        if (format != CF_TEXT && format != CF_UNICODETEXT) {
            const std::string all = bytes(format);
            SAFEARRAY* const array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(all.size()));
            if (!array) return E_OUTOFMEMORY;
            all.copy(static_cast<char*>(array->pvData), all.size());
            V_ARRAY(&answer) = array;
            V_VT(&answer) = VT_ARRAY | VT_UI1;
            return S_OK;
        }
        // Every character is in the one format, some of them in the other.
        std::wstring text;
        if (has(CF_UNICODETEXT)) {
            const std::string all = bytes(CF_UNICODETEXT);
            text.resize(all.size() / sizeof(wchar_t));
            all.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(wchar_t));
        } else {
            text = fromSystemCodePage(bytes(CF_TEXT));
        }
        putText(text.substr(0, text.find(L'\0')), answer);
        return S_OK;
    }
    // Read here, within the block that there is: the system's own function believes what the block claims.
    std::vector<std::wstring> fileNames() const {
        const std::string block = bytes(CF_HDROP);
        DROPFILES header{};
        if (block.size() < sizeof header) return {};
        std::memcpy(&header, block.data(), sizeof header);
        if (header.pFiles > block.size()) return {};
        const std::string_view list = std::string_view(block).substr(header.pFiles);
        std::wstring all;
        if (header.fWide) {
            all.resize(list.size() / sizeof(wchar_t));
            list.copy(reinterpret_cast<char*>(all.data()), all.size() * sizeof(wchar_t));
        } else {
            all = fromSystemCodePage(list);
        }
        std::vector<std::wstring> names;
        for (std::wstring_view rest = all; !rest.empty() && rest.front() != L'\0';) {
            names.emplace_back(rest.substr(0, rest.find(L'\0')));
            rest.remove_prefix(std::min(names.back().size() + 1, rest.size()));
        }
        return names;
    }

    const ComPtr<IDataObject> data_;
    const std::shared_ptr<void> moduleLock_;
};

}  // namespace

ComPtr<IUnknown> createDroppedData(ComPtr<IDataObject> data, std::shared_ptr<void> moduleLock) {
    return ComPtr<IDispatch>(new DroppedData(std::move(data), std::move(moduleLock))).get();
}

}  // namespace obk::win32
