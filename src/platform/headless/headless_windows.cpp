#include "platform/headless/headless_windows.h"

#include <algorithm>

namespace obk::headless {

HeadlessWindow::HeadlessWindow(HeadlessPlatform& platform, PeerClient& client, HeadlessSurface* parent)
    : platform_(platform), client_(client), parent_(parent), id_(platform.add(*this)) {}

HeadlessWindow::~HeadlessWindow() {
    platform_.remove(*this);
}

bool HeadlessWindow::canTakeFocus() const {
    return id_ != 0 && visible_ && enabled_;
}

void HeadlessWindow::orphan() {
    platform_.remove(*this);
    parent_ = nullptr;
    id_ = 0;
}

bool HeadlessWindow::contains(NativeWindow window) const {
    if (window == id_) return true;
    const HeadlessWindow* found = platform_.find(window);
    return found && found->parent() && found->parent()->id() == id_;
}

HeadlessSurface::HeadlessSurface(HeadlessPlatform& platform, SurfaceClient& client,
                                 const SurfacePlacement& placement)
    : HeadlessWindow(platform, client, nullptr),
      surfaceClient_(client),
      kind_(placement.kind),
      dpi_(platform.appearance().systemDpi()) {
    bounds_ = clip_ = placement.bounds;
    visible_ = kind_ == SurfacePlacement::Kind::control;
    invalidate(area());
}

HeadlessSurface::~HeadlessSurface() {
    releaseCapture();
    for (HeadlessWindow* child : children_) child->orphan();
}

bool HeadlessSurface::canTakeFocus() const {
    // The focus in a panel would take it from the host's window.
    return kind_ == SurfacePlacement::Kind::control && HeadlessWindow::canTakeFocus();
}

void HeadlessSurface::setBounds(const PixelRect& bounds) {
    const PixelRect before = area();
    bounds_ = clip_ = bounds;
    if (area() != before) invalidate(area());
}

void HeadlessSurface::setVisible(bool visible) {
    if (visible && !visible_) invalidate(area());
    visible_ = visible;
    if (!visible && hasFocus()) platform_.setFocus(0);
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

void HeadlessSurface::releaseCapture() {
    if (platform_.capture_ == id()) platform_.capture_ = 0;
}

void HeadlessSurface::focus() {
    if (canTakeFocus()) platform_.setFocus(id());
}

std::unique_ptr<TextBoxPeer> HeadlessSurface::createTextBox(TextBoxClient& client) {
    return std::make_unique<HeadlessTextBox>(platform_, client, *this);
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
    const auto alive = surfaceClient_.keepAlive();
    surfaceClient_.dpiChanged(dpi);
}

HeadlessWindow* HeadlessSurface::childAt(PixelPoint point) const {
    const auto found =
        std::find_if(children_.rbegin(), children_.rend(), [point](const HeadlessWindow* child) {
            return child->visible() && child->enabled() &&
                   child->bounds().intersected(child->clip()).contains(point);
        });
    return found == children_.rend() ? nullptr : *found;
}

std::unique_ptr<CheckBoxPeer> HeadlessSurface::createCheckBox(CheckBoxClient& client) {
    return std::make_unique<HeadlessCheckBox>(platform_, client, *this);
}

HeadlessChild::HeadlessChild(HeadlessPlatform& platform, PeerClient& client, HeadlessSurface& parent)
    : HeadlessWindow(platform, client, &parent) {
    parent.addChild(*this);
}

HeadlessChild::~HeadlessChild() {
    if (parent_) parent_->removeChild(*this);
}

bool HeadlessChild::canTakeFocus() const {
    return HeadlessWindow::canTakeFocus() && !bounds_.intersected(clip_).empty() && parent_ &&
           parent_->canTakeFocus();
}

void HeadlessChild::releaseFocus() {
    // As the window system does: the surface has it when a child can no longer show it.
    if (holdsFocus()) platform_.setFocus(parent_->canTakeFocus() ? parent_->id() : 0);
}

void HeadlessChild::place(const PixelRect& bounds, const PixelRect& clip) {
    bounds_ = bounds;
    clip_ = clip;
    if (bounds_.intersected(clip_).empty()) releaseFocus();
}

void HeadlessChild::show(bool visible) {
    visible_ = visible;
    if (!visible) releaseFocus();
}

void HeadlessChild::enable(bool enabled) {
    enabled_ = enabled;
    if (!enabled && holdsFocus()) platform_.setFocus(0);
}

void HeadlessChild::takeFocus() {
    if (canTakeFocus()) platform_.setFocus(id());
}

HeadlessCheckBox::HeadlessCheckBox(HeadlessPlatform& platform, CheckBoxClient& client,
                                   HeadlessSurface& parent)
    : HeadlessChildPeer(platform, client, parent), checkClient_(client) {}

void HeadlessCheckBox::keyEffect(const KeyEvent& event) {
    if (event.code == key::space) pressed_ = true;
}

void HeadlessCheckBox::keyUpEffect(const KeyEvent& event) {
    if (event.code == key::space) release(true);
}

void HeadlessCheckBox::mouseEffect(const MouseEvent& event) {
    using Kind = MouseEvent::Kind;
    if (event.kind == Kind::move && (event.button & button::left) == 0) pressed_ = false;
    if (event.button != button::left) return;
    if (event.kind == Kind::down || event.kind == Kind::doubleClick)
        pressed_ = true;
    else if (event.kind == Kind::up)
        release(PixelRect{0, 0, bounds_.width(), bounds_.height()}.contains(event.at));
}

void HeadlessCheckBox::release(bool inside) {
    const bool told = std::exchange(pressed_, false) && inside && id() != 0;
    if (!told) return;
    if (const auto alive = checkClient_.keepAlive()) checkClient_.checkPressed();
}

HeadlessTextBox::HeadlessTextBox(HeadlessPlatform& platform, TextBoxClient& client, HeadlessSurface& parent)
    : HeadlessChildPeer(platform, client, parent), textClient_(client) {}

void HeadlessTextBox::setText(TextView text) {
    text_ = text;
    selection_ = {};
    report();
}

void HeadlessTextBox::setSelection(TextSelection selection) {
    const auto length = static_cast<int32_t>(text_.size());
    const int32_t start = std::clamp(selection.start, 0, length);
    selection_ = {start, std::clamp(selection.length, 0, length - start)};
}

void HeadlessTextBox::perform(EditCommand command) {
    const Text selected =
        text_.substr(static_cast<size_t>(selection_.start), static_cast<size_t>(selection_.length));
    switch (command) {
        case EditCommand::selectAll:
            selection_ = {0, static_cast<int32_t>(text_.size())};
            break;
        case EditCommand::copy:
            if (!selected.empty()) platform_.setClipboard(selected);
            break;
        case EditCommand::cut:
            if (!selected.empty() && !readOnly_) {
                platform_.setClipboard(selected);
                replaceSelection(u"");
            }
            break;
        case EditCommand::paste:
            if (!readOnly_) replaceSelection(platform_.clipboard());
            break;
        case EditCommand::undo:
            if (!readOnly_) {
                std::swap(text_, undoText_);
                selection_ = {};
                report();
            }
            break;
    }
}

void HeadlessTextBox::keyEffect(const KeyEvent& event) {
    const auto length = static_cast<int32_t>(text_.size());
    switch (event.code) {
        case key::home:
            selection_ = {0, 0};
            break;
        case key::end:
            selection_ = {length, 0};
            break;
        case key::left:
            selection_ = {std::max(selection_.start - 1, 0), 0};
            break;
        case key::right:
            selection_ = {std::min(selection_.start + selection_.length + 1, length), 0};
            break;
        case key::deleteKey:
            if (readOnly_ || (selection_.length == 0 && selection_.start == length)) break;
            if (selection_.length == 0) selection_.length = 1;
            replaceSelection(u"");
            break;
        default:
            break;
    }
}

void HeadlessTextBox::characterEffect(char16_t character) {
    if (readOnly_) return;
    if (character == key::backspace) {
        if (selection_.length == 0 && selection_.start > 0) selection_ = {selection_.start - 1, 1};
        if (selection_.length > 0) replaceSelection(u"");
    } else if (character >= u' ') {
        replaceSelection(TextView(&character, 1));
    }
}

void HeadlessTextBox::replaceSelection(TextView text) {
    Text rest = text_;
    rest.erase(static_cast<size_t>(selection_.start), static_cast<size_t>(selection_.length));
    const size_t room = maxLength_ == 0 ? Text::npos
                        : rest.size() >= static_cast<size_t>(maxLength_)
                            ? 0
                            : static_cast<size_t>(maxLength_) - rest.size();
    const TextView inserted = text.substr(0, room);
    if (inserted.empty() && selection_.length == 0) return;
    undoText_ = text_;
    rest.insert(static_cast<size_t>(selection_.start), inserted);
    text_ = std::move(rest);
    selection_ = {selection_.start + static_cast<int32_t>(inserted.size()), 0};
    report();
}

void HeadlessTextBox::report() {
    // Nothing of this object may be used after the call: the client may have destroyed it.
    if (id() == 0) return;
    if (const auto alive = textClient_.keepAlive()) textClient_.textChanged(text_);
}

HeadlessTimer::HeadlessTimer(HeadlessPlatform& platform, KeepAlive keepAlive, std::function<void()> tick)
    : platform_(platform), keepAlive_(std::move(keepAlive)), tick_(std::move(tick)) {
    platform_.timers_.push_back(this);
}

HeadlessTimer::~HeadlessTimer() {
    std::erase(platform_.timers_, this);
}

void HeadlessTimer::start(std::chrono::milliseconds interval) {
    interval_ = left_ = std::max(interval, std::chrono::milliseconds(1));
    running_ = true;
}

void HeadlessTimer::tick() {
    left_ = interval_;
    const auto alive = keepAlive_();
    const auto callback = tick_;
    if (alive) callback();
}

}  // namespace obk::headless
