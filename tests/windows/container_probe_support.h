// A small control that records what a container does to it, and a window to put it on.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <string>
#include <vector>

#include "com/com_object.h"
#include "container/variant.h"

namespace obk::testing_support {

struct ProbeManner {
    DWORD status = OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE;
    /// Takes the focus when it is UI activated.
    bool focusable = true;
};

extern const IID probeEvents;

/// Journal entries are the names of the calls; `alive` counts the probes that exist.
class ProbeControl final
    : public ComObject<IOleObject, IOleInPlaceObject, IOleInPlaceActiveObject, IOleControl,
                       IPersistStreamInit, IConnectionPointContainer, IProvideClassInfo2> {
public:
    explicit ProbeControl(ProbeManner manner = {});
    ~ProbeControl() override;

    static int alive;
    std::vector<std::string> calls;
    std::string journal() const;
    HWND window = nullptr;
    RECT rectangle = {};
    std::vector<DISPID> ambientChanges;
    ComPtr<IOleClientSite> site;
    /// What TranslateAccelerator answers S_OK to.
    WPARAM usedKey = 0;
    int acceleratorCalls = 0;
    /// Offers Tab to the site instead of leaving it.
    bool offersTab = false;

    ComPtr<IPropertyNotifySink> notifySink;
    ComPtr<IDispatch> eventSink;
    /// Raises an event with arguments in declared order; answers what the sink answered.
    HRESULT raise(DISPID number, const std::vector<container::Variant>& arguments);

    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* newSite) override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Close(DWORD) override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent,
                                     LPCRECT place) override;
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD, DWORD* status) override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* result) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
    HRESULT STDMETHODCALLTYPE UIDeactivate() override;
    HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT place, LPCRECT clip) override;
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) override;
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }

    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID number) override;
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) override { return S_OK; }

    HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsDirty() override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE Load(IStream*) override;
    HRESULT STDMETHODCALLTYPE Save(IStream*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitNew() override;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) override;

protected:
    void* otherInterface(REFIID iid) override;

private:
    ComPtr<IOleInPlaceSite> inPlaceSite() const { return site.query<IOleInPlaceSite>(); }
    void activate(HWND parent, const RECT& place);

    ProbeManner manner_;
    SIZEL extent_ = {2540, 635};
    bool uiActive_ = false;
};

/// A visible top-level window that is destroyed with the object.
class TestWindow {
public:
    TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    ~TestWindow();
    HWND handle() const { return handle_; }
    HWND addEdit(int y, DWORD style = WS_VISIBLE) const;

private:
    HWND handle_;
};

}  // namespace obk::testing_support
