#include "container/control_site.h"

#include <olectl.h>

#include <algorithm>
#include <cstdlib>

#include "container/window_metrics.h"

namespace obk::container {

namespace {

// More rounding than this between pixels and 1/100 mm is a wish of the control.
constexpr int roundingPixels = 1;

bool differs(LONG first, LONG second) {
    return std::abs(first - second) > roundingPixels;
}

}  // namespace

ControlSite::ControlSite(ControlForm& form, SiteSettings settings)
    : form_(form),
      settings_(std::move(settings)),
      site_(new SiteObject(this)),
      events_(new EventSink),
      changes_(new ChangeJournal) {
    site_->ambients.set(DISPID_AMBIENT_FONT, form_.font());
    site_->ambients.set(DISPID_AMBIENT_DISPLAYNAME, settings_.name);
    site_->ambients.set(DISPID_AMBIENT_USERMODE, settings_.mode == SiteMode::run);
    form_.add(*this);
}

ControlSite::~ControlSite() {
    close();
    form_.remove(*this);
    site_->detach();
}

HRESULT ControlSite::create(const ServerContext& server, const std::wstring& progId,
                            const InitialState& state) {
    ComPtr<IUnknown> control;
    const HRESULT created = server.create(progId, control);
    return SUCCEEDED(created) ? adopt(std::move(control), state) : created;
}

HRESULT ControlSite::adopt(ComPtr<IUnknown> control, const InitialState& state) {
    close();
    if (!control) return E_POINTER;
    control_ = std::move(control);
    const bool first =
        settings_.order == SiteOrder::beforeState ||
        (settings_.order == SiteOrder::asControlAsks && (status() & OLEMISC_SETCLIENTSITEFIRST));
    if (first) setSite();
    const HRESULT given = giveState(state);
    if (FAILED(given)) {
        close();
        return given;
    }
    if (!first && settings_.order != SiteOrder::never) setSite();
    events_->connect(control_.get());
    changes_->connect(control_.get());
    if (const auto view = query<IViewObject>()) view->SetAdvise(DVASPECT_CONTENT, 0, site_.get());
    state_ = SiteState::loaded;
    return S_OK;
}

void ControlSite::setSite() {
    if (const auto object = query<IOleObject>()) object->SetClientSite(site_.get());
}

HRESULT ControlSite::giveState(const InitialState& state) {
    if (state.bag) {
        const auto persist = query<IPersistPropertyBag>();
        // The bag logs what it could not give when it is able to.
        const auto log = ComPtr<IPropertyBag>(state.bag).query<IErrorLog>();
        return persist ? persist->Load(state.bag, log.get()) : E_NOINTERFACE;
    }
    if (state.stream) {
        const auto persist = query<IPersistStreamInit>();
        return persist ? persist->Load(state.stream) : E_NOINTERFACE;
    }
    if (state.storage) {
        const auto persist = query<IPersistStorage>();
        return persist ? persist->Load(state.storage) : E_NOINTERFACE;
    }
    if (const auto persist = query<IPersistStreamInit>()) return persist->InitNew();
    if (const auto persist = query<IPersistPropertyBag>()) return persist->InitNew();
    return S_OK;
}

void ControlSite::close() {
    const ComPtr<IUnknown> control = control_;
    if (!control) return;
    deactivate();
    events_->disconnect();
    changes_->disconnect();
    if (const auto view = query<IViewObject>()) view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
    if (const auto object = query<IOleObject>()) {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    control_.reset();
    state_ = SiteState::empty;
    form_.siteDeactivated(*this);
}

HRESULT ControlSite::activate(const RECT& wanted) {
    settleExtent(wanted);
    const HRESULT done = doVerb(OLEIVERB_INPLACEACTIVATE);
    return FAILED(done) || state_ == SiteState::loaded ? done : setObjectRects();
}

HRESULT ControlSite::uiDeactivate() {
    const auto object = query<IOleInPlaceObject>();
    form_.siteDeactivated(*this);
    if (!object || state_ != SiteState::uiActive) return S_FALSE;
    const HRESULT done = object->UIDeactivate();
    // Told here as well for controls that do not report it themselves.
    uiDeactivated();
    return done;
}

HRESULT ControlSite::deactivate() {
    const auto object = query<IOleInPlaceObject>();
    if (!object || state_ == SiteState::loaded || state_ == SiteState::empty) return S_FALSE;
    uiDeactivate();
    const HRESULT done = object->InPlaceDeactivate();
    if (state_ != SiteState::empty) inPlaceDeactivated();
    return done;
}

HRESULT ControlSite::doVerb(LONG verb, MSG* key) {
    const auto object = query<IOleObject>();
    const RECT position = position_;
    return object ? object->DoVerb(verb, key, site_.get(), 0, form_.window(), &position) : E_NOINTERFACE;
}

void ControlSite::settleExtent(const RECT& wanted) {
    const auto object = query<IOleObject>();
    position_ = wanted;
    if (!object) return;
    const SIZE pixels = sizeOf(wanted);
    if (pixels.cx > 0 && pixels.cy > 0) {
        SIZEL himetric = himetricFromPixels(pixels, form_.dpi());
        object->SetExtent(DVASPECT_CONTENT, &himetric);
    }
    // A control of fixed size keeps its own extent, whatever it was given.
    const SIZE own = pixelsFromHimetric(extent(), form_.dpi());
    if (own.cx > 0 && (pixels.cx <= 0 || differs(own.cx, pixels.cx)))
        position_.right = position_.left + own.cx;
    if (own.cy > 0 && (pixels.cy <= 0 || differs(own.cy, pixels.cy)))
        position_.bottom = position_.top + own.cy;
}

HRESULT ControlSite::setObjectRects() {
    const auto object = query<IOleInPlaceObject>();
    RECT clip = {};
    GetClientRect(form_.window(), &clip);
    const RECT position = position_;
    return object ? object->SetObjectRects(&position, &clip) : E_NOINTERFACE;
}

HRESULT ControlSite::moveTo(const RECT& wanted) {
    positionChosen_ = false;
    const RECT before = position_;
    settleExtent(wanted);
    if (state_ != SiteState::inPlaceActive && state_ != SiteState::uiActive) return S_OK;
    if (positionChosen_ && EqualRect(&before, &position_)) return S_OK;
    return setObjectRects();
}

HRESULT ControlSite::positionWanted(const RECT& wanted) {
    // Equal rectangles end the exchange: a control that answers every resize with a request would
    // otherwise never come to rest.
    positionChosen_ = true;
    if (EqualRect(&wanted, &position_)) return S_OK;
    position_ = wanted;
    const HRESULT done = setObjectRects();
    if (onMoved) onMoved();
    return done;
}

SIZE ControlSite::extent() const {
    SIZEL himetric = {};
    const auto object = query<IOleObject>();
    if (!object || FAILED(object->GetExtent(DVASPECT_CONTENT, &himetric))) return {};
    return himetric;
}

DWORD ControlSite::status() const {
    DWORD status = 0;
    const auto object = query<IOleObject>();
    return object && SUCCEEDED(object->GetMiscStatus(DVASPECT_CONTENT, &status)) ? status : 0;
}

bool ControlSite::takesFocus() const {
    constexpr DWORD never = OLEMISC_NOUIACTIVATE | OLEMISC_ACTSLIKELABEL | OLEMISC_INVISIBLEATRUNTIME;
    return (state_ == SiteState::inPlaceActive || state_ == SiteState::uiActive) && !(status() & never);
}

HWND ControlSite::window() const {
    HWND window = nullptr;
    const auto object = query<IOleInPlaceObject>();
    const bool active = state_ == SiteState::inPlaceActive || state_ == SiteState::uiActive;
    return active && object && SUCCEEDED(object->GetWindow(&window)) ? window : nullptr;
}

bool ControlSite::holdsWindow(HWND window) const {
    const HWND own = this->window();
    return own && window && (own == window || IsChild(own, window));
}

void ControlSite::setAmbient(DISPID number, Variant value) {
    ambients().set(number, std::move(value));
    ambientChanged(number);
}

void ControlSite::ambientChanged(DISPID number) {
    if (const auto object = query<IOleControl>()) object->OnAmbientPropertyChange(number);
}

HRESULT ControlSite::freezeEvents(bool freeze) {
    const auto object = query<IOleControl>();
    return object ? object->FreezeEvents(freeze) : E_NOINTERFACE;
}

HRESULT ControlSite::save(IPropertyBag* bag, bool clearDirty) const {
    const auto persist = query<IPersistPropertyBag>();
    return persist ? persist->Save(bag, clearDirty, TRUE) : E_NOINTERFACE;
}

HRESULT ControlSite::save(IStream* stream, bool clearDirty) const {
    const auto persist = query<IPersistStreamInit>();
    return persist ? persist->Save(stream, clearDirty) : E_NOINTERFACE;
}

HRESULT ControlSite::draw(HDC dc, const RECT& bounds, const RECT* metafileBounds) const {
    const auto view = query<IViewObject>();
    if (!view) return E_NOINTERFACE;
    const RECTL place = {bounds.left, bounds.top, bounds.right, bounds.bottom};
    RECTL whole = {};
    if (metafileBounds) {
        // For a metafile these are origin and extent, not two corners.
        const SIZE size = sizeOf(*metafileBounds);
        whole = {metafileBounds->left, metafileBounds->top, size.cx, size.cy};
    }
    return view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &place,
                      metafileBounds ? &whole : nullptr, nullptr, 0);
}

HRESULT ControlSite::savePng(const std::wstring& path, SIZE pixels) const {
    const PictureSurface surface(pixels.cx, pixels.cy);
    const HRESULT drawn = draw(surface.dc(), {0, 0, pixels.cx, pixels.cy});
    return SUCCEEDED(drawn) ? surface.savePng(path) : drawn;
}

void ControlSite::inPlaceActivated() {
    state_ = SiteState::inPlaceActive;
}

void ControlSite::inPlaceDeactivated() {
    state_ = SiteState::loaded;
    form_.siteDeactivated(*this);
}

void ControlSite::uiActivated() {
    state_ = SiteState::uiActive;
    form_.siteActivated(*this);
}

void ControlSite::uiDeactivated() {
    if (state_ == SiteState::uiActive) state_ = SiteState::inPlaceActive;
    form_.siteDeactivated(*this);
}

HRESULT ControlSite::keyOffered(MSG& message, DWORD) {
    const auto handler = onKey;
    if (handler && handler(message)) return S_OK;
    if (message.message == WM_KEYDOWN && message.wParam == VK_TAB && GetKeyState(VK_CONTROL) >= 0) {
        const auto direction = GetKeyState(VK_SHIFT) < 0 ? Direction::backward : Direction::forward;
        return form_.moveFocus(direction, &message) ? S_OK : S_FALSE;
    }
    return S_FALSE;
}

void ControlSite::focusReported(bool gained) {
    if (const auto handler = onFocus) handler(gained);
}

}  // namespace obk::container
