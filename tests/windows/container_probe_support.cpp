#include "container_probe_support.h"

#include <olectl.h>

#include <algorithm>

namespace obk::testing_support {

using container::Variant;

extern const IID probeEvents = {0x6B0C4B1E, 0x64A5, 0x4C0B, {0x9F, 0x31, 0x5C, 0x0E, 0x0B, 0x53, 0x77, 0x01}};

int ProbeControl::alive = 0;

namespace {

/// One sink at a time, which is what a site asks for.
class Point final : public ComObject<IConnectionPoint> {
public:
    Point(ProbeControl& owner, bool events) : owner_(owner), events_(events) {}

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
        *cookie = 1;
        if (events_) {
            const HRESULT offered = sink->QueryInterface(probeEvents, owner_.eventSink.putVoid());
            return SUCCEEDED(offered) ? S_OK : CONNECT_E_CANNOTCONNECT;
        }
        owner_.notifySink = ComPtr<IUnknown>(sink).query<IPropertyNotifySink>();
        return owner_.notifySink ? S_OK : CONNECT_E_CANNOTCONNECT;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override {
        owner_.calls.emplace_back("Unadvise");
        owner_.eventSink = events_ ? nullptr : owner_.eventSink;
        owner_.notifySink = events_ ? owner_.notifySink : nullptr;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

private:
    ProbeControl& owner_;
    bool events_;
};

}  // namespace

ProbeControl::ProbeControl(ProbeManner manner) : manner_(manner) {
    ++alive;
}

ProbeControl::~ProbeControl() {
    --alive;
    if (window) DestroyWindow(window);
}

std::string ProbeControl::journal() const {
    std::string text;
    for (const std::string& call : calls) text += (text.empty() ? "" : " ") + call;
    return text;
}

HRESULT ProbeControl::raise(DISPID number, const std::vector<Variant>& arguments) {
    std::vector<VARIANT> reversed(arguments.size());
    std::transform(arguments.rbegin(), arguments.rend(), reversed.begin(),
                   [](const Variant& argument) { return argument.get(); });
    DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    const ComPtr<IDispatch> sink = eventSink;
    return sink ? sink->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                               nullptr, nullptr)
                : E_UNEXPECTED;
}

void* ProbeControl::otherInterface(REFIID iid) {
    if (IsEqualIID(iid, IID_IOleWindow)) return static_cast<IOleInPlaceObject*>(this);
    if (IsEqualIID(iid, IID_IPersist)) return static_cast<IPersistStreamInit*>(this);
    if (IsEqualIID(iid, IID_IProvideClassInfo)) return static_cast<IProvideClassInfo2*>(this);
    return nullptr;
}

HRESULT ProbeControl::SetClientSite(IOleClientSite* newSite) {
    calls.emplace_back(newSite ? "SetClientSite" : "SetClientSite(null)");
    site = newSite;
    return S_OK;
}

HRESULT ProbeControl::Close(DWORD) {
    calls.emplace_back("Close");
    return S_OK;
}

void ProbeControl::activate(HWND parent, const RECT& place) {
    if (window) return;
    calls.emplace_back("activate");
    rectangle = place;
    inPlaceSite()->OnInPlaceActivate();
    window = CreateWindowExW(0, L"BUTTON", L"probe", WS_CHILD | WS_VISIBLE, place.left, place.top,
                             place.right - place.left, place.bottom - place.top, parent, nullptr, nullptr,
                             nullptr);
}

HRESULT ProbeControl::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent, LPCRECT place) {
    activate(parent, *place);
    if (verb != OLEIVERB_UIACTIVATE || uiActive_) return S_OK;
    if (FAILED(inPlaceSite()->OnUIActivate())) return E_FAIL;
    uiActive_ = true;
    calls.emplace_back("uiActivate");
    if (manner_.focusable) SetFocus(window);
    return S_OK;
}

HRESULT ProbeControl::SetExtent(DWORD, SIZEL* size) {
    extent_ = *size;
    return S_OK;
}

HRESULT ProbeControl::GetExtent(DWORD, SIZEL* size) {
    *size = extent_;
    return S_OK;
}

HRESULT ProbeControl::GetMiscStatus(DWORD, DWORD* status) {
    *status = manner_.status;
    return S_OK;
}

HRESULT ProbeControl::GetWindow(HWND* result) {
    *result = window;
    return window ? S_OK : E_FAIL;
}

HRESULT ProbeControl::InPlaceDeactivate() {
    calls.emplace_back("InPlaceDeactivate");
    if (HWND old = std::exchange(window, nullptr)) DestroyWindow(old);
    inPlaceSite()->OnInPlaceDeactivate();
    return S_OK;
}

HRESULT ProbeControl::UIDeactivate() {
    if (!uiActive_) return S_OK;
    uiActive_ = false;
    calls.emplace_back("UIDeactivate");
    inPlaceSite()->OnUIDeactivate(FALSE);
    return S_OK;
}

HRESULT ProbeControl::SetObjectRects(LPCRECT place, LPCRECT) {
    rectangle = *place;
    return S_OK;
}

HRESULT ProbeControl::TranslateAccelerator(LPMSG message) {
    ++acceleratorCalls;
    if (message->message == WM_KEYDOWN && message->wParam == usedKey) return S_OK;
    const auto controlSite = site.query<IOleControlSite>();
    if (offersTab && message->message == WM_KEYDOWN && message->wParam == VK_TAB && controlSite)
        return controlSite->TranslateAccelerator(message, 0);
    return S_FALSE;
}

HRESULT ProbeControl::OnAmbientPropertyChange(DISPID number) {
    ambientChanges.push_back(number);
    return S_OK;
}

HRESULT ProbeControl::Load(IStream*) {
    calls.emplace_back("Load");
    return S_OK;
}

HRESULT ProbeControl::InitNew() {
    calls.emplace_back("InitNew");
    return S_OK;
}

HRESULT ProbeControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    const bool events = IsEqualIID(iid, probeEvents);
    if (!events && !IsEqualIID(iid, IID_IPropertyNotifySink)) return CONNECT_E_NOCONNECTION;
    *point = ComPtr<IConnectionPoint>(new Point(*this, events)).detach();
    return S_OK;
}

HRESULT ProbeControl::GetGUID(DWORD kind, GUID* guid) {
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *guid = probeEvents;
    return S_OK;
}

// Without a caption and shown without activation, no window manager has to answer before it is there.
TestWindow::TestWindow()
    : handle_(CreateWindowExW(0, L"STATIC", L"container test", WS_POPUP, 20, 20, 400, 300, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr)) {
    ShowWindow(handle_, SW_SHOWNOACTIVATE);
}

TestWindow::~TestWindow() {
    DestroyWindow(handle_);
}

HWND TestWindow::addEdit(int y, DWORD style) const {
    return CreateWindowExW(0, L"EDIT", L"edit", style | WS_CHILD, 10, y, 100, 20, handle_, nullptr, nullptr,
                           nullptr);
}

}  // namespace obk::testing_support
