#include "widgets/text_box.h"

#include "base/left_undone.h"
#include "widgets/surface_peer.h"

#include <algorithm>

namespace obk {

TextBox::TextBox(Container& parent)
    : ChildWidget(parent), font_([this] {
          ask([&] { window().setFont(font_.description()); });
          if (roomBelow_) placed();
          invalidate();
          attempt([&] { fontChanged(); });
      }) {}

TextBox::~TextBox() = default;

void TextBox::setText(TextView text) {
    text = text.substr(0, std::min(text.find_first_of(u"\r\n"), text.size()));
    if (maxLength_ > 0) text = text.substr(0, static_cast<size_t>(maxLength_));
    if (text == text_ || !attempt([&] { text_ = text; })) return;
    selection_ = {};
    invalidate();
    // The window reports its new text in turn; by then it is an equal one.
    ask([&] { window().setText(text_); });
    attempt([&] { changed(); });
}

TextSelection TextBox::selection() const {
    TextSelection selection = selection_;
    ask([&] { selection = window().selection(); });
    return selection;
}

void TextBox::setSelection(TextSelection selection) {
    const auto length = static_cast<int32_t>(std::min<size_t>(text_.size(), INT32_MAX));
    const int32_t start = std::clamp(selection.start, 0, length);
    selection_ = {start, std::clamp(selection.length, 0, length - start)};
    ask([&] { window().setSelection(selection_); });
}

bool TextBox::enteredByKeys() const {
    bool byKeys = false;
    ask([&] { byKeys = window().enteredByKeys(); });
    return byKeys;
}

bool TextBox::setAlignment(int32_t alignment) {
    if (alignment < 0 || alignment > 2) return refuseNumber(alignment, u"0 to 2");
    alignment_ = static_cast<uint8_t>(alignment);
    ask([&] { window().setFlow(windowFlow()); });
    invalidate();
    return true;
}

bool TextBox::setMaxLength(int32_t length) {
    if (length < 0) return refuseNumber(length, u"0 or more");
    maxLength_ = length;
    ask([&] { window().setMaxLength(length); });
    return true;
}

void TextBox::setForeColour(OleColour colour) {
    foreColour_ = colour;
    showColours();
}

void TextBox::setBackColour(OleColour colour) {
    backColour_ = colour;
    showColours();
}

void TextBox::centreAbove(int32_t room) {
    roomBelow_ = room;
    placed();
    invalidate();
}

void TextBox::paint(Canvas& canvas, const PixelRect& bounds) {
    canvas.fillRect(bounds, rgb(backColour_));
    TextStyle style;
    style.font = font_.description();
    style.colour = rgb(enabled() ? foreColour_ : OleColour(SystemColour::greyText));
    style.horizontal = horizontalAlignment();
    style.vertical = VerticalAlignment::top;
    style.ellipsis = false;
    const int32_t margin = canvas.dpi().scaled(textMargin);
    const PixelRect line = windowBounds(bounds);
    const CanvasClip clip(canvas, bounds);
    canvas.drawText(text_, {line.left + margin, line.top, line.right - margin, line.bottom}, style);
}

std::unique_ptr<ChildPeer> TextBox::createPeer(SurfacePeer& surface, const ChildPlacement& placement) {
    return surface.createTextBox(*this, {windowFlow(), font_.description(), text_, maxLength_, placement});
}

void TextBox::windowMade() {
    if (selection_ != TextSelection{}) ask([&] { window().setSelection(selection_); });
}

void TextBox::windowGoes() {
    selection_ = selection();
    pressed_ = false;
}

// Windows put their text at their top: one whose text is to be lower stands lower. A line that is too high is
// cut at both ends, as drawn ones are.
PixelRect TextBox::windowBounds(PixelRect bounds) const {
    if (!roomBelow_) return bounds;
    const int32_t line = platform().appearance().metrics(font_.description(), dpi()).height();
    bounds.top += (bounds.height() - dpi().scaled(*roomBelow_) - line) / 2;
    bounds.bottom = bounds.top + line;
    return bounds;
}

// Points of the window, where x counts from its left edge.
PixelPoint TextBox::fromWindow(PixelPoint point) const {
    return mirrored() ? PixelPoint{pixelBounds().width() - 1 - point.x, point.y} : point;
}

bool TextBox::mirrored() const {
    const Surface* shownOn = surface();
    return shownOn && shownOn->mirrored();
}

void TextBox::mouse(const MouseEvent& event) {
    MouseEvent own = event;
    own.at = fromWindow(event.at);
    // The window of a disabled one lets the mouse through to the surface, which finds the widget there.
    if (!enabled()) {
        pressed_ = false;
        return;
    }
    switch (event.kind) {
        case MouseEvent::Kind::down:
            pressed_ = event.button == button::left;
            mousePressed(own);
            break;
        case MouseEvent::Kind::move:
            mouseMoved(own);
            break;
        case MouseEvent::Kind::up: {
            const PixelRect place = pixelBounds();
            const bool click = pressed_ && event.button == button::left &&
                               PixelRect{0, 0, place.width(), place.height()}.contains(own.at);
            if (event.button == button::left) pressed_ = false;
            mouseReleased(own);
            if (click) clicked();
            break;
        }
        case MouseEvent::Kind::doubleClick:
            doubleClicked();
            break;
        case MouseEvent::Kind::leave:
            mouseLeft();
            break;
    }
}

bool TextBox::wheel(const WheelEvent& event) {
    bool used = false;
    wheelTurned(event, used);
    return used || wheelAround(event);
}

bool TextBox::contextMenu(std::optional<PixelPoint> at) {
    bool shown = false;
    if (at) at = fromWindow(*at);
    menuAsked(at, shown);
    return shown;
}

void TextBox::keyDown(KeyEvent& event) {
    keyWentDown(event);
    // The commands of editing are no typed characters: they act here, so that a listener which filters what
    // is typed, and sees their control characters too, need not know them.
    if (!hasWindow()) return;
    if (event.code == key::backspace && event.shift == shift::alt) {
        window().perform(EditCommand::undo);
        event.code = 0;  // not every system's window knows this one; none shall do it twice
    }
    if (event.shift != shift::control) return;
    switch (event.code) {
        case 'A':
            window().perform(EditCommand::selectAll);
            break;
        case 'C':
            window().perform(EditCommand::copy);
            break;
        case 'V':
            window().perform(EditCommand::paste);
            break;
        case 'X':
            window().perform(EditCommand::cut);
            break;
        case 'Z':
            window().perform(EditCommand::undo);
            break;
        default:
            break;
    }
}

void TextBox::keyUp(KeyEvent& event) {
    keyWentUp(event);
}

int16_t TextBox::keyPress(int16_t character) {
    constexpr int16_t firstPrintable = 32;
    const int16_t typed = character;
    const bool command = typed > 0 && typed < firstPrintable && typed != key::backspace;
    characterTyped(character);
    // A control character has already had its effect; the window must not act on it a second time.
    return command && character == typed ? int16_t{0} : character;
}

void TextBox::focusGained() {
    ChildWidget::focusGained();
    focusCame();
}

void TextBox::focusLost() {
    pressed_ = false;
    ChildWidget::focusLost();
    focusWent();
}

void TextBox::textChanged(Text text) {
    if (text == text_) return;
    text_ = std::move(text);
    changed();
    if (Surface* shownOn = surface()) shownOn->childLooksDifferent();
}

HorizontalAlignment TextBox::horizontalAlignment() const {
    return static_cast<HorizontalAlignment>(alignment_);
}

TextFlow TextBox::windowFlow() const {
    const HorizontalAlignment own = horizontalAlignment();
    return mirrored() ? TextFlow{obk::mirrored(own), !holdsNumbers_} : TextFlow{own};
}

void TextBox::appearanceChanged() {
    ask([&] { window().setFlow(windowFlow()); });
    ChildWidget::appearanceChanged();
}

AccessibleItem TextBox::accessible(AccessiblePart) const {
    using Kind = AccessibleAction::Kind;
    AccessibleItem item = itemOf(AccessibleItem::Role::edit, {});  // called as what it is in
    item.value = text_;
    item.set(AccessibleItem::valued);
    item.set(AccessibleItem::focusable);
    item.allow(Kind::focus, Kind::write);
    item.window = nativeWindow();
    return item;
}

void TextBox::useAccessible(AccessiblePart, const AccessibleAction& action) {
    if (action.kind == AccessibleAction::Kind::write)
        setText(action.text);
    else
        takeFocus();
}

void TextBox::showColours() {
    ask([&] { window().setColours(rgb(foreColour_), rgb(backColour_)); });
    invalidate();
}

}  // namespace obk
