// The port's window of a control or of a pop-up panel, which exists while that is active.
#pragma once

#include "widgets/accessible_item.h"
#include "widgets/canvas.h"
#include "widgets/peer_client.h"
#include "widgets/platform.h"

#include <memory>

namespace obk {

class AccessibleTree;
class CheckBoxClient;
class CheckBoxPeer;
class TextBoxClient;
class TextBoxPeer;
struct ChildPlacement;
struct TextBoxStart;

class SurfaceClient : public PeerClient {
public:
    // Paints at least `dirty`; the peer has put an off-screen canvas beneath it.
    virtual void paint(Canvas& canvas, const PixelRect& dirty) = 0;
    // Capture went to another window without our asking.
    virtual void captureLost() = 0;
    virtual void dpiChanged(Dpi dpi) = 0;
    // Colours, metrics, fonts or high contrast changed.
    virtual void appearanceChanged() = 0;
    // Told to a panel while it is visible: the top-level window of the control that owns it moved, was
    // resized, minimised, hidden or closed.
    virtual void hostMoved() = 0;
    // Told while the focus is in the surface: the mouse was pressed elsewhere in the host's top-level window,
    // or the menu of that opened, and the focus has stayed. As far as the system tells of it.
    virtual void pressedElsewhere() {}
    // Whether something may be dropped at a point; asked of surfaces that accept drops, while it is over
    // them.
    virtual bool takesDrop(PixelPoint) { return false; }
    virtual void drop(DropEvent&) {}
    // For screen readers; null for what they cannot look into.
    virtual const AccessibleTree* accessibleTree() { return nullptr; }
    // What SurfacePeer::readersSoon has asked for.
    virtual void tellReaders() {}

protected:
    ~SurfaceClient() = default;
};

struct SurfacePlacement {
    enum class Kind {
        control,  // a child window of `parent`
        // A top-level tool window, hidden at first, that lies above the others when it is shown. Neither it
        // nor a child of it is ever activated or has the focus, whoever asks, the host included.
        panel,
        parked,  // an invisible window without a place yet, for a host that asks for the handle early
    };
    Kind kind = Kind::control;
    NativeWindow parent = 0;  // a panel's is the control that owns it
    PixelRect bounds;         // in the parent's client area; a panel's on the screen
};

// A control's own window, or a pop-up panel's. Destroying it destroys its child windows.
class SurfacePeer {
public:
    virtual ~SurfacePeer() = default;
    virtual NativeWindow window() const = 0;
    virtual Dpi dpi() const = 0;
    virtual void setParent(NativeWindow parent) = 0;
    virtual void setBounds(const PixelRect& bounds) = 0;
    virtual void setVisible(bool visible) = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual void invalidate(const PixelRect& rect) = 0;
    // Paints what is invalid now rather than later.
    virtual void update() = 0;
    // Moves what is drawn inside `rect` and invalidates what is uncovered.
    virtual void scroll(const PixelRect& rect, int32_t x, int32_t y) = 0;
    virtual void capture() = 0;
    // Only ever this surface's own capture; `captureLost` is not called.
    virtual void releaseCapture() = 0;
    virtual bool hasCapture() const = 0;
    virtual void focus() = 0;
    // Whether the focus is in this window or one of its children.
    virtual bool hasFocus() const = 0;
    virtual void setCursor(Cursor cursor) = 0;
    // Shown when the mouse rests inside `rect`, or at once below that; an empty text removes it. One at a
    // time.
    virtual void setToolTip(const PixelRect& rect, TextView text, ToolTipShown shown) = 0;
    // Things may be dropped on it from its first painting on, where the system and the host's thread are
    // ready.
    virtual void acceptDrops() = 0;
    virtual PixelPoint toScreen(PixelPoint point) const = 0;
    // The part of the screen that windows may use, of the monitor that most of a place on the screen is on.
    virtual PixelRect workArea(const PixelRect& place) const = 0;
    // The caption of a label that stands directly before the window in its form, with the mark of its access
    // key; empty where there is none.
    virtual Text labelBefore() const { return {}; }
    // Whether screen readers listen; and that the client is to be called back to tell them something, once
    // the work of the moment is done.
    virtual bool readersListen() const { return false; }
    virtual void readersSoon() {}
    virtual void tellReaders(AccessibleEvent, const AccessibleId&) {}
    // The focus is back where readers know it to be: only the caret, which magnifiers follow, goes there.
    virtual void focusStays(const AccessibleId&) {}

    // Null when the system refuses.
    virtual std::unique_ptr<TextBoxPeer> createTextBox(TextBoxClient& client, const TextBoxStart& start) = 0;
    virtual std::unique_ptr<CheckBoxPeer> createCheckBox(CheckBoxClient& client,
                                                         const ChildPlacement& placement) = 0;
};

}  // namespace obk
