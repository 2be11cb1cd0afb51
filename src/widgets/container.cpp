#include "widgets/container.h"

#include "base/attempt.h"
#include "widgets/surface.h"

#include <algorithm>

namespace obk {

Container::~Container() {
    // What lives on without this container is a root again.
    for (Widget* child : children_) child->parent_ = nullptr;
}

void Container::adopt(Container& root) {
    children_.push_back(&root);
    root.parent_ = this;
    attempt([&] { root.placed(); });
}

bool Container::holdsFocus() const {
    return std::any_of(children_.begin(), children_.end(),
                       [](Widget* child) { return child->focused() != nullptr; });
}

void Container::SetBackColor(OleColour colour) {
    backColour_ = colour;
    invalidate();
}

void Container::paint(Canvas& canvas, const PixelRect& bounds) {
    PixelRect covered{bounds.left, bounds.top, bounds.left, bounds.bottom};
    for (const Widget* child : children_) {
        if (!child->visible() || !child->opaque()) continue;
        const PixelRect at = canvas.dpi().toPixels(child->bounds()).moved(bounds.left, bounds.top);
        if (const PixelRect inside = at.intersected(bounds); !inside.empty()) covered = inside;
    }
    const Rgb ground = rgb(backColour_);
    for (const PixelRect& around : {PixelRect{bounds.left, bounds.top, bounds.right, covered.top},
                                    PixelRect{bounds.left, covered.top, covered.left, covered.bottom},
                                    PixelRect{covered.right, covered.top, bounds.right, covered.bottom},
                                    PixelRect{bounds.left, covered.bottom, bounds.right, bounds.bottom}})
        canvas.fillRect(around, ground);
    paintChildren(canvas, bounds);
}

void Container::paintChildren(Canvas& canvas, const PixelRect& bounds) {
    for (Widget* child : children_) {
        if (!child->visible()) continue;
        const PixelRect at = canvas.dpi().toPixels(child->bounds()).moved(bounds.left, bounds.top);
        const PixelRect shown = at.intersected(bounds);
        if (shown.empty()) continue;
        const CanvasClip clip(canvas, shown);
        attempt([&] { child->paint(canvas, at); });
    }
}

Widget* Container::hitTest(PixelPoint point) {
    if (!Widget::hitTest(point)) return nullptr;
    for (auto child = children_.rbegin(); child != children_.rend(); ++child) {
        const PixelRect at = dpi().toPixels((*child)->bounds());
        if (Widget* hit = (*child)->hitTest({point.x - at.left, point.y - at.top})) return hit;
    }
    return this;
}

void Container::attach(SurfacePeer& peer) {
    for (Widget* child : children_) attempt([&] { child->attach(peer); });
}

void Container::detach() {
    for (Widget* child : children_) attempt([&] { child->detach(); });
}

void Container::placed() {
    for (Widget* child : children_) attempt([&] { child->placed(); });
}

void Container::appearanceChanged() {
    for (Widget* child : children_) attempt([&] { child->appearanceChanged(); });
}

Widget* Container::focused() {
    for (Widget* child : children_) {
        if (Widget* found = child->focused()) return found;
    }
    return nullptr;
}

bool Container::takeFocus() {
    return std::any_of(children_.begin(), children_.end(), [](Widget* child) { return child->takeFocus(); });
}

}  // namespace obk
