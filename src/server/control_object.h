// One control as its host sees it: a COM object made of one part for each group of interfaces.
#pragma once

#include "framework/control_host.h"
#include "framework/control_table.h"
#include "framework/property_bag.h"
#include "platform/win32/win32_platform.h"

#include "server/advisers.h"
#include "server/browsing_parts.h"
#include "server/class_info_part.h"
#include "server/client_site.h"
#include "server/connection_points.h"
#include "server/data_object_part.h"
#include "server/dispatch_part.h"
#include "server/in_place_parts.h"
#include "server/in_place_session.h"
#include "server/module.h"
#include "server/ole_control_part.h"
#include "server/ole_object_part.h"
#include "server/persistence_parts.h"
#include "server/quick_activate_part.h"
#include "server/system_text.h"
#include "server/view_part.h"

#include <memory>

namespace obk::server {

class ControlObject final : public ObjectIdentity, private ControlHost {
public:
    // A new control. An aggregating object may ask for nothing but IUnknown.
    static HRESULT create(const ControlTable& table, IUnknown* outer, REFIID iid, void** result);
    ~ControlObject() override;

    const ControlTable& table() const { return table_; }
    GUID classId() const { return systemGuid(table_.classId); }
    Control& control() { return *control_; }
    win32::Win32Platform& platform() { return *platform_; }
    ClientSite& site() { return site_; }
    InPlaceSession& session() { return session_; }
    Advisers& advisers() { return advisers_; }
    IOleInPlaceActiveObject* activeObject() { return &activeObject_; }

    void setSite(IOleClientSite* site);
    // Ends everything that shows, and lets the container go.
    void close();
    void loaded(PropertyBag& bag);
    void placedAfresh();
    // Before the first member is called and whenever the control is activated. One that was neither loaded
    // nor placed by then is placed.
    void beginUse();
    bool inUse() const { return placed_; }
    // The size that the container keeps for the control, or that the control wished for. The window may have
    // another: a container that shows its document at a larger scale places it so.
    Twips extentWidth() const { return extentWidth_; }
    Twips extentHeight() const { return extentHeight_; }
    void setExtent(Twips width, Twips height);
    // Lays the control out at its extent again, now that no window says otherwise.
    void takeExtent();
    // Of which the container knows, and which changes nothing that it keeps.
    void followAmbientFont();
    bool dirty() const { return dirty_; }
    void setDirty(bool dirty) { dirty_ = dirty; }
    // Events are dropped, not kept for later, as long as there is a freeze more than thaws: their arguments
    // would tell of a state that is gone.
    void freezeEvents(bool freeze);
    // Whether the control works with the person: not where the container designs its form or is busy.
    bool live() const;
    // Lets the window take input accordingly; what it does not take goes to the container's own.
    void applyLive();
    void viewChanged() override;

private:
    ControlObject(const ControlTable& table, IUnknown* outer);
    IUnknown* find(REFIID iid) override;

    void raise(const Member& event, std::span<Value> arguments) override;
    void propertyChanged(const Member* property) override;
    FontRef ambientFont() override;
    void requestSize(Twips width, Twips height) override;
    void focusChanged(bool inside) override;
    bool offerToContainer(const KeyEvent& event) override;
    Text name() override;
    bool rightToLeft() override;
    bool designMode() override;
    void accessKeysChanged() override;

    const module::Presence presence_;  // first, so that it outlives everything else here
    const ControlTable& table_;
    std::shared_ptr<win32::Win32Platform> platform_;
    std::shared_ptr<Control> control_;
    ClientSite site_;
    InPlaceSession session_;
    Advisers advisers_;
    int frozen_ = 0;
    bool dirty_ = false;
    bool placed_ = false;  // afresh, or loaded
    bool followingAmbient_ = false;
    Twips extentWidth_{0}, extentHeight_{0};

    DispatchPart dispatch_;
    OleObjectPart oleObject_;
    OleControlPart oleControl_;
    InPlaceObjectPart inPlaceObject_;
    ActiveObjectPart activeObject_;
    ViewPart view_;
    DataObjectPart data_;
    QuickActivatePart quickActivate_;
    PropertyBagPart propertyBag_;
    StreamPart stream_;
    StoragePart storage_;
    ConnectionPoints connections_;
    ClassInfoPart classInfo_;
    PropertyBrowsingPart browsing_;
    CategoriesPart categories_;
    PropertyPagesPart pages_;
};

}  // namespace obk::server
