#include "widgets/surface.h"

#include "base/attempt.h"
#include "widgets/mirrored_canvas.h"

#include <utility>

namespace obk {

Surface::Surface(Container& root, SurfaceOwner& owner) : SurfaceView(root, owner), tree_(root, owner) {}

Surface::~Surface() {
    close();
}

bool Surface::open(const SurfacePlacement& placement) {
    close();
    attempt([&] { peer_ = root_.platform().createSurface(*this, placement); });
    if (!peer_) return false;
    dpi_ = peer_->dpi();
    unseen_ = true;
    placed_ = placement.kind != SurfacePlacement::Kind::parked;
    root_.setSurface(this);
    root_.attach(*peer_);
    return true;
}

void Surface::attach(Widget& widget) {
    if (peer_) attempt([&] { widget.attach(*peer_); });
}

void Surface::close() {
    if (!peer_) return;
    // The children keep what their windows know before the windows go.
    root_.detach();
    captured_ = nullptr;
    hovered_ = nullptr;
    news_.clear();
    droppedDown_ = nullptr;
    keyTarget_ = nullptr;
    ownFocus_ = false;
    holding_ = false;
    resting_ = false;
    root_.setSurface(nullptr);
    const auto going = std::move(peer_);
    attempt([&] { owner_.focusLeft(); });
}

bool Surface::takeFocus() {
    if (peer_ && !peer_->hasFocus()) attempt([&] { peer_->focus(); });
    return hasFocus();
}

bool Surface::focus(Widget& widget) {
    if (!peer_) return false;
    Widget* const before = std::exchange(keyTarget_, &widget);
    attempt([&] {
        if (!ownFocus_)
            peer_->focus();
        else if (before != &widget)
            childFocusGained(widget);
    });
    return focusedOn(widget);
}

void Surface::capture(Widget& widget) {
    if (!peer_) return;
    captured_ = &widget;
    attempt([&] { peer_->capture(); });
}

void Surface::releaseCapture(const Widget& widget) {
    if (captured_ != &widget) return;
    captured_ = nullptr;
    if (!peer_) return;
    attempt([&] { holding_ ? peer_->capture() : peer_->releaseCapture(); });
}

void Surface::holdCapture() {
    if (!peer_) return;
    holding_ = true;
    attempt([&] { peer_->capture(); });
}

void Surface::endCapture() {
    holding_ = false;
    resting_ = false;
    captured_ = nullptr;
    attempt([&] {
        if (hasCapture()) peer_->releaseCapture();
    });
}

std::optional<size_t> Surface::chooseFromMenu(std::span<const MenuItem> items, const PixelRect& beside) {
    if (!peer_) return std::nullopt;
    const bool held = holding_;
    endCapture();
    resting_ = held;
    std::optional<size_t> chosen;
    attempt([&] { chosen = root_.platform().chooseFromMenu(window(), items, toScreen(beside)); });
    // Whoever closed or hid the surface meanwhile has ended the capture for good.
    if (std::exchange(resting_, false)) holdCapture();
    return chosen;
}

void Surface::beginDropDown(Widget& widget) {
    droppedDown_ = &widget;
    const bool held = holding_;
    endCapture();
    resting_ = held;
}

void Surface::endDropDown(const Widget& widget) {
    if (droppedDown_ != &widget) return;
    droppedDown_ = nullptr;
    if (std::exchange(resting_, false)) holdCapture();
}

void Surface::loseDropDown(const Widget& widget) {
    if (droppedDown_ != &widget) return;
    droppedDown_ = nullptr;
    if (std::exchange(resting_, false)) captureLost();
}

void Surface::forget(const Widget& widget) {
    endDropDown(widget);
    releaseCapture(widget);
    if (hovered_ == &widget) hovered_ = nullptr;
    if (keyTarget_ == &widget) keyTarget_ = nullptr;
    news_.forget(widget);
}

template <typename Add>
void Surface::addNews(Add&& add) {
    if (!peer_ || !placed_ || (news_.empty() && !peer_->readersListen())) return;
    attempt([&] {
        const bool first = news_.empty();
        add();
        if (first) peer_->readersSoon();
    });
}

void Surface::childFocusGained(Widget& child) {
    owner_.focusEntered();
    if (ownFocus_) addNews([&] { news_.focusCameBack(); });
    for (Widget* widget = &child; widget; widget = widget->parent()) widget->focusCameBelow();
}

void Surface::childFocusLost(Widget& child) {
    for (Widget* widget = &child; widget; widget = widget->parent()) widget->focusWentBelow();
    if (!hasFocus()) owner_.focusLeft();
}

std::shared_ptr<void> Surface::keepAlive() {
    return root_.keepAlive();
}

void Surface::deliver(Widget& widget, const MouseEvent& event) {
    const PixelRect at = widget.pixelBounds();
    MouseEvent own = event;
    own.at = {event.at.x - at.left, event.at.y - at.top};
    widget.mouse(own);
}

void Surface::mouse(const MouseEvent& event) {
    MouseEvent own = event;
    own.at = fromWindow(event.at);
    Widget* target = captured_;
    if (!target && event.kind != MouseEvent::Kind::leave) {
        target = root_.hitTest(own.at);
        if (!target && holding_) target = &root_;
    }
    if (target != hovered_ && !captured_) {
        Widget* left = hovered_;
        hovered_ = target;
        if (left) deliver(*left, {MouseEvent::Kind::leave, 0, event.shift, own.at});
        // A listener may have closed the surface or taken the widget away.
        target = hovered_;
    }
    if (target) deliver(*target, own);
}

bool Surface::wheel(const WheelEvent& event) {
    Widget* target = droppedDown_ ? droppedDown_
                     : captured_  ? captured_
                                  : root_.hitTest(fromWindow(event.at));
    for (; target; target = target->parent()) {
        WheelEvent own = event;
        if (event.horizontal && mirrored()) own.delta = -own.delta;
        if (target->enabled() && target->wheel(own)) return true;
    }
    return false;
}

bool Surface::contextMenu(std::optional<PixelPoint> at) {
    if (at) at = fromWindow(*at);
    Widget* const drawn = ownFocus_ ? keyTarget_ : nullptr;
    for (Widget* target = at ? root_.hitTest(*at) : drawn; target; target = target->parent()) {
        const PixelRect place = target->pixelBounds();
        std::optional<PixelPoint> own = at;
        if (own) own = PixelPoint{at->x - place.left, at->y - place.top};
        if (target->enabled() && target->contextMenu(own)) return true;
    }
    return false;
}

void Surface::keyDown(KeyEvent& event) {
    if (keyTarget_) keyTarget_->keyDown(event);
    if (event.code != 0) owner_.surfaceKeyDown(event);
}

void Surface::keyUp(KeyEvent& event) {
    if (keyTarget_) keyTarget_->keyUp(event);
    if (event.code != 0) owner_.surfaceKeyUp(event);
}

int16_t Surface::keyPress(int16_t character) {
    if (keyTarget_) character = keyTarget_->keyPress(character);
    return character == 0 ? character : owner_.surfaceKeyPress(character);
}

void Surface::focusGained() {
    ownFocus_ = true;
    if (keyTarget_ && keyTarget_->enabled() && !keyTarget_->pixelClip().empty()) {
        childFocusGained(*keyTarget_);
        return;
    }
    keyTarget_ = nullptr;
    childFocusGained(root_);
    root_.takeFocus();
}

void Surface::focusLost() {
    ownFocus_ = false;
    // It may come back before readers have heard of it.
    const bool expected = peer_ && peer_->readersListen();
    news_.focusWent(expected);
    if (expected && news_.empty()) peer_->readersSoon();
    childFocusLost(keyTarget_ ? *keyTarget_ : root_);
}

void Surface::paint(Canvas& canvas, const PixelRect& dirty) {
    unseen_ = false;
    {
        const CanvasClip clip(canvas, dirty);
        const PixelRect all = root_.pixelBounds();
        // A container may have given the window another size than the root keeps.
        if (dirty.intersected(all) != dirty) canvas.fillRect(dirty, root_.rgb(root_.BackColor()));
        if (mirrored()) {
            MirroredCanvas mirror(canvas, all);
            root_.paint(mirror, all);
        } else {
            root_.paint(canvas, all);
        }
    }
    if (std::exchange(looksDifferent_, false)) owner_.surfaceLooksDifferent();
}

void Surface::captureLost() {
    Widget* loser = captured_;
    captured_ = nullptr;
    holding_ = false;
    if (loser) loser->captureLost();
    owner_.surfaceCaptureLost();
}

Widget* Surface::dropTarget(PixelPoint at) {
    Widget* target = root_.hitTest(fromWindow(at));
    while (target && !(target->enabled() && target->takesDrops())) target = target->parent();
    return target;
}

void Surface::drop(DropEvent& event) {
    const int32_t allowed = event.effect;
    if (Widget* target = dropTarget(event.at)) {
        const PixelRect place = target->pixelBounds();
        const PixelPoint at = fromWindow(event.at);
        event.at = {at.x - place.left, at.y - place.top};
        target->drop(event);
    }
    // A source that hears of a move takes away what was dragged: only who has moved it says so.
    event.effect = event.effect == allowed ? allowed & drop_effect::copy : event.effect & allowed;
}

void Surface::dpiChanged(Dpi dpi) {
    dpi_ = dpi;
    owner_.surfaceChanged();
}

void Surface::appearanceChanged() {
    owner_.surfaceChanged();
}

void Surface::announce(AccessibleEvent event, const AccessibleId& of) {
    addNews([&] { news_.add(event, of); });
}

void Surface::tellReaders() {
    news_.tell(ownFocus_, peer_);
}

}  // namespace obk
