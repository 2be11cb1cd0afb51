// What every widget has: geometry, visibility and enabling, kept whether or not a window exists.
#pragma once

#include "base/units.h"
#include "widgets/accessible_item.h"
#include "widgets/canvas.h"
#include "widgets/input.h"
#include "widgets/platform.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace obk {

class Container;
class Surface;

// How controls look: the flat, modern look or the classic three-dimensional one.
enum class Look : uint8_t { classic, flat };

// Operations on widgets are total, and so are those of what they are made of: no exception leaves a public
// function that changes or asks something. The state is taken over first, or nothing is where that fails;
// what then fails in a window or in a listener keeps nothing else from being done. What a person does
// (`mouse`, `keyDown` and the like) is handed on to listeners, whose exceptions end in the port.
class Widget {
public:
    // `parent` is borrowed and outlives the widget. Later children lie above earlier ones.
    explicit Widget(Container& parent);
    Widget(const Widget&) = delete;
    Widget& operator=(const Widget&) = delete;
    virtual ~Widget();

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
    // The keyboard focus came to this widget or one below it, or left it for another one, maybe of the same
    // control.
    virtual void focusCameBelow() {}
    virtual void focusWentBelow() {}
    // The widget with the keyboard focus, this one or below it; or that could take it.
    virtual Widget* focused() { return nullptr; }
    virtual bool takeFocus() { return false; }

    // For screen readers. Whether the widget is a thing of its own; otherwise its parts and children stand in
    // its place. Nothing here is costly, whatever the number of parts.
    virtual bool accessibleWhole() const { return false; }
    // What a part of this widget is or, where it is a thing of its own, the whole.
    virtual AccessibleItem accessible(AccessiblePart) const { return {}; }
    // How many parts are in it, or in a row of it; they come before the children.
    virtual int32_t accessibleParts(AccessiblePart) const { return 0; }
    // The first of the parts in something that is in sight, from `index` on or, where `by` is below 0, back
    // from it; -1 or their count where there is none. All are, unless a widget scrolls through very many.
    virtual int32_t accessibleInSight(AccessiblePart, int32_t index, int32_t) const { return index; }
    // At a point of the surface.
    virtual AccessiblePart accessiblePartAt(PixelPoint at) const;
    // The part that is a cell; none where there is no such cell.
    virtual AccessiblePart accessibleCell(int32_t row, int32_t col) const { return {row, col}; }
    // What keys go to, of this widget or in its name.
    virtual AccessibleId accessibleFocus() {
        return focused() == this ? AccessibleId{this, {}} : AccessibleId{};
    }
    virtual std::vector<AccessiblePart> accessibleSelection() const;
    // Only what the item offers, while it is enabled. A person's doing: hosts hear of it.
    virtual void useAccessible(AccessiblePart, const AccessibleAction&) {}
    virtual std::span<Widget* const> children() const { return {}; }
    // The part that a child stands in; none for one that stands beside the parts.
    virtual AccessiblePart accessiblePlaceOf(const Widget&) const { return {}; }
    // Tells screen readers, if any listen, once the present work is done.
    void announce(AccessibleEvent event, AccessiblePart part = {});

protected:
    void setOpaque() { opaque_ = true; }
    // What all items of this widget have in common.
    AccessibleItem itemOf(AccessibleItem::Role role, TextView name) const;
    explicit Widget(Platform& platform) : platform_(platform) {}
    // The wheel was turned over a window of this widget, which has no use for it: whether one of those around
    // it has.
    bool wheelAround(const WheelEvent& event);
    virtual Surface* ownSurface() const { return nullptr; }
    virtual std::shared_ptr<void> ownKeepAlive() const { return nullptr; }

private:
    friend class Container;
    PixelRect pixelBounds(Dpi scale) const;
    Platform& platform_;
    Container* parent_ = nullptr;
    TwipsRect bounds_;
    bool visible_ = true;
    bool opaque_ = false;
    bool enabled_ = true;
};

}  // namespace obk
