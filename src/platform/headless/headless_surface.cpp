#include "platform/headless/headless_surface.h"

#include "platform/headless/headless_check_box.h"
#include "platform/headless/headless_text_box.h"

#include "widgets/accessible_tree.h"

#include <algorithm>

namespace obk::headless {

HeadlessSurface::HeadlessSurface(HeadlessPlatform& platform, SurfaceClient& client,
                                 const SurfacePlacement& placement)
    : HeadlessWindow(platform, client, nullptr),
      surfaceClient_(client),
      kind_(placement.kind),
      dpi_(platform.appearance().systemDpi()) {
    bounds_ = clip_ = placement.bounds;
    if (kind_ == SurfacePlacement::Kind::panel) dpi_ = monitorDpi();
    visible_ = kind_ == SurfacePlacement::Kind::control;
    invalidate(area());
}

HeadlessSurface::~HeadlessSurface() {
    releaseCapture();
    for (HeadlessWindow* child : children_) child->orphan();
}

bool HeadlessSurface::canTakeFocus() const {
    return kind_ == SurfacePlacement::Kind::control && HeadlessWindow::canTakeFocus();
}

void HeadlessSurface::setBounds(const PixelRect& bounds) {
    const PixelRect before = area();
    bounds_ = clip_ = bounds;
    if (area() != before) invalidate(area());
    if (visible_ || platform_.scaleTold() == HeadlessPlatform::ScaleTold::moved) followMonitor();
}

Dpi HeadlessSurface::monitorDpi() const {
    return platform_.monitorOf(bounds_).dpi.value_or(platform_.appearance().systemDpi());
}

void HeadlessSurface::followMonitor() {
    if (kind_ == SurfacePlacement::Kind::panel && monitorDpi() != dpi_) setDpi(monitorDpi());
}

void HeadlessSurface::setVisible(bool visible) {
    if (visible && !visible_) invalidate(area());
    visible_ = visible;
    if (!visible && hasFocus()) platform_.setFocus(0);
    if (visible) followMonitor();
}

void HeadlessSurface::setEnabled(bool enabled) {
    enabled_ = enabled;
    if (!enabled && hasFocus()) platform_.setFocus(0);
}

void HeadlessSurface::update() {
    if (visible_ && kind_ != SurfacePlacement::Kind::parked && !invalid_.intersected(area()).empty()) paint();
}

void HeadlessSurface::invalidate(const PixelRect& rect) {
    if (rect.empty()) return;
    invalid_ = invalid_.empty()
                   ? rect
                   : PixelRect{std::min(invalid_.left, rect.left), std::min(invalid_.top, rect.top),
                               std::max(invalid_.right, rect.right), std::max(invalid_.bottom, rect.bottom)};
}

void HeadlessSurface::scroll(const PixelRect& rect, int32_t x, int32_t y) {
    const PixelRect moved = rect.intersected(area());
    if (moved.empty()) return;
    scrolled_.push_back({moved, x, y});
    // What waits to be painted moves along, and what comes in from outside is new.
    invalidate(invalid_.intersected(moved).moved(x, y).intersected(moved));
    const PixelRect kept = moved.moved(x, y).intersected(moved);
    if (kept.empty()) return invalidate(moved);
    if (x != 0)
        invalidate(
            {x > 0 ? moved.left : kept.right, moved.top, x > 0 ? kept.left : moved.right, moved.bottom});
    if (y != 0)
        invalidate(
            {moved.left, y > 0 ? moved.top : kept.bottom, moved.right, y > 0 ? kept.top : moved.bottom});
}

void HeadlessSurface::capture() {
    if (!platform_.refusesRequest()) platform_.takeCapture(id());
}

void HeadlessSurface::releaseCapture() {
    if (platform_.capture_ == id()) platform_.capture_ = 0;
}

void HeadlessSurface::focus() {
    if (canTakeFocus() && !platform_.refusesRequest()) platform_.setFocus(id());
}

std::unique_ptr<TextBoxPeer> HeadlessSurface::createTextBox(TextBoxClient& client,
                                                            const TextBoxStart& start) {
    if (platform_.refusesRequest()) return nullptr;
    return std::make_unique<HeadlessTextBox>(platform_, client, *this, start);
}

std::unique_ptr<CheckBoxPeer> HeadlessSurface::createCheckBox(CheckBoxClient& client,
                                                              const ChildPlacement& placement) {
    if (platform_.refusesRequest()) return nullptr;
    return std::make_unique<HeadlessCheckBox>(platform_, client, *this, placement);
}

void HeadlessSurface::tellReaders(AccessibleEvent event, const AccessibleId& of) {
    static constexpr const char* names[] = {"focus",   "selection",       "value",         "name",
                                            "state",   "expanded",        "structure",     "invoked",
                                            "toggled", "scrolled across", "scrolled down", "extended"};
    const AccessibleItem item = surfaceClient_.accessibleTree()->item(of);
    std::string line = names[static_cast<size_t>(event)] + (" " + toUtf8(item.name));
    if (event == AccessibleEvent::value) line += ": " + toUtf8(item.value);
    if (event == AccessibleEvent::toggled) line += item.is(AccessibleItem::checked) ? " on" : " off";
    if (event == AccessibleEvent::expanded) line += item.is(AccessibleItem::expanded) ? " open" : " closed";
    platform_.heard_.push_back(line);
}

RecordingCanvas HeadlessSurface::paint() {
    RecordingCanvas canvas(dpi_, area());
    const auto alive = surfaceClient_.keepAlive();
    const PixelRect dirty = invalid_.empty() ? area() : invalid_.intersected(area());
    invalid_ = {};
    if (alive) surfaceClient_.paint(canvas, dirty);
    return canvas;
}

void HeadlessSurface::setDpi(Dpi dpi) {
    dpi_ = dpi;
    if (const auto alive = surfaceClient_.keepAlive()) surfaceClient_.dpiChanged(dpi);
}

HeadlessWindow* HeadlessSurface::childAt(PixelPoint point) const {
    const auto found =
        std::find_if(children_.rbegin(), children_.rend(), [point](const HeadlessWindow* child) {
            return child->visible() && child->enabled() &&
                   child->bounds().intersected(child->clip()).contains(point);
        });
    return found == children_.rend() ? nullptr : *found;
}

}  // namespace obk::headless
