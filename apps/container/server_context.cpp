#include "container/server_context.h"

#include <objbase.h>
#include <oleauto.h>

#include <utility>

#include "container/text.h"
#include "container/variant.h"

namespace obk::container {

namespace {

// Makes an activation context the current one while it lives.
class ActiveContext {
public:
    explicit ActiveContext(HANDLE context)
        : active_(context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_)) {}
    ActiveContext(const ActiveContext&) = delete;
    ActiveContext& operator=(const ActiveContext&) = delete;
    ~ActiveContext() {
        if (active_) DeactivateActCtx(0, cookie_);
    }

private:
    ULONG_PTR cookie_ = 0;
    bool active_;
};

// The class named like the last part of the ProgID in a type library.
HRESULT classInLibrary(const std::wstring& path, const std::wstring& progId, CLSID& result) {
    const std::wstring wanted = progId.substr(progId.find(L'.') + 1);
    ComPtr<ITypeLib> library;
    if (FAILED(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put()))) return CO_E_CLASSSTRING;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        TYPEKIND kind = TKIND_MAX;
        Bstr name;
        ComPtr<ITypeInfo> info;
        TYPEATTR* attribute = nullptr;
        if (FAILED(library->GetTypeInfoType(index, &kind)) || kind != TKIND_COCLASS ||
            FAILED(
                library->GetDocumentation(static_cast<INT>(index), name.put(), nullptr, nullptr, nullptr)) ||
            !sameName(name.view(), wanted) || FAILED(library->GetTypeInfo(index, info.put())) ||
            FAILED(info->GetTypeAttr(&attribute)))
            continue;
        result = attribute->guid;
        info->ReleaseTypeAttr(attribute);
        return S_OK;
    }
    return CO_E_CLASSSTRING;
}

bool exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

ServerContext::ServerContext(ServerContext&& other) noexcept {
    swap(other);
}

ServerContext& ServerContext::operator=(ServerContext other) noexcept {
    swap(other);
    return *this;
}

void ServerContext::swap(ServerContext& other) noexcept {
    std::swap(context_, other.context_);
    std::swap(library_, other.library_);
    std::swap(route_, other.route_);
    source_.swap(other.source_);
}

ServerContext::~ServerContext() {
    if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
    if (library_) FreeLibrary(library_);
}

ServerContext ServerContext::fromManifest(const std::wstring& path) {
    ServerContext result;
    result.route_ = Route::manifest;
    result.source_ = path;
    ACTCTXW description = {};
    description.cbSize = sizeof description;
    description.lpSource = path.c_str();
    result.context_ = CreateActCtxW(&description);
    return result;
}

ServerContext ServerContext::fromLibrary(const std::wstring& path) {
    ServerContext result;
    result.route_ = Route::library;
    result.source_ = path;
    result.library_ = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    return result;
}

ServerContext ServerContext::inFolder(const std::wstring& folder) {
    for (const wchar_t* name : {L"\\OBKCTRLS.manifest", L"\\OBKCTRLS.ocx.manifest"}) {
        if (exists(folder + name)) {
            ServerContext result = fromManifest(folder + name);
            if (result.valid()) return result;
        }
    }
    if (exists(folder + L"\\OBKCTRLS.ocx")) {
        ServerContext result = fromLibrary(folder + L"\\OBKCTRLS.ocx");
        if (result.valid()) return result;
    }
    return {};
}

ServerContext ServerContext::besideProgram() {
    return inFolder(programFolder());
}

HRESULT ServerContext::classId(const std::wstring& progId, CLSID& result) const {
    if (route_ == Route::library) return classInLibrary(source_, progId, result);
    const ActiveContext active(context_);
    return CLSIDFromProgID(progId.c_str(), &result);
}

HRESULT ServerContext::create(const std::wstring& progId, ComPtr<IUnknown>& result) const {
    CLSID id = CLSID_NULL;
    ComPtr<IClassFactory> factory;
    HRESULT done = classId(progId, id);
    if (SUCCEEDED(done)) done = classFactory(id, factory);
    if (SUCCEEDED(done)) done = factory->CreateInstance(nullptr, IID_IUnknown, result.putVoid());
    return done;
}

HRESULT ServerContext::classFactory(REFCLSID classId, ComPtr<IClassFactory>& result) const {
    if (route_ != Route::library) {
        const ActiveContext active(context_);
        return CoGetClassObject(classId, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, result.putVoid());
    }
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto get =
        library_ ? reinterpret_cast<GetClassObject>(GetProcAddress(library_, "DllGetClassObject")) : nullptr;
    return get ? get(classId, IID_IClassFactory, result.putVoid()) : CO_E_DLLNOTFOUND;
}

std::wstring ServerContext::programFolder() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    return path.substr(0, path.find_last_of(L"\\/"));
}

}  // namespace obk::container
