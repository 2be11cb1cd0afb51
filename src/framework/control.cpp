#include "framework/control.h"

#include "base/attempt.h"
#include "base/caption_text.h"
#include "framework/control_factory.h"
#include "framework/hosted_control.h"
#include "framework/pop_up_panel.h"
#include "framework/trace_line.h"
#include "widgets/mirrored_canvas.h"

#include <algorithm>

namespace obk {

namespace {

Value resolved(const DefaultValue& value, const Control& control) {
    if (std::holds_alternative<AmbientFontDefault>(value)) return control.ambientFont();
    if (const auto* colour = std::get_if<SystemRgbDefault>(&value)) {
        const auto index = static_cast<uint8_t>(colour->index);
        return OleColour(control.platform().appearance().systemColour(index).value_or(Rgb{}));
    }
    return std::get<Value>(value);
}

// Keeps a control alive, and says that it is at work, while the window system speaks to it.
struct Held {
    explicit Held(std::shared_ptr<Control> held) : control(std::move(held)) {}
    std::shared_ptr<Control> control;
    AtWork work{*control};
};

std::shared_ptr<void> hold(std::shared_ptr<Control> control) {
    if (!control || !undoneIsObserved()) return control;
    return std::make_shared<Held>(std::move(control));
}

// A container may give one font object to every control that it loads; none of them means to share it.
Value ownFont(const Value& value) {
    const auto* font = std::get_if<FontRef>(&value);
    return font && *font ? Value(std::make_shared<SharedFont>((*font)->description())) : value;
}

bool equal(const Value& left, const Value& right) {
    const auto* font = std::get_if<FontRef>(&left);
    const auto* otherFont = std::get_if<FontRef>(&right);
    if (font && otherFont && *font && *otherFont)
        return (*font)->description() == (*otherFont)->description();
    return left == right;
}

}  // namespace

void ControlFactory::start(Control& control) {
    control.ownTable_ = &control.table();
    for (const Member& event : control.ownTable_->events) {
        control.eventConnections_.push_back(
            event.connect(control, [&control, &event](std::span<Value> arguments) {
                // What loading changes is no news to the container that loads.
                if (control.host_ && !control.loading_) control.host_->raise(event, arguments);
            }));
    }
    attempt([&] { control.initialize(); });
    attempt([&] { control.resize(); });
}

Control::Control(Platform& platform)
    : root_(platform, [this] { return hold(weak_from_this().lock()); }), surface_(root_, *this) {
    root_.move({{0}, {0}, width_, height_});
}

Control::~Control() = default;

void Control::initNew() {
    const AtWork work(*this);
    attempt([&] { initProperties(); });
    attempt([&] { resize(); });
}

void Control::load(PropertyBag& bag) {
    const AtWork work(*this);
    loading_ = true;
    for (const PersistedValue& row : table().persisted) {
        if (!row.load) continue;
        attempt([&] {
            const std::optional<Value> stored = bag.read(row.readKey, row.type);
            // A value that does not convert leaves what is there; only a missing one takes the default.
            const std::optional<Value> own =
                converted(stored ? *stored : resolved(row.readDefault, *this), row.type);
            if (own)
                row.load(*this, ownFont(*own));
            else if (stored)
                tellUnconverted({.kind = LeftUndone::Kind::stored, .subject = row.readKey}, *stored,
                                row.type);
        });
    }
    attempt([&] { loaded(); });
    loading_ = false;
    attempt([&] { resize(); });
}

void Control::save(PropertyBag& bag) const {
    const AtWork work(*this);
    for (const size_t position : table().saved) {
        const PersistedValue& row = table().persisted[position];
        attempt([&] {
            Value value;
            row.get(*this, value);
            const std::optional<Value> usual = converted(resolved(row.writeDefault, *this), row.type);
            if (!usual || !equal(value, *usual))
                bag.write(row.writeKey, converted(value, row.storedAs).value_or(value));
        });
    }
}

void Control::ambientFontChanged() {
    attempt([&] { useAmbientFont(ambientFont()); });
    for (HostedControl* hosted : hosted_) hosted->control().ambientFontChanged();
}

void Control::setSize(Twips width, Twips height) {
    width_ = std::max(width, Twips{0});
    height_ = std::max(height, Twips{0});
    root_.move({{0}, {0}, width_, height_});
    readContainer();
    attempt([&] { resize(); });
}

void Control::readContainer() {
    const bool mirrored = mirrorsItself() && rightToLeft();
    if (mirrored == mirrored_) return;
    mirrored_ = mirrored;
    root_.appearanceChanged();
    root_.placed();
    root_.invalidate();
}

bool Control::activate(NativeWindow parent, const PixelRect& bounds) {
    const AtWork work(*this);
    if (surface_.isOpen()) {
        surface_.setParent(parent);
        root_.placed();
    } else if (!surface_.open({SurfacePlacement::Kind::control, parent, bounds})) {
        return false;
    }
    active_ = true;
    setBounds(bounds);
    surface_.setVisible(true);
    return active_;
}

void Control::deactivate() {
    active_ = false;
    closePanels();
    surface_.close();
}

void Control::setBounds(const PixelRect& bounds) {
    if (!active_ || !surface_.isOpen()) return;
    const AtWork work(*this);
    surface_.setBounds(bounds);
    for (PopUpPanel* panel : panels_) panel->hostMoved();
    if (!surface_.isOpen()) return;  // a host may have closed the control because its panel closed
    setSize(surface_.dpi().toTwips(bounds.width()), surface_.dpi().toTwips(bounds.height()));
}

NativeWindow Control::window() {
    if (!surface_.isOpen()) surface_.open({SurfacePlacement::Kind::parked, 0, root_.pixelBounds()});
    return surface_.window();
}

bool Control::focus() {
    return root_.takeFocus();
}

bool Control::hasFocus() const {
    return surface_.hasFocus() || root_.holdsFocus();
}

void Control::draw(Canvas& canvas, const PixelRect& bounds) {
    const AtWork work(*this);
    readContainer();
    attempt([&] {
        if (!mirrored_) return root_.paint(canvas, bounds);
        MirroredCanvas mirror(canvas, bounds);
        root_.paint(mirror, bounds);
    });
}

FontRef Control::ambientFont() const {
    // A copy: a host that then changes the control's font does not mean its own.
    if (const FontRef font = host_ ? host_->ambientFont() : nullptr)
        return std::make_shared<SharedFont>(font->description());
    return std::make_shared<SharedFont>(platform().appearance().dialogFont());
}

KeyRoute Control::preTranslate(const KeyEvent& event) {
    if (!hasFocus()) return KeyRoute::container;
    const uint16_t states = keyStates();
    for (const KeyGroup& group : keyGroups()) {
        if ((group.states & states) == group.states && isClaimed(event, group.claims)) return KeyRoute::child;
    }
    for (HostedControl* hosted : hosted_) {
        if (hosted->control().preTranslate(event) != KeyRoute::container) return KeyRoute::child;
    }
    return KeyRoute::container;
}

// A label's key brings the keyboard to what stands after it.
static void callByLabel(AccessibleItem& item, TextView label) {
    item.name = plainCaption(label);
    while (!item.name.empty() && (item.name.back() == u':' || item.name.back() == u' ')) item.name.pop_back();
    item.accessKey = spokenAccessKey(label);
}

// Its name is the label's before it, else what the container calls it.
AccessibleItem Control::describeSurface() const {
    AccessibleItem item;
    item.role = AccessibleItem::Role::client;
    item.bounds = root_.pixelBounds();
    if (const Surface* shownOn = root_.parent() ? nullptr : root_.surface())
        callByLabel(item, shownOn->labelBefore());
    if (item.name.empty()) item.name = hostName();
    if (item.name.empty()) item.name = table().name;
    return item;
}

void Control::announceSurface(AccessibleEvent event) {
    Container& shown = root_.parent() ? *root_.parent() : root_;
    // An editor that is filled before it shows has no news.
    if (shown.visible()) shown.announce(event);
}

KeyEvent Control::alongReading(const KeyEvent& event) const {
    KeyEvent read = event;
    if (mirrorsItself() && rightToLeft()) read.code = key::mirrored(event.code);
    return read;
}

bool Control::offerToContainer(const KeyEvent& event) {
    return host_ && host_->offerToContainer(event);
}

void Control::focusEntered() {
    if (focusInside_) return;
    focusInside_ = true;
    attempt([&] { enterFocus(); });
    if (host_) attempt([&] { host_->focusChanged(true); });
}

void Control::focusLeft() {
    if (!focusInside_ || hasFocus()) return;
    focusInside_ = false;
    attempt([&] { exitFocus(); });
    if (host_) attempt([&] { host_->focusChanged(false); });
}

void Control::surfaceChanged() {
    attempt([&] { appearanceChanged(); });
    root_.appearanceChanged();
    root_.placed();
    root_.invalidate();
}

void Control::surfaceLooksDifferent() {
    if (host_ && !loading_) attempt([&] { host_->viewChanged(); });
}

void Control::closePanels() {
    for (PopUpPanel* panel : panels_) panel->close();
}

}  // namespace obk
