#include "server/ole_object_part.h"

#include "framework/control.h"
#include "library/class_facts.h"

#include "server/control_object.h"
#include "server/enumerator.h"

#include <olectl.h>

#include <cmath>

namespace obk::server {

namespace {

constexpr double himetricPerTwip = 2540.0 / 1440.0;

struct Verb {
    LONG number;
    const char16_t* name;
    DWORD attributes;
    OLEVERB give() const { return {number, newTaskText(name), 0, attributes}; }
};

}  // namespace

SIZEL extentOf(ControlObject& object) {
    return {std::lround(object.extentWidth().value * himetricPerTwip),
            std::lround(object.extentHeight().value * himetricPerTwip)};
}

HRESULT OleObjectPart::SetClientSite(IOleClientSite* site) {
    return perform([&] {
        object_.setSite(site);
        return S_OK;
    });
}

HRESULT OleObjectPart::GetClientSite(IOleClientSite** site) {
    if (!site) return E_POINTER;
    *site = object_.site().get().share();
    return S_OK;
}

HRESULT OleObjectPart::SetHostNames(LPCOLESTR, LPCOLESTR) {
    return S_OK;
}

HRESULT OleObjectPart::Close(DWORD saveOption) {
    return perform([&] {
        const ComPtr<IOleClientSite> site = object_.site().get();
        // A control asks nobody: where a document would prompt, it saves.
        if (saveOption != OLECLOSE_NOSAVE && object_.dirty() && site) {
            if (SUCCEEDED(site->SaveObject())) object_.advisers().saved();
        }
        object_.close();
        return S_OK;
    });
}

HRESULT OleObjectPart::SetMoniker(DWORD, IMoniker*) {
    return E_NOTIMPL;
}

HRESULT OleObjectPart::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT OleObjectPart::InitFromData(IDataObject*, BOOL, DWORD) {
    return E_NOTIMPL;
}

HRESULT OleObjectPart::GetClipboardData(DWORD, IDataObject** data) {
    if (data) *data = nullptr;
    return E_NOTIMPL;
}

HRESULT OleObjectPart::DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND parent, LPCRECT position) {
    return perform([&]() -> HRESULT {
        const ComPtr<IOleClientSite> active = site ? ComPtr<IOleClientSite>(site) : object_.site().get();
        InPlaceSession& session = object_.session();
        switch (verb) {
            case OLEIVERB_HIDE:
                session.hide();
                return S_OK;
            case OLEIVERB_DISCARDUNDOSTATE:
                return S_OK;
            case OLEIVERB_PROPERTIES:
                return showProperties(parent, position);
            case OLEIVERB_SHOW:
            case OLEIVERB_INPLACEACTIVATE:
                return active ? session.activate(*active, parent, position) : E_FAIL;
            case OLEIVERB_PRIMARY:
            case OLEIVERB_OPEN:
            case OLEIVERB_UIACTIVATE: {
                if (!active) return E_FAIL;
                const HRESULT shown = session.activate(*active, parent, position);
                return FAILED(shown) ? shown : session.activateUi();
            }
            default:
                if (verb < 0) return E_NOTIMPL;
                if (!active) return E_FAIL;
                if (const HRESULT shown = session.activate(*active, parent, position); FAILED(shown))
                    return shown;
                if (const HRESULT used = session.activateUi(); FAILED(used)) return used;
                return OLEOBJ_S_INVALIDVERB;
        }
    });
}

HRESULT OleObjectPart::showProperties(HWND parent, const RECT* position) {
    if (const auto site = object_.site().as<IOleControlSite>(); site && site->ShowPropertyFrame() == S_OK)
        return S_OK;
    CAUUID pages{};
    const auto specified = query<ISpecifyPropertyPages>(identity_.outer());
    if (!specified || FAILED(specified->GetPages(&pages))) return E_FAIL;
    HRESULT result = S_OK;
    if (pages.cElems > 0) {
        const std::wstring caption = toWide(object_.table().name);
        IUnknown* object = identity_.outer();
        result = OleCreatePropertyFrame(parent, position ? static_cast<UINT>(position->left) : 0,
                                        position ? static_cast<UINT>(position->top) : 0, caption.c_str(), 1,
                                        &object, pages.cElems, pages.pElems, LOCALE_USER_DEFAULT, 0, nullptr);
    }
    CoTaskMemFree(pages.pElems);
    return result;
}

HRESULT OleObjectPart::EnumVerbs(IEnumOLEVERB** verbs) {
    return perform([&] {
        std::vector<Verb> known{{OLEIVERB_INPLACEACTIVATE, u"Activate", 0},
                                {OLEIVERB_SHOW, u"Show", 0},
                                {OLEIVERB_HIDE, u"Hide", 0},
                                {OLEIVERB_PRIMARY, u"Edit", 0},
                                {OLEIVERB_PROPERTIES, u"&Properties", OLEVERBATTRIB_ONCONTAINERMENU}};
        if (object_.table().takesFocus) known.insert(known.begin(), {OLEIVERB_UIACTIVATE, u"Use", 0});
        return Enumerator<IEnumOLEVERB, OLEVERB, Verb>::create(std::move(known), verbs);
    });
}

HRESULT OleObjectPart::Update() {
    return S_OK;
}

HRESULT OleObjectPart::IsUpToDate() {
    return S_OK;
}

HRESULT OleObjectPart::GetUserClassID(CLSID* id) {
    if (!id) return E_POINTER;
    *id = object_.classId();
    return S_OK;
}

HRESULT OleObjectPart::GetUserType(DWORD form, LPOLESTR* type) {
    if (!type) return E_POINTER;
    const ControlTable& table = object_.table();
    *type =
        newTaskText(form == USERCLASSTYPE_SHORT ? TextView(table.name) : TextView(classDescription(table)));
    return *type ? S_OK : E_OUTOFMEMORY;
}

HRESULT OleObjectPart::SetExtent(DWORD aspect, SIZEL* size) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!size) return E_POINTER;
    return perform([&] {
        object_.setExtent({static_cast<double>(size->cx) / himetricPerTwip},
                          {static_cast<double>(size->cy) / himetricPerTwip});
        // In place, the rectangle that the container gives is what is laid out.
        if (!object_.session().active()) object_.takeExtent();
        object_.viewChanged();
        return S_OK;
    });
}

HRESULT OleObjectPart::GetExtent(DWORD aspect, SIZEL* size) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!size) return E_POINTER;
    *size = extentOf(object_);
    return S_OK;
}

HRESULT OleObjectPart::Advise(IAdviseSink* sink, DWORD* cookie) {
    return perform([&] { return object_.advisers().advise(sink, cookie); });
}

HRESULT OleObjectPart::Unadvise(DWORD cookie) {
    return perform([&] { return object_.advisers().unadvise(cookie); });
}

HRESULT OleObjectPart::EnumAdvise(IEnumSTATDATA** result) {
    return perform([&] { return object_.advisers().enumerate(result); });
}

HRESULT OleObjectPart::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (!status) return E_POINTER;
    *status = 0;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *status = miscellaneousStatus(object_.table());
    return S_OK;
}

HRESULT OleObjectPart::SetColorScheme(LOGPALETTE*) {
    return E_NOTIMPL;
}

}  // namespace obk::server
