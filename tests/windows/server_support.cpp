#include "server_support.h"

#include <cstdio>

#include "container/text.h"

#include <algorithm>

namespace obk::testing_support {

std::wstring serverFile() {
    std::wstring file = L"Z:" + container::fromUtf8(OBK_DIST_DIR) + L"\\OBKCTRLS.ocx";
    std::replace(file.begin(), file.end(), L'/', L'\\');
    return file;
}

ComPtr<ITypeLib> serverTypes() {
    ComPtr<ITypeLib> types;
    EXPECT_EQ(LoadTypeLibEx(serverFile().c_str(), REGKIND_NONE, types.put()), S_OK);
    return types;
}

ComPtr<ITypeInfo> serverType(const std::wstring& name) {
    const auto types = serverTypes();
    ComPtr<ITypeInfo> result;
    for (UINT at = 0; types && at < types->GetTypeInfoCount(); ++at) {
        Bstr found;
        types->GetDocumentation(static_cast<int>(at), found.put(), nullptr, nullptr, nullptr);
        if (found.view() == name) types->GetTypeInfo(at, result.put());
    }
    return result;
}

const std::vector<std::wstring>& serverClasses() {
    static const std::vector<std::wstring> classes = [] {
        std::vector<std::wstring> names;
        const auto types = serverTypes();
        for (UINT at = 0; types && at < types->GetTypeInfoCount(); ++at) {
            TYPEKIND kind{};
            types->GetTypeInfoType(at, &kind);
            Bstr name;
            types->GetDocumentation(static_cast<int>(at), name.put(), nullptr, nullptr, nullptr);
            if (kind == TKIND_COCLASS) names.push_back(name.text());
        }
        return names;
    }();
    return classes;
}

LoadedServer::LoadedServer() : module_(LoadLibraryW(serverFile().c_str())) {
    EXPECT_TRUE(module_) << "the server does not load: " << GetLastError();
}

LoadedServer::~LoadedServer() {
    if (module_) FreeLibrary(module_);
}

bool LoadedServer::canUnload() const {
    using CanUnload = HRESULT(WINAPI*)();
    const auto function = reinterpret_cast<CanUnload>(GetProcAddress(module_, "DllCanUnloadNow"));
    return function && function() == S_OK;
}

ComPtr<IClassFactory> LoadedServer::factory(const std::wstring& className) const {
    using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto function = reinterpret_cast<GetClassObject>(GetProcAddress(module_, "DllGetClassObject"));
    const auto type = serverType(className);
    ComPtr<IClassFactory> factory;
    TYPEATTR* attributes = nullptr;
    if (!function || !type || FAILED(type->GetTypeAttr(&attributes))) return factory;
    EXPECT_EQ(function(attributes->guid, __uuidof(IClassFactory), factory.putVoid()), S_OK);
    type->ReleaseTypeAttr(attributes);
    return factory;
}

ComPtr<IUnknown> LoadedServer::create(const std::wstring& className) const {
    ComPtr<IUnknown> object;
    if (const auto maker = factory(className)) {
        EXPECT_EQ(maker->CreateInstance(nullptr, __uuidof(IUnknown), object.putVoid()), S_OK);
    }
    return object;
}

HRESULT RegisteredServer::call(const char* name) const {
    using Function = HRESULT(WINAPI*)();
    return reinterpret_cast<Function>(GetProcAddress(server_.module(), name))();
}

std::wstring temporaryFile(const std::wstring& name) {
    wchar_t folder[MAX_PATH]{};
    GetTempPathW(MAX_PATH, folder);
    return folder + name;
}

std::string scriptSays(const std::wstring& script) {
    FILE* const run = _wpopen((L"cscript.exe //nologo \"" + script + L"\"").c_str(), L"rt");
    if (!run) return "no script host";
    std::string said;
    for (int unit = std::fgetc(run); unit != EOF; unit = std::fgetc(run))
        said.push_back(static_cast<char>(unit));
    const int status = _pclose(run);
    return status == 0 ? said : said + "status " + std::to_string(status);
}

HostedControl::HostedControl(const std::wstring& className, container::SiteSettings settings,
                             const container::InitialState& state)
    : form(window.handle()), site(form, std::move(settings)) {
    form.add(site);
    loop.add(form);
    EXPECT_EQ(site.adopt(server.create(className), state), S_OK);
}

std::wstring HostedControl::takeEvents() {
    std::wstring names;
    for (const auto& record : site.events().journal()) {
        if (record.name == L"MouseMove" || record.name == L"MouseOut") continue;
        names += (names.empty() ? L"" : L" ") + record.name;
    }
    site.events().clearJournal();
    return names;
}

void HostedControl::activate(RECT bounds) {
    EXPECT_EQ(site.activate(bounds), S_OK);
    loop.pumpPending();
}

RECT placeOf(const std::wstring& name) {
    return name == L"GridEdit" ? RECT{10, 10, 310, 130} : RECT{10, 10, 151, 31};
}

void prepare(const HostedControl& hosted, const std::wstring& name) {
    const auto object = hosted.object();
    if (name == L"UpDownTextBox") object.put(L"Interval", 1.0);
    if (name == L"PageTab") object.put(L"ActiveTabs", L"a,b");
    if (name == L"GridEdit") {
        object.call(L"ColsSet", {7});
        for (long col = 0; col < 7; ++col) object.call(L"ColTypeSet", {col, col});
        object.call(L"ComboAdd", {L"Desk"});
    }
}

container::Variant otherThan(const container::Variant& value) {
    switch (value.type()) {
        case VT_BOOL:
            return !value.toBool().value_or(false);
        case VT_BSTR:
            return value.toText() == L"7" ? L"8" : L"7";
        case VT_UI1:
        case VT_I2:
        case VT_I4:
        case VT_R4:
        case VT_R8: {
            const container::Variant next = value.toDouble().value_or(0) > 1 ? 1.0 : 2.0;
            return next.converted(value.type()).value_or(container::Variant());
        }
        default:
            return {};
    }
}

}  // namespace obk::testing_support
