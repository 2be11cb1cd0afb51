#include "widgets/widget.h"

#include "base/attempt.h"
#include "widgets/container.h"
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
    attempt([&] { placed(); });
}

void Widget::setVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = true;  // so that what it uncovers is painted
    invalidate();
    visible_ = visible;
    attempt([&] { placed(); });
}

void Widget::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    invalidate();
    attempt([&] { placed(); });
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
    return pixelBounds(dpi());
}

PixelRect Widget::pixelBounds(Dpi scale) const {
    const PixelRect own = scale.toPixels(bounds_);
    if (!parent_) return {0, 0, own.width(), own.height()};
    const PixelRect outer = parent_->pixelBounds(scale);
    return own.moved(outer.left, outer.top);
}

PixelRect Widget::pixelClip() const {
    const Dpi scale = dpi();
    PixelRect clip = pixelBounds(scale);
    for (const Widget* widget = this; widget; widget = widget->parent_) {
        if (!widget->visible_) return {};
        clip = clip.intersected(widget->pixelBounds(scale));
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

bool Widget::wheelAround(const WheelEvent& event) {
    for (Widget* around = parent_; around; around = around->parent_) {
        if (around->enabled_ && around->wheel(event)) return true;
    }
    return false;
}

void Widget::attach(SurfacePeer&) {}
void Widget::detach() {}

AccessibleItem Widget::itemOf(AccessibleItem::Role role, TextView name) const {
    AccessibleItem item;
    item.role = role;
    item.name = name;
    item.bounds = pixelBounds();
    item.set(AccessibleItem::disabled, !enabled_);
    return item;
}

void Widget::announce(AccessibleEvent event, AccessiblePart part) {
    if (Surface* shownOn = surface()) shownOn->announce(event, {this, part});
}

}  // namespace obk
