#include "server/control_object.h"

#include "base/attempt.h"
#include "base/scoped_value.h"
#include "framework/control.h"

#include <olectl.h>

namespace obk::server {

ObjectIdentity& identityOf(ControlObject& object) {
    return object;
}

HRESULT ControlObject::create(const ControlTable& table, IUnknown* outer, REFIID iid, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (outer && iid != __uuidof(IUnknown)) return CLASS_E_NOAGGREGATION;
    return entryPoint([&] {
        auto* object = new ControlObject(table, outer);
        const HRESULT found = object->inner()->QueryInterface(iid, result);
        object->releaseReference();
        return found;
    });
}

ControlObject::ControlObject(const ControlTable& table, IUnknown* outer)
    : ObjectIdentity(outer),
      table_(table),
      platform_(module::platform()),
      control_(table.create(*platform_)),
      session_(*this),
      dispatch_(*this),
      oleObject_(*this),
      oleControl_(*this),
      inPlaceObject_(*this),
      activeObject_(*this),
      view_(*this),
      data_(*this),
      quickActivate_(*this),
      propertyBag_(*this),
      stream_(*this),
      storage_(*this),
      connections_(*this, table),
      classInfo_(*this),
      browsing_(*this),
      categories_(*this),
      pages_(*this) {
    control_->keep(platform_);
    control_->setHost(this);
    setExtent(control_->width(), control_->height());
}

ControlObject::~ControlObject() {
    attempt([this] { close(); });
    control_->setHost(nullptr);
    // Whoever up the stack still works in the control holds it; its windows go now.
    attempt([this] { control_->deactivate(); });
}

IUnknown* ControlObject::find(REFIID iid) {
    if (iid == __uuidof(IDispatch) || iid == systemGuid(table_.interfaceId)) return &dispatch_;
    if (iid == __uuidof(IOleObject)) return &oleObject_;
    if (iid == __uuidof(IOleControl)) return &oleControl_;
    if (iid == __uuidof(IOleInPlaceObject) || iid == __uuidof(IOleWindow)) return &inPlaceObject_;
    if (iid == __uuidof(IOleInPlaceActiveObject)) return &activeObject_;
    if (iid == __uuidof(IViewObjectEx) || iid == __uuidof(IViewObject2) || iid == __uuidof(IViewObject))
        return &view_;
    if (iid == __uuidof(IDataObject)) return &data_;
    if (iid == __uuidof(IQuickActivate)) return &quickActivate_;
    if (iid == __uuidof(IPersistPropertyBag)) return &propertyBag_;
    // IPersistStream has the first functions of IPersistStreamInit, in the same order.
    if (iid == __uuidof(IPersistStreamInit) || iid == __uuidof(IPersistStream) || iid == __uuidof(IPersist))
        return &stream_;
    if (iid == __uuidof(IPersistStorage)) return &storage_;
    if (iid == __uuidof(IConnectionPointContainer)) return &connections_;
    if (iid == __uuidof(IProvideClassInfo2) || iid == __uuidof(IProvideClassInfo)) return &classInfo_;
    if (iid == __uuidof(IPerPropertyBrowsing)) return &browsing_;
    if (iid == __uuidof(ICategorizeProperties)) return &categories_;
    if (iid == __uuidof(ISpecifyPropertyPages)) return &pages_;
    return nullptr;
}

void ControlObject::setSite(IOleClientSite* site) {
    if (site == site_.get().get()) return;
    if (!site) session_.deactivate();
    site_.set(site);
    if (site) followAmbientFont();
}

void ControlObject::followAmbientFont() {
    const ScopedFlag following(followingAmbient_);
    control_->ambientFontChanged();
}

void ControlObject::beginUse() {
    advisers_.running();
    if (!placed_) placedAfresh();
}

void ControlObject::close() {
    session_.deactivate();
    advisers_.closed();
}

void ControlObject::loaded(PropertyBag& bag) {
    placed_ = true;
    control_->load(bag);
    if (!session_.active()) setExtent(control_->width(), control_->height());
    dirty_ = false;
    viewChanged();
}

void ControlObject::placedAfresh() {
    placed_ = true;
    control_->initNew();
    if (!session_.active()) setExtent(control_->width(), control_->height());
    dirty_ = false;
    viewChanged();
}

void ControlObject::freezeEvents(bool freeze) {
    if (freeze) {
        ++frozen_;
    } else if (frozen_ > 0) {
        --frozen_;
    }
}

bool ControlObject::live() const {
    return (session_.madeLive() || site_.ambientFlag(DISPID_AMBIENT_USERMODE, true)) &&
           !site_.ambientFlag(DISPID_AMBIENT_UIDEAD, false);
}

void ControlObject::applyLive() {
    const HWND window = session_.window();
    if (window && (IsWindowEnabled(window) != FALSE) != live()) EnableWindow(window, live());
}

void ControlObject::setExtent(Twips width, Twips height) {
    extentWidth_ = width;
    extentHeight_ = height;
}

void ControlObject::takeExtent() {
    if (control_->width() != extentWidth_ || control_->height() != extentHeight_)
        control_->setSize(extentWidth_, extentHeight_);
}

void ControlObject::viewChanged() {
    if (!advisers_.viewWatched() && !data_.watched()) return;
    const Hold hold(*this);
    advisers_.viewChanged();
    data_.changed();
}

void ControlObject::raise(const Member& event, std::span<Value> arguments) {
    if (frozen_ > 0) return;
    const Hold hold(*this);
    attempt([&] { connections_.raise(event, arguments); });
}

void ControlObject::propertyChanged(const Member* property) {
    // What follows the container is no change of the container's document.
    if (followingAmbient_) return viewChanged();
    dirty_ = true;
    if (!connections_.notifies() && !advisers_.viewWatched() && !data_.watched()) return;
    const Hold hold(*this);
    attempt([&] { connections_.propertyChanged(property ? property->number : DISPID_UNKNOWN); });
    viewChanged();
}

FontRef ControlObject::ambientFont() {
    return site_.ambientFont();
}

void ControlObject::requestSize(Twips width, Twips height) {
    const Hold hold(*this);
    setExtent(width, height);
    if (session_.active()) {
        const Dpi dpi = control_->root().dpi();
        session_.requestSize({dpi.toPixels(width), dpi.toPixels(height)});
    } else if (control_->width() != width || control_->height() != height) {
        control_->setSize(width, height);
        viewChanged();
    }
}

void ControlObject::focusChanged(bool inside) {
    const Hold hold(*this);
    if (inside) session_.focusEntered();
    site_.focusChanged(inside);
}

bool ControlObject::offerToContainer(const KeyEvent& event) {
    const Hold hold(*this);
    MSG message{};
    message.hwnd = GetFocus();
    message.message = event.shift & shift::alt ? WM_SYSKEYDOWN : WM_KEYDOWN;
    message.wParam = static_cast<WPARAM>(event.code);
    constexpr LPARAM wasDown = 1 << 30;
    message.lParam = static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(event.code), MAPVK_VK_TO_VSC))
                         << 16 |
                     (event.repeated ? wasDown : 0) | 1;
    message.time = static_cast<DWORD>(GetMessageTime());
    return site_.offerToContainer(message);
}

Text ControlObject::name() {
    const Hold hold(*this);
    return site_.name();
}

bool ControlObject::rightToLeft() {
    return site_.ambientFlag(DISPID_AMBIENT_RIGHTTOLEFT, false);
}

bool ControlObject::designMode() {
    return !site_.ambientFlag(DISPID_AMBIENT_USERMODE, true);
}

void ControlObject::accessKeysChanged() {
    const Hold hold(*this);
    if (const auto site = site_.as<IOleControlSite>()) site->OnControlInfoChanged();
}

}  // namespace obk::server
