#include "server_support.h"

#include <cstdio>

#include <algorithm>
#include <map>

namespace obk::testing_support {

std::wstring windowsPath(const std::string& path) {
    std::wstring result = L"Z:" + container::fromUtf8(path);
    std::replace(result.begin(), result.end(), L'/', L'\\');
    return result;
}

std::wstring serverFile() {
    return windowsPath(OBK_DIST_DIR "/OBKCTRLS.ocx");
}

std::wstring typeName(ITypeInfo* type) {
    Bstr name;
    type->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr);
    return name.text();
}

GUID typeId(ITypeInfo* type) {
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(type->GetTypeAttr(&attributes), S_OK);
    const GUID id = attributes->guid;
    type->ReleaseTypeAttr(attributes);
    return id;
}

namespace {

// The classes of the server's type library by their names.
const std::map<std::wstring, CLSID>& classIds() {
    static const std::map<std::wstring, CLSID> ids = [] {
        std::map<std::wstring, CLSID> found;
        ComPtr<ITypeLib> types;
        EXPECT_EQ(LoadTypeLibEx(serverFile().c_str(), REGKIND_NONE, types.put()), S_OK);
        for (UINT at = 0; types && at < types->GetTypeInfoCount(); ++at) {
            TYPEKIND kind{};
            ComPtr<ITypeInfo> type;
            types->GetTypeInfoType(at, &kind);
            types->GetTypeInfo(at, type.put());
            if (kind == TKIND_COCLASS) found[typeName(type.get())] = typeId(type.get());
        }
        return found;
    }();
    return ids;
}

}  // namespace

const std::vector<std::wstring>& serverClasses() {
    static const auto names = [] {
        std::vector<std::wstring> all;
        for (const auto& [name, id] : classIds()) all.push_back(name);
        return all;
    }();
    return names;
}

std::pair<LONG, LONG> extentOf(IUnknown* control) {
    SIZEL size{};
    query<IOleObject>(control)->GetExtent(DVASPECT_CONTENT, &size);
    return {size.cx, size.cy};
}

HRESULT setExtent(IUnknown* control, SIZEL size) {
    return query<IOleObject>(control)->SetExtent(DVASPECT_CONTENT, &size);
}

LoadedServer::LoadedServer() : module_(LoadLibraryW(serverFile().c_str())) {
    EXPECT_TRUE(module_) << "the server does not load: " << GetLastError();
}

LoadedServer::~LoadedServer() {
    if (module_) FreeLibrary(module_);
}

bool LoadedServer::canUnload() const {
    return call("DllCanUnloadNow") == S_OK;
}

ComPtr<IClassFactory> LoadedServer::factory(const std::wstring& className) const {
    ComPtr<IClassFactory> factory;
    const auto id = classIds().find(className);
    if (id == classIds().end()) return factory;
    EXPECT_EQ((call<REFCLSID, REFIID, void**>("DllGetClassObject", id->second, __uuidof(IClassFactory),
                                              factory.putVoid())),
              S_OK);
    return factory;
}

ComPtr<IUnknown> LoadedServer::create(const std::wstring& className) const {
    ComPtr<IUnknown> object;
    if (const auto maker = factory(className)) {
        EXPECT_EQ(maker->CreateInstance(nullptr, __uuidof(IUnknown), object.putVoid()), S_OK);
    }
    return object;
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

ptrdiff_t HostedControl::takeCalls(const char* name) {
    return static_cast<ptrdiff_t>(std::erase(site.siteCalls(), name));
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
