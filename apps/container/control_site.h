// Hosts one control on a form: its lifecycle, activation, position, events, views and persistence.
#pragma once

#include <functional>
#include <string>

#include "container/change_journal.h"
#include "container/control_form.h"
#include "container/dispatch.h"
#include "container/event_sink.h"
#include "container/picture_surface.h"
#include "container/server_context.h"
#include "container/site_object.h"
#include "container/site_settings.h"

namespace obk::container {

// Owns a control from creation to close. Rectangles are in pixels of the form's client area.
class ControlSite final : private SiteHost {
public:
    explicit ControlSite(ControlForm& form, SiteSettings settings = {});
    ControlSite(const ControlSite&) = delete;
    ControlSite& operator=(const ControlSite&) = delete;
    ~ControlSite();

    // Creates the control, sets the site, gives it its state, connects events and notifications.
    HRESULT create(const ServerContext& server, const std::wstring& progId, const InitialState& state = {});
    // The same for an object that exists.
    HRESULT adopt(ComPtr<IUnknown> control, const InitialState& state = {});
    // Deactivates, disconnects and releases the control. Done by the destructor, too.
    void close();

    // Activates in place within `wanted`; an empty size stands for the control's own.
    HRESULT activate(const RECT& wanted);
    HRESULT uiActivate(MSG* key = nullptr) { return doVerb(OLEIVERB_UIACTIVATE, key); }
    HRESULT uiDeactivate();
    HRESULT deactivate();
    HRESULT doVerb(LONG verb, MSG* key = nullptr);
    // Sets extent and rectangle. The control may settle on another size: see `position`.
    HRESULT moveTo(const RECT& wanted);
    RECT position() const override { return position_; }
    // 1/100 mm, as the control reports it.
    SIZE extent() const;

    SiteState state() const { return state_; }
    SiteMode mode() const { return settings_.mode; }
    const std::wstring& name() const { return settings_.name; }
    // OLEMISC_* as the control reports them; 0 when it has none.
    DWORD status() const;
    bool takesFocus() const;
    // Null unless the control is active in place and has a window.
    HWND window() const;
    bool holdsWindow(HWND window) const;

    const ComPtr<IUnknown>& control() const { return control_; }
    template <typename Interface>
    ComPtr<Interface> query() const {
        return control_.query<Interface>();
    }
    // Its properties and methods.
    Dispatch object() const { return Dispatch(control_.get()); }
    EventSink& events() const { return *events_; }
    ChangeJournal& changes() const { return *changes_; }
    // The calls that the control made to its site.
    std::vector<std::string>& siteCalls() const { return site_->calls; }
    AmbientProperties& ambients() const { return site_->ambients; }
    // Sets an ambient property and tells the control.
    void setAmbient(DISPID number, Variant value);
    void ambientChanged(DISPID number);
    HRESULT freezeEvents(bool freeze);

    HRESULT save(IPropertyBag* bag, bool clearDirty = true) const;
    HRESULT save(IStream* stream, bool clearDirty = true) const;
    HRESULT draw(HDC dc, const RECT& bounds, const RECT* metafileBounds = nullptr) const;
    HRESULT savePng(const std::wstring& path, SIZE pixels) const;

    // Told after the control took another rectangle; after it got or lost the focus by its report;
    // of a key that it offers back (true: the container used it), before Tab is handled.
    std::function<void()> onMoved;
    std::function<void(bool gained)> onFocus;
    std::function<bool(MSG&)> onKey;

private:
    HWND formWindow() const override { return form_.window(); }
    int formDpi() const override { return form_.dpi(); }
    IOleInPlaceFrame* formFrame() const override { return form_.frame(); }
    IOleInPlaceUIWindow* document() const override { return settings_.document; }
    // In design mode controls show themselves but take no input.
    bool mayUiActivate() const override { return settings_.mode == SiteMode::run; }
    void inPlaceActivated() override;
    void inPlaceDeactivated() override;
    void uiActivated() override;
    void uiDeactivated() override;
    HRESULT positionWanted(const RECT& wanted) override;
    HRESULT keyOffered(MSG& message, DWORD modifiers) override;
    void focusReported(bool gained) override;

    void setSite();
    HRESULT giveState(const InitialState& state);
    void settleExtent(const RECT& wanted);
    HRESULT setObjectRects();

    ControlForm& form_;
    SiteSettings settings_;
    ComPtr<SiteObject> site_;
    ComPtr<EventSink> events_;
    ComPtr<ChangeJournal> changes_;
    ComPtr<IUnknown> control_;
    SiteState state_ = SiteState::empty;
    RECT position_ = {};
    bool positionChosen_ = false;  // the control chose its rectangle during the current resize
};

}  // namespace obk::container
