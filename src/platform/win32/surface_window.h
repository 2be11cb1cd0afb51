// A control's own window or a pop-up panel's.
#pragma once

#include "com/com_ptr.h"
#include "platform/win32/client_window.h"
#include "platform/win32/display.h"
#include "platform/win32/focus_refusal.h"
#include "platform/win32/host_watch.h"
#include "platform/win32/mouse_history.h"
#include "platform/win32/tool_tip.h"
#include "widgets/accessible_tree.h"
#include "widgets/surface_peer.h"

#include <functional>
#include <memory>
#include <vector>

struct IRawElementProviderSimple;

namespace obk::win32 {

class ChildWindow;

class SurfaceWindow final : public ClientWindow, private AppearanceListener {
public:
    // Null when the system refuses.
    static std::shared_ptr<SurfaceWindow> create(const std::shared_ptr<Environment>& environment,
                                                 SurfaceClient& client, const SurfacePlacement& placement);

    void closeSurface();
    Dpi dpi() const { return windowDpi(hwnd()); }
    void setParent(HWND parent);
    void setBounds(const PixelRect& bounds);
    void setVisible(bool visible);
    void takeFocus();
    void invalidate(const PixelRect& rect);
    void update();
    void scroll(const PixelRect& rect, int32_t x, int32_t y);
    void capture();
    void releaseCapture();
    bool hasCapture() const { return hwnd() && GetCapture() == hwnd(); }
    void setCursor(Cursor cursor);
    void setToolTip(const PixelRect& rect, TextView text, ToolTipShown shown);
    void acceptDrops();

    void add(const std::shared_ptr<ChildWindow>& child);
    // Whatever the child's end does to the surface is not reported.
    void closeSilently(ClientWindow& child);
    // A child window's own capture has ended: the surface has it again if it had it before.
    void childReleasedCapture();
    // The focus has come to this window or a child of it, or has left that.
    void focusIsInside(bool inside) override;
    // Whether a press on a child that came in between ends a double click: the system counts by windows.
    bool endsDoubleClick() { return mouse_.pressedTwice(); }
    // A wheel that neither a child nor the surface uses goes to the host.
    LRESULT passWheelToHost(const Message& message);

    // For its drop target; points of the screen become those of the window.
    bool takesDrop(POINT onScreen);
    void drop(DropEvent& event, POINT onScreen);

    // For the interfaces of screen readers: with what is on the surface, while the client listens.
    void withTree(const std::function<void(const AccessibleTree&)>& use);
    // Nothing is done with what is in a window that is disabled.
    AccessibleItem itemOf(const AccessibleId& id, const AccessibleTree& tree) const;
    // Numbers below 0 stand for the things that events were about last; 0 for the surface itself.
    LONG nameFor(const AccessibleId& id);
    AccessibleId named(LONG name) const;
    void readersSoon();
    void tellReaders(AccessibleEvent event, const AccessibleId& of);
    void placeCaret(const AccessibleId& of);
    Text labelBefore() const;
    std::shared_ptr<void> moduleLock() { return environment().lockModule(); }

private:
    using Kind = SurfacePlacement::Kind;

    SurfaceWindow(std::shared_ptr<Environment> environment, SurfaceClient& client, Kind kind);
    LRESULT handle(const Message& message) override;
    void destroyed() override;
    LRESULT passWheelOn(const Message& message) override { return passWheelToHost(message); }
    void appearanceChanged() override;

    void show();
    void paint(HWND window);
    void paintOn(HDC dc, const PixelRect& dirty);
    LRESULT captureChanged(const Message& message);
    LRESULT accessible(const Message& message);
    void returnCaret();
    void checkDpi();
    void registerForDrops();
    void refuseDrops();
    void watchHost();
    void hostMoved();
    void hostPressed(UINT message);
    std::shared_ptr<ChildWindow> child(HWND window) const;

    SurfaceClient* surfaceClient_;
    Kind kind_;
    bool visible_;
    Dpi reportedDpi_;
    bool wantsCapture_ = false, releasing_ = false;
    bool painted_ = false;  // ever
    bool wantsDrops_ = false, acceptsDrops_ = false;
    bool pressToTell_ = false;
    Cursor cursor_ = Cursor::arrow;
    MouseHistory mouse_;
    std::vector<std::weak_ptr<ChildWindow>> children_;
    ToolTip toolTip_;
    HostWatch hostWatch_;        // while a panel shows
    HostWatch pressWatch_;       // while the focus is inside
    FocusRefusal focusRefusal_;  // of a panel
    ComPtr<IUnknown> accessible_;
    ComPtr<IRawElementProviderSimple> provider_;
    std::vector<AccessibleId> named_;  // by events, each in its place until it is needed again
    size_t nextName_ = 0;
    bool caret_ = false;  // made here; of a panel, moved to here
};

}  // namespace obk::win32
