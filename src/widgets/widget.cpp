#include "widgets/widget.h"

#include "widgets/surface.h"

#include <algorithm>

namespace obk {

Widget::Widget(Container& parent) : platform_(parent.platform()), parent_(&parent) {
    parent.children_.push_back(this);
}

Widget::~Widget() {
    if (Surface* shownOn = surface()) shownOn->forget(*this);
    if (parent_) std::erase(parent_->children_, this);
}

void Widget::move(const TwipsRect& bounds) {
    TwipsRect valid = bounds;
    valid.width = std::max(valid.width, Twips{0});
    valid.height = std::max(valid.height, Twips{0});
    if (valid == bounds_) return;
    invalidate();
    bounds_ = valid;
    invalidate();
    placed();
}

void Widget::setVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = true;  // so that what it uncovers is painted
    invalidate();
    visible_ = visible;
    placed();
}

void Widget::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    invalidate();
    placed();
}

Surface* Widget::surface() const {
    for (const Widget* widget = this; widget; widget = widget->parent_) {
        if (Surface* own = widget->ownSurface()) return own;
    }
    return nullptr;
}

Dpi Widget::dpi() const {
    const Surface* shownOn = surface();
    return shownOn ? shownOn->dpi() : platform_.appearance().systemDpi();
}

PixelRect Widget::pixelBounds() const {
    const PixelRect own = dpi().toPixels(bounds_);
    if (!parent_) return {0, 0, own.width(), own.height()};
    const PixelRect outer = parent_->pixelBounds();
    return own.moved(outer.left, outer.top);
}

PixelRect Widget::pixelClip() const {
    PixelRect clip = pixelBounds();
    for (const Widget* widget = this; widget; widget = widget->parent_) {
        if (!widget->visible_) return {};
        clip = clip.intersected(widget->pixelBounds());
    }
    return clip;
}

Rgb Widget::rgb(OleColour colour) const {
    if ((colour.value & 0x80000000u) == 0) return {colour.value & 0xFFFFFFu};
    return platform_.appearance().systemColour(static_cast<uint8_t>(colour.value)).value_or(Rgb{});
}

std::shared_ptr<void> Widget::keepAlive() const {
    const Widget* root = this;
    while (root->parent_) root = root->parent_;
    return root->ownKeepAlive();
}

void Widget::invalidate() {
    if (Surface* shownOn = surface()) shownOn->invalidate(pixelClip());
}

void Widget::paint(Canvas&, const PixelRect&) {}

Widget* Widget::hitTest(PixelPoint point) {
    const PixelRect own = dpi().toPixels(bounds_);
    return visible_ && PixelRect{0, 0, own.width(), own.height()}.contains(point) ? this : nullptr;
}

void Widget::mouse(const MouseEvent&) {}

bool Widget::wheel(const WheelEvent&) {
    return false;
}

void Widget::attach(SurfacePeer&) {}
void Widget::detach() {}
void Widget::describe(std::vector<AccessibleItem>&) const {}

Container::~Container() {
    // What lives on without this container is a root again.
    for (Widget* child : children_) child->parent_ = nullptr;
}

void Container::adopt(Container& root) {
    root.parent_ = this;
    children_.push_back(&root);
    root.placed();
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
    canvas.fillRect(bounds, rgb(backColour_));
    paintChildren(canvas, bounds);
}

void Container::paintChildren(Canvas& canvas, const PixelRect& bounds) {
    for (Widget* child : children_) {
        if (!child->visible()) continue;
        const PixelRect at = canvas.dpi().toPixels(child->bounds()).moved(bounds.left, bounds.top);
        const PixelRect shown = at.intersected(bounds);
        if (shown.empty()) continue;
        const CanvasClip clip(canvas, shown);
        child->paint(canvas, at);
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
    for (Widget* child : children_) child->attach(peer);
}

void Container::detach() {
    for (Widget* child : children_) child->detach();
}

void Container::placed() {
    for (Widget* child : children_) child->placed();
}

void Container::appearanceChanged() {
    for (Widget* child : children_) child->appearanceChanged();
}

void Container::describe(std::vector<AccessibleItem>& items) const {
    for (const Widget* child : children_) {
        if (child->visible()) child->describe(items);
    }
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
