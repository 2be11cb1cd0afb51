// The COM side of a control's site: the interfaces that a control calls.
#pragma once

#include <ocidl.h>
#include <oleidl.h>

#include <string>
#include <vector>

#include "com/com_object.h"
#include "container/ambient_properties.h"

namespace obk::container {

// What a site needs of the container around it.
class SiteHost {
public:
    virtual HWND formWindow() const = 0;
    virtual int formDpi() const = 0;
    virtual IOleInPlaceFrame* formFrame() const = 0;
    virtual IOleInPlaceUIWindow* document() const = 0;
    virtual RECT position() const = 0;
    virtual bool mayUiActivate() const = 0;
    virtual void inPlaceActivated() = 0;
    virtual void inPlaceDeactivated() = 0;
    virtual void uiActivated() = 0;
    virtual void uiDeactivated() = 0;
    virtual HRESULT positionWanted(const RECT& wanted) = 0;
    virtual HRESULT keyOffered(MSG& message, DWORD modifiers) = 0;
    virtual void focusReported(bool gained) = 0;

protected:
    ~SiteHost() = default;
};

// One object for all site interfaces, as hosts do it. It may outlive the host, which then detaches
// itself: every call is then refused.
class SiteObject final
    : public ComObject<IOleClientSite, IOleInPlaceSiteEx, IOleControlSite, IDispatch, IAdviseSink> {
public:
    explicit SiteObject(SiteHost* host) : host_(host) {}
    void detach() { host_ = nullptr; }

    AmbientProperties ambients;
    // The calls of the control, by their names, in order; queries are left out.
    std::vector<std::string> calls;

    HRESULT STDMETHODCALLTYPE SaveObject() override;
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override;
    HRESULT STDMETHODCALLTYPE ShowObject() override;
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL show) override;
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override;

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override;
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override;
    HRESULT STDMETHODCALLTYPE OnUIActivate() override;
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               LPRECT position, LPRECT clip,
                                               LPOLEINPLACEFRAMEINFO information) override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL undoable) override;
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override;
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT position) override;
    HRESULT STDMETHODCALLTYPE OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) override;
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivateEx(BOOL noRedraw) override;
    HRESULT STDMETHODCALLTYPE RequestUIActivate() override;

    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override;
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL lock) override;
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD modifiers) override;
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL gained) override;
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                                     EXCEPINFO*, UINT*) override;

    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override { calls.emplace_back("OnViewChange"); }
    void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
    void STDMETHODCALLTYPE OnSave() override { calls.emplace_back("OnSave"); }
    void STDMETHODCALLTYPE OnClose() override { calls.emplace_back("OnClose"); }

protected:
    void* otherInterface(REFIID iid) override;

private:
    SiteHost* host_;
};

}  // namespace obk::container
