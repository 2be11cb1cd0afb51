#include "container/control_form.h"

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>

#include "container/ambient_properties.h"
#include "container/control_site.h"
#include "container/window_metrics.h"

namespace obk::container {

// The frame that controls see. It offers no space for tools and no menus.
class FrameObject final : public ComObject<IOleInPlaceFrame> {
public:
    explicit FrameObject(HWND window) : window_(window) {}

    const ComPtr<IOleInPlaceActiveObject>& activeObject() const { return activeObject_; }
    void detach() {
        window_ = nullptr;
        activeObject_.reset();
    }

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
        if (!window) return E_POINTER;
        *window = window_;
        return window_ ? S_OK : E_FAIL;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS widths) override {
        return widths && (widths->left || widths->top || widths->right || widths->bottom)
                   ? INPLACE_E_NOTOOLSPACE
                   : S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
        activeObject_ = object;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

protected:
    void* otherInterface(REFIID iid) override {
        const bool base = IsEqualIID(iid, IID_IOleWindow) || IsEqualIID(iid, IID_IOleInPlaceUIWindow);
        return base ? static_cast<IOleInPlaceFrame*>(this) : nullptr;
    }

private:
    HWND window_;
    ComPtr<IOleInPlaceActiveObject> activeObject_;
};

namespace {

bool keyDown(int key) {
    return GetKeyState(key) < 0;
}

// A window that cannot be reached by the keyboard now.
bool closedToFocus(HWND window) {
    return !IsWindowVisible(window) || !IsWindowEnabled(window);
}

}  // namespace

ControlForm::ControlForm(HWND window) : window_(window), frame_(new FrameObject(window)) {}

ControlForm::~ControlForm() {
    frame_->detach();
}

int ControlForm::dpi() const {
    return windowDpi(window_);
}

IOleInPlaceFrame* ControlForm::frame() const {
    return frame_.get();
}

IDispatch* ControlForm::font() {
    if (!font_) font_ = messageFont(100);
    return font_.get();
}

IOleInPlaceActiveObject* ControlForm::activeObject() const {
    return frame_->activeObject().get();
}

void ControlForm::add(ControlSite& site) {
    std::erase_if(stops_, [&](const Stop& stop) { return stop.site == &site; });
    stops_.push_back({&site, nullptr});
}

void ControlForm::add(HWND window) {
    remove(window);
    stops_.push_back({nullptr, window});
}

void ControlForm::remove(ControlSite& site) {
    std::erase_if(stops_, [&](const Stop& stop) { return stop.site == &site; });
    siteDeactivated(site);
}

void ControlForm::remove(HWND window) {
    std::erase_if(stops_, [&](const Stop& stop) { return stop.window && stop.window == window; });
}

ControlSite* ControlForm::siteOf(HWND window) const {
    for (const Stop& stop : stops_) {
        if (stop.site && stop.site->holdsWindow(window)) return stop.site;
    }
    return nullptr;
}

size_t ControlForm::currentStop() const {
    const HWND focus = GetFocus();
    const auto found = std::find_if(stops_.begin(), stops_.end(), [&](const Stop& stop) {
        if (stop.site) return stop.site->holdsWindow(focus) || (!focus && stop.site == active_);
        return stop.window == focus || IsChild(stop.window, focus);
    });
    return static_cast<size_t>(found - stops_.begin());
}

bool ControlForm::moveFocus(Direction direction, MSG* key) {
    // Entering a control runs its code, which may change the form: work on a copy and check it.
    const std::vector<Stop> stops = stops_;
    const size_t count = stops.size();
    const size_t current = currentStop();
    for (size_t step = 1; step <= count; ++step) {
        size_t next = 0;
        if (direction == Direction::forward) {
            next = current == count ? step - 1 : (current + step) % count;
        } else {
            next = (current + count - step) % count;
        }
        if (next == current) continue;
        const Stop& stop = stops[next];
        const bool still = std::any_of(stops_.begin(), stops_.end(), [&](const Stop& other) {
            return other.site == stop.site && other.window == stop.window;
        });
        if (still && enterStop(stop, key)) return true;
    }
    return false;
}

bool ControlForm::enterStop(const Stop& stop, MSG* key) {
    if (stop.site) return enter(*stop.site, key);
    if (closedToFocus(stop.window)) return false;
    enter(stop.window);
    return true;
}

bool ControlForm::enter(ControlSite& site, MSG* key) {
    if (!site.takesFocus() || closedToFocus(site.window())) return false;
    if (FAILED(site.doVerb(OLEIVERB_UIACTIVATE, key))) return false;
    if (site.holdsWindow(GetFocus())) return true;
    // It let itself be activated but has nothing to put the focus on, as when it is disabled.
    site.uiDeactivate();
    return false;
}

void ControlForm::enter(HWND window) {
    if (active_) active_->uiDeactivate();
    SetFocus(window);
    if (SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) SendMessageW(window, EM_SETSEL, 0, -1);
}

bool ControlForm::owns(HWND window) const {
    return window == window_ || IsChild(window_, window) ||
           std::any_of(stops_.begin(), stops_.end(), [&](const Stop& stop) {
               return stop.site ? stop.site->holdsWindow(window)
                                : stop.window == window || IsChild(stop.window, window);
           });
}

bool ControlForm::translate(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    if (!owns(message.hwnd)) return false;
    if (active_ && active_->holdsWindow(message.hwnd)) {
        const ComPtr<IOleInPlaceActiveObject> object =
            frame_->activeObject() ? frame_->activeObject() : active_->query<IOleInPlaceActiveObject>();
        if (object && object->TranslateAccelerator(&message) == S_OK) return true;
    }
    if (translateMnemonic(message)) return true;
    const bool tab = message.message == WM_KEYDOWN && message.wParam == VK_TAB;
    if (!tab || keyDown(VK_CONTROL) || keyDown(VK_MENU)) return false;
    if (!siteOf(message.hwnd) && (SendMessageW(message.hwnd, WM_GETDLGCODE, VK_TAB, 0) & DLGC_WANTTAB))
        return false;
    return moveFocus(keyDown(VK_SHIFT) ? Direction::backward : Direction::forward, &message);
}

bool ControlForm::translateMnemonic(MSG& message) {
    if (message.message != WM_SYSCHAR && message.message != WM_SYSKEYDOWN && message.message != WM_KEYDOWN)
        return false;
    for (const Stop& stop : stops_) {
        const auto control = stop.site ? stop.site->query<IOleControl>() : nullptr;
        CONTROLINFO information = {};
        information.cb = sizeof information;
        WORD command = 0;
        if (control && control->GetControlInfo(&information) == S_OK && information.hAccel &&
            IsAccelerator(information.hAccel, information.cAccel, &message, &command))
            return SUCCEEDED(control->OnMnemonic(&message));
    }
    return false;
}

void ControlForm::followFocus() {
    const HWND focus = GetFocus();
    if (active_ && focus && !active_->holdsWindow(focus) &&
        GetAncestor(focus, GA_ROOT) == GetAncestor(window_, GA_ROOT))
        active_->uiDeactivate();
}

void ControlForm::frameActivated(bool active) {
    const ComPtr<IOleInPlaceActiveObject> object = frame_->activeObject();
    if (object) {
        object->OnFrameWindowActivate(active);
        object->OnDocWindowActivate(active);
    }
}

void ControlForm::siteActivated(ControlSite& site) {
    ControlSite* previous = std::exchange(active_, &site);
    if (previous && previous != &site) previous->uiDeactivate();
}

void ControlForm::siteDeactivated(ControlSite& site) {
    if (active_ == &site) active_ = nullptr;
}

}  // namespace obk::container
