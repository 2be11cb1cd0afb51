// The port's windows: peers that exist while a control is active, and what they report to the portable
// widgets.
#pragma once

#include "base/colour.h"
#include "base/font.h"
#include "base/text.h"
#include "base/units.h"
#include "widgets/canvas.h"
#include "widgets/input.h"
#include "widgets/platform.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace obk {

// Whatever a client's function does, it may destroy the peer that called it: a peer touches nothing of its
// own after a call without asking whether it still exists, and holds `keepAlive()` for the time of the call.
class PeerClient {
public:
    virtual std::shared_ptr<void> keepAlive() = 0;
    virtual void mouse(const MouseEvent& event) = 0;
    // Whether the wheel was used; otherwise the host gets it.
    virtual bool wheel(const WheelEvent& event) = 0;
    // The right button asks for a menu at a point of the client area, or the menu key does, with none.
    // Whether one was shown; otherwise the window shows its own, or the host gets the wish.
    virtual bool contextMenu(std::optional<PixelPoint>) { return false; }
    // A code of 0 on return discards the key.
    virtual void keyDown(KeyEvent& event) = 0;
    virtual void keyUp(KeyEvent& event) = 0;
    // A typed character; the answer is the one to use instead, 0 discards it.
    virtual int16_t keyPress(int16_t character) = 0;
    virtual void focusGained() = 0;
    virtual void focusLost() = 0;
    // Consulted once for each key message before anything else is done with it.
    virtual KeyRoute preTranslate(const KeyEvent& event) = 0;
    // Offers a key that the control does not want to the container; whether it was used there.
    virtual bool offerToContainer(const KeyEvent& event) = 0;

protected:
    ~PeerClient() = default;
};

// A child window on a surface. Colours, fonts and sizes follow the calls at once.
class ChildPeer {
public:
    virtual ~ChildPeer() = default;
    virtual NativeWindow window() const = 0;
    // `bounds` on the surface; nothing outside `clip` shows. An empty intersection hides the window.
    virtual void setBounds(const PixelRect& bounds, const PixelRect& clip) = 0;
    virtual void setVisible(bool visible) = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual void setFont(const FontDescription& font) = 0;
    virtual void setColours(Rgb text, Rgb background) = 0;
    virtual void setAccessibleName(TextView name) = 0;
    // Refused, without effect, while disabled or invisible.
    virtual void focus() = 0;
    virtual bool hasFocus() const = 0;
};

struct TextSelection {
    int32_t start = 0, length = 0;  // UTF-16 units
    friend bool operator==(TextSelection, TextSelection) = default;
};

enum class EditCommand { undo, cut, copy, paste, selectAll };

class TextBoxClient : public PeerClient {
public:
    // Every change of the window's text, whoever made it; may report a text that is not new.
    virtual void textChanged(Text text) = 0;

protected:
    ~TextBoxClient() = default;
};

// The air at both sides of an edit's text, in pixels at 96 DPI.
constexpr int32_t textMargin = 2;

// A single-line text edit window without border. Starts empty, enabled, visible, left aligned.
class TextBoxPeer : public ChildPeer {
public:
    virtual void setText(TextView text) = 0;
    virtual void setSelection(TextSelection selection) = 0;
    virtual TextSelection selection() const = 0;
    virtual void setAlignment(HorizontalAlignment alignment) = 0;
    // What a person may type or paste; 0 is no limit. Does not shorten the present text.
    virtual void setMaxLength(int32_t length) = 0;
    virtual void setReadOnly(bool readOnly) = 0;
    virtual void perform(EditCommand command) = 0;
};

class CheckBoxClient : public PeerClient {
public:
    // A person has pressed and released the box, or the blank key on it. The mark is the client's to change.
    virtual void checkPressed() = 0;

protected:
    ~CheckBoxClient() = default;
};

// The system's check box without a caption. Starts unchecked, enabled, visible.
class CheckBoxPeer : public ChildPeer {
public:
    virtual void setChecked(bool checked) = 0;
};

// What a screen reader is told of a part that has no window of its own.
struct AccessibleItem {
    enum class Role { client, button, staticText, separator, listItem, graphic, pageTabList, pageTab, columnHeader };
    Role role = Role::client;
    Text name;
    Text value;
    PixelRect bounds;  // on the surface
    bool enabled = true;
    bool pressed = false;  // of a list item or a page tab: chosen
};

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
    // Whether something may be dropped at a point; asked of surfaces that accept drops, while it is over
    // them.
    virtual bool takesDrop(PixelPoint) { return false; }
    virtual void drop(DropEvent&) {}
    // First the surface itself, then its parts.
    virtual std::vector<AccessibleItem> accessibleItems() = 0;

protected:
    ~SurfaceClient() = default;
};

struct SurfacePlacement {
    enum class Kind {
        control,  // a child window of `parent`
        // A top-level tool window, hidden at first, that never activates nor takes the focus, neither by
        // itself nor by a child, and lies above the others when it is shown.
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
    // Shown when the mouse rests inside `rect`; an empty text removes it. One at a time.
    virtual void setToolTip(const PixelRect& rect, TextView text) = 0;
    // From now on things may be dropped on it, where the system and the host's thread are ready for that.
    virtual void acceptDrops() = 0;
    virtual PixelPoint toScreen(PixelPoint point) const = 0;
    // The part of the screen that windows may use, of the monitor this surface is on.
    virtual PixelRect workArea() const = 0;

    // Null when the system refuses.
    virtual std::unique_ptr<TextBoxPeer> createTextBox(TextBoxClient& client) = 0;
    virtual std::unique_ptr<CheckBoxPeer> createCheckBox(CheckBoxClient& client) = 0;
};

}  // namespace obk
