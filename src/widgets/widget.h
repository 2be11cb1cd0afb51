// What every widget has: geometry, visibility and enabling, kept whether or not a window exists.
#pragma once

#include "base/units.h"
#include "widgets/accessible_parts.h"
#include "widgets/canvas.h"
#include "widgets/input.h"
#include "widgets/platform.h"

#include <memory>
#include <optional>
#include <span>

namespace obk {

class Container;
class Surface;

// How controls look: the flat, modern look or the classic three-dimensional one.
enum class Look : uint8_t { classic, flat };

// Operations on widgets are total, and so are those of what they are made of: no exception leaves a public
// function that changes or asks something. The state is taken over first, or nothing is where that fails;
// what then fails in a window or in a listener keeps nothing else from being done. What a person does
// (`mouse`, `keyDown` and the like) is handed on to listeners, whose exceptions end in the port.
class Widget : public AccessibleParts {
public:
    // `parent` is borrowed and outlives the widget. Later children lie above earlier ones.
    explicit Widget(Container& parent);
    Widget(const Widget&) = delete;
    Widget& operator=(const Widget&) = delete;
    ~Widget() override;

    // Relative to the parent. Negative sizes count as 0.
    const TwipsRect& bounds() const { return bounds_; }
    void move(const TwipsRect& bounds);
    void setLeft(Twips left) { move({left, bounds_.top, bounds_.width, bounds_.height}); }
    void setTop(Twips top) { move({bounds_.left, top, bounds_.width, bounds_.height}); }
    void setWidth(Twips width) { move({bounds_.left, bounds_.top, width, bounds_.height}); }
    void setHeight(Twips height) { move({bounds_.left, bounds_.top, bounds_.width, height}); }

    bool visible() const { return visible_; }
    void setVisible(bool visible);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    Platform& platform() const { return platform_; }
    Container* parent() const { return parent_; }
    // Where the widget is shown; null while there is no window.
    Surface* surface() const;
    Dpi dpi() const;                  // of the surface, or the system's
    PixelRect pixelBounds() const;    // on the surface
    PixelRect pixelClip() const;      // what the drawn ancestors let show
    Rgb rgb(OleColour colour) const;  // black for a colour that the system does not know
    std::shared_ptr<void> keepAlive() const;
    void invalidate();

    // Paints into `bounds`; parents clip.
    virtual void paint(Canvas& canvas, const PixelRect& bounds);
    // Whether its painting covers all of its place, so that nothing need be painted beneath it.
    bool opaque() const { return opaque_; }
    // The topmost visible widget at a point relative to this widget's left top corner; null outside.
    virtual Widget* hitTest(PixelPoint point);
    // Coordinates are relative to this widget.
    virtual void mouse(const MouseEvent& event);
    virtual bool wheel(const WheelEvent& event);
    // A menu is asked for; the point is none when it was the keyboard. Whether one was shown.
    virtual bool contextMenu(std::optional<PixelPoint>) { return false; }
    virtual void captureLost() {}
    // Whether something may be dropped here; the surface must accept drops.
    virtual bool takesDrops() const { return false; }
    virtual void drop(DropEvent&) {}
    // Keys of the surface's own window, while this widget has them; a code or character of 0 on return
    // discards the key.
    virtual void keyDown(KeyEvent&) {}
    virtual void keyUp(KeyEvent&) {}
    virtual int16_t keyPress(int16_t character) { return character; }
    // A window appeared or goes; what must be kept is taken over first.
    virtual void attach(SurfacePeer& peer);
    virtual void detach();
    // Geometry, visibility or enabling changed, here or in an ancestor.
    virtual void placed() {}
    // Another DPI, other system colours, fonts or metrics.
    virtual void appearanceChanged() {}
    // The keyboard focus came to this widget or one below it, or left it, maybe within the same control.
    virtual void focusCameBelow() {}
    virtual void focusWentBelow() {}
    // The widget with the keyboard focus, this one or below it; or that could take it.
    virtual Widget* focused() { return nullptr; }
    virtual bool takeFocus() { return false; }

    virtual std::span<Widget* const> children() const { return {}; }
    // What keys go to, of this widget or in its name.
    virtual AccessibleId accessibleFocus() {
        return focused() == this ? AccessibleId{this, {}} : AccessibleId{};
    }
    // Tells screen readers, if any listen, once the present work is done.
    void announce(AccessibleEvent event, AccessiblePart part = {});

protected:
    void setOpaque() { opaque_ = true; }
    // What all items of this widget have in common.
    AccessibleItem itemOf(AccessibleItem::Role role, TextView name) const;
    explicit Widget(Platform& platform) : platform_(platform) {}
    // Hands on a wheel that this widget's window has no use for: whether a widget around it has.
    bool wheelAround(const WheelEvent& event);
    virtual Surface* ownSurface() const { return nullptr; }
    virtual std::shared_ptr<void> ownKeepAlive() const { return nullptr; }

private:
    friend class Container;
    PixelRect pixelBounds(Dpi scale) const;
    Platform& platform_;
    Container* parent_ = nullptr;
    TwipsRect bounds_;
    bool visible_ = true, enabled_ = true;
    bool opaque_ = false;
};

}  // namespace obk
