#include "widgets/drop_list.h"

#include "base/attempt.h"
#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <algorithm>
#include <utility>

namespace obk {

namespace {

constexpr int32_t arrowWidthAt96 = 17;
constexpr int32_t typingPause = 1000;  // milliseconds

bool startsWith(TextView text, TextView start) {
    return text.size() >= start.size() && equalIgnoringCase(text.substr(0, start.size()), start);
}

}  // namespace

DropList::DropList(Container& parent, Text name)
    : Widget(parent), name_(std::move(name)), font_([this] { invalidate(); }), panel_(*this, items_) {
    picked_ = panel_.chosen.connect([this](int32_t item) {
        if (select(item)) chosen();
    });
    closed_ = panel_.closed.connect([this] {
        announce(AccessibleEvent::expanded);
        announce(AccessibleEvent::focus);  // told only where it is here
    });
}

void DropList::add(TextView item) {
    if (!attempt([&] { items_.emplace_back(item); })) return;
    // A host that fills the list anew means the item that is shown by its text.
    if (selected_ < 0 && item == text_) selected_ = count() - 1;
    panel_.itemsChanged();
}

bool DropList::remove(int32_t item) {
    if (item < 0 || item >= count()) return false;
    items_.erase(items_.begin() + item);
    if (selected_ == item)
        selected_ = -1;
    else if (selected_ > item)
        --selected_;
    panel_.itemsChanged();
    return true;
}

void DropList::clear() {
    items_.clear();
    selected_ = -1;
    panel_.itemsChanged();
}

bool DropList::select(int32_t item) {
    if (item < 0 || item >= count()) return false;
    const Text& text = items_[static_cast<size_t>(item)];
    const bool another = text != text_;
    if (another && !attempt([&] { text_ = text; })) return false;
    selected_ = item;
    if (another) announce(AccessibleEvent::value);
    invalidate();
    return true;
}

void DropList::show(TextView text) {
    if (!attempt([&] { text_ = text; })) return;
    const auto found = std::find(items_.begin(), items_.end(), text);
    selected_ = found == items_.end() ? -1 : static_cast<int32_t>(found - items_.begin());
    typed_.clear();
    invalidate();
}

void DropList::setLook(Look look) {
    look_ = look;
    panel_.view().setLook(look);
    invalidate();
}

void DropList::setBackColour(OleColour colour) {
    backColour_ = colour;
    invalidate();
}

void DropList::setForeColour(OleColour colour) {
    foreColour_ = colour;
    invalidate();
}

bool DropList::hasFocus() const {
    const Surface* shownOn = surface();
    return shownOn && shownOn->focusedOn(*this);
}

bool DropList::takeFocus() {
    Surface* shownOn = surface();
    return shownOn && enabled() && !pixelClip().empty() && shownOn->focus(*this);
}

void DropList::paint(Canvas& canvas, const PixelRect& bounds) {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const bool highContrast = platform().appearance().highContrast();
    const int32_t line = canvas.dpi().scaled(1);
    canvas.fillRect(bounds, highContrast ? colour(SystemColour::window) : rgb(backColour_));
    PixelRect arrow = bounds.inset(line);
    if (look_ == Look::classic && !highContrast) {
        drawSunkenEdges(platform(), canvas, bounds);
        arrow = arrow.inset(line);
    } else {
        const Rgb accent = colour(SystemColour::highlight);
        canvas.frameRect(bounds, line, hot_ || hasFocus() ? accent : outlineOn(platform(), rgb(backColour_)));
    }
    arrow.left = std::max(arrow.left, arrow.right - canvas.dpi().scaled(arrowWidthAt96));
    const Rgb ink = colour(enabled() ? SystemColour::windowText : SystemColour::greyText);
    drawArrow(canvas, arrow, ArrowDirection::down, ink);
    TextStyle style;
    style.font = font_.description();
    style.colour = enabled() && !highContrast ? rgb(foreColour_) : ink;
    const int32_t margin = canvas.dpi().scaled(4);
    // As high as the text of a cell, which stands above the grid's line.
    canvas.drawText(text(), {bounds.left + margin, bounds.top, arrow.left, bounds.bottom - line}, style);
}

void DropList::mouse(const MouseEvent& event) {
    if (!enabled()) return;
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
            if (event.button != button::left) break;
            pressed();
            open();
            break;
        case MouseEvent::Kind::move:
            hover(true);
            break;
        case MouseEvent::Kind::leave:
            hover(false);
            break;
        case MouseEvent::Kind::up:
            break;
    }
}

void DropList::hover(bool inside) {
    if (inside == hot_) return;
    hot_ = inside;
    invalidate();
}

void DropList::focusWentBelow() {
    panel_.hide();
    invalidate();
}

void DropList::detach() {
    panel_.close();
    Widget::detach();
}

void DropList::placed() {
    panel_.hide();
}

void DropList::takeMarked() {
    const int32_t item = panel_.view().marked();
    panel_.hide();
    if (select(item)) chosen();
}

bool DropList::keyInList(const KeyEvent& event) {
    if (event.shift != 0) return false;
    if (event.code == key::escape)
        panel_.hide();
    else if (event.code == key::enter)
        takeMarked();
    else
        return panel_.view().walk(event.code);
    return true;
}

void DropList::keyDown(KeyEvent& event) {
    // Whoever moves on by it leaves what is marked.
    if (panel_.open() && event.code == key::tab && (event.shift & ~shift::shift) == 0) takeMarked();
    keyWentDown(event);
    if (event.code == 0 || !enabled()) return;
    const bool alt = event.shift == shift::alt;
    const bool vertical = event.code == key::up || event.code == key::down;
    if ((event.code == key::f4 && event.shift == 0) || (vertical && alt)) {
        event.code = 0;
        if (event.repeated) return;
        if (panel_.open())
            takeMarked();
        else
            open();
        return;
    }
    if (panel_.open()) {
        if (keyInList(event)) event.code = 0;
        return;
    }
    if (event.shift != 0) return;
    const int32_t before = selected_;
    switch (event.code) {
        case key::up:
        case key::left:
            choose(before < 0 ? count() - 1 : std::max(before - 1, 0));
            break;
        case key::down:
        case key::right:
            choose(std::min(before + 1, count() - 1));
            break;
        case key::home:
            choose(0);
            break;
        case key::end:
            choose(count() - 1);
            break;
        default:
            return;
    }
    event.code = 0;
}

int16_t DropList::keyPress(int16_t character) {
    constexpr int16_t firstPrintable = 32;
    characterTyped(character);
    if (character >= firstPrintable || character < 0) find(static_cast<char16_t>(character));
    return character;
}

// One letter again and again goes through the items that begin with it, as do several the first time.
void DropList::find(char16_t typed) {
    const int32_t now = platform().clock().tickCount();
    if (static_cast<uint32_t>(now) - static_cast<uint32_t>(typedAt_) >= typingPause) typed_.clear();
    typedAt_ = now;
    const bool again = typed_.size() == 1 && upperAscii(typed_[0]) == upperAscii(typed);
    if (!again) typed_ += typed;
    // A longer beginning may be that of the item that is shown.
    const int32_t first = std::max(at(), 0) + (typed_.size() == 1 && at() >= 0 ? 1 : 0);
    for (int32_t step = 0; step < count(); ++step) {
        const int32_t item = (first + step) % count();
        if (startsWith(items_[static_cast<size_t>(item)], typed_)) return goTo(item);
    }
}

void DropList::goTo(int32_t item) {
    if (panel_.open())
        panel_.view().mark(item);
    else
        choose(item);
}

void DropList::choose(int32_t item) {
    if (item != selected_ && select(item)) chosen();
}

void DropList::open() {
    typed_.clear();
    panel_.view().setFont(font_.description());
    panel_.show(selected_);
}

AccessibleItem DropList::accessible(AccessiblePart) const {
    using Kind = AccessibleAction::Kind;
    AccessibleItem item = itemOf(AccessibleItem::Role::comboBox, name_);
    item.value = text_;
    for (const auto state : {AccessibleItem::valued, AccessibleItem::expandable, AccessibleItem::readOnly,
                             AccessibleItem::focusable})
        item.set(state);
    item.set(AccessibleItem::expanded, panel_.open());
    item.allow(Kind::focus, panel_.open() ? Kind::collapse : Kind::expand);
    return item;
}

void DropList::useAccessible(AccessiblePart, const AccessibleAction& action) {
    if (action.kind == AccessibleAction::Kind::collapse) return panel_.hide();
    takeFocus();
    if (action.kind != AccessibleAction::Kind::expand) return;
    pressed();
    open();
}

}  // namespace obk
