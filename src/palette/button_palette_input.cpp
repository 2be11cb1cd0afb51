// What the mouse, the keys and the focus do to the button; the keys of its open panel come this way, too.
#include "base/attempt.h"
#include "base/caption_text.h"
#include "palette/button_palette.h"

namespace obk {

namespace {

// What the keys depend on.
constexpr uint16_t panelOpen = 1, walked = 2;

// Whether a key clicks the button when it goes down.
bool clicks(const KeyEvent& event, bool open) {
    if (event.shift == shift::alt) return event.code == key::down || (event.code == key::up && open);
    return event.shift == 0 &&
           (event.code == key::pageDown || event.code == key::down || event.code == key::f4);
}

}  // namespace

void ButtonPalette::UserControl_Click() {
    if (model_.LastButton == button::left && Enabled()) {
        if (model_.drop.popupEnabled) {
            if (panel_.visible())
                HidePopUp();
            else
                ShowPopUp();
        } else {
            if (panel_.visible()) HidePopUp();
            attempt([&] { PopUp(); });
        }
        attempt([&] { Click(); });
    }
    releaseOwnCapture();
    model_.drop.mouseOver = true;
    refresh();
}

void ButtonPalette::UserControl_ExitFocus() {
    model_.drop.leave(FocusLost, MouseUp);
}

void ButtonPalette::UserControlMouseOut(int16_t& Button, int16_t& Shift, float& X, float& Y) {
    const Dpi dpi = root().dpi();
    const auto right = static_cast<float>(dpi.toPixels(width()));
    const auto bottom = static_cast<float>(dpi.toPixels(height()));
    // A condition that cannot be computed is false: no place at all is not outside.
    if (X < 0 || X > right || Y < 0 || Y > bottom) {
        model_.drop.mouseOver = false;
        model_.set(&ButtonState::hot, false);
        releaseOwnCapture();
    } else {
        model_.set(&ButtonState::hot, Enabled() && !panel_.visible());
        SetTheme();
        // An open panel keeps the mouse: it has to see the press that closes it.
        Surface* shownOn = cmdMAINBTN.surface();
        if (shownOn && Enabled() && !panel_.visible()) shownOn->capture(cmdMAINBTN);
        model_.drop.mouseOver = true;
    }
    attempt([&] { MouseOut(Button, Shift, X, Y); });
}

void ButtonPalette::enterFocus() {
    model_.set(&ButtonState::focused, true);
}

void ButtonPalette::exitFocus() {
    model_.set(&ButtonState::focused, false);
    // Two kinds of loss arrive, as hosts know it: the button's own, and the whole control's.
    if (panel_.visible()) HidePopUp();
    attempt([&] { FocusLost(); });
    UserControl_ExitFocus();
}

std::span<const KeyGroup> ButtonPalette::keyGroups() const {
    static constexpr KeyClaim button[] = {
        keyClaim(key::space, shifts::none | shifts::shift, u"presses the button"),
        keyClaim(key::down, shifts::none | shifts::alt, u"opens the panel, or closes it"),
        keyClaim(key::f4, shifts::none, u"opens the panel, or closes it"),
        keyClaim(key::pageDown, shifts::none, u"opens the panel, or closes it"),
        keyClaim(key::left, shifts::none, u"goes back, as Shift+Tab"),
        keyClaim(key::up, shifts::none, u"goes back, as Shift+Tab"),
    };
    static constexpr KeyClaim panel[] = {
        keyClaim(key::escape, shifts::none, u"closes it"),
        keyClaim(key::up, shifts::alt, u"closes it"),
        keyClaim(key::right, shifts::none, u"begins to walk through the swatches"),
        {key::end, key::home, shifts::none, u"begin to walk through the swatches"},
    };
    static constexpr KeyClaim walk[] = {
        {key::pageUp, key::down, shifts::none, u"go to another swatch"},
        keyClaim(key::enter, shifts::none, u"takes the colour"),
        keyClaim(key::space, shifts::none, u"takes the colour"),
    };
    static constexpr KeyGroup groups[] = {{{}, 0, button},
                                          {u"while the panel is open", panelOpen, panel},
                                          {u"while its swatches are walked through", walked, walk}};
    return groups;
}

obk::Text ButtonPalette::accessKeys() const {
    const auto key = accessKeyOf(button_.Caption);
    return key ? obk::Text(1, *key) : obk::Text();
}

void ButtonPalette::useAccessKey(char16_t) {
    if (!Enabled()) return;
    cmdMAINBTN.takeFocus();
    model_.LastButton = button::left;
    UserControl_Click();
}

uint16_t ButtonPalette::keyStates() const {
    return static_cast<uint16_t>((panel_.visible() ? panelOpen : 0) | (model_.walking() ? walked : 0));
}

KeyRoute ButtonPalette::preTranslate(const KeyEvent& event) {
    const bool kept = model_.drop.keepsKey(event, panel_.visible()) && hasFocus();
    return kept ? KeyRoute::child : Control::preTranslate(event);
}

void ButtonPalette::surfaceKeyDown(KeyEvent& event) {
    if (!Enabled()) return;
    const bool open = panel_.visible();
    const bool alone = event.shift == 0;
    const bool closes = open && alone && event.code == key::escape;
    const bool ofPanel = model_.drop.keepsKey(event, open) || panelKeyDown(event);
    model_.drop.keyUsed(event, ofPanel || closes);
    if (ofPanel) {
        // The key was the panel's: the button does nothing with it, nor with its release.
        attempt([&] { KeyDown(event.code, event.shift); });
        model_.LastKeyDown = 0;
        return;
    }
    // A key that is held must not open and close the panel again and again.
    if (clicks(event, open) && !event.repeated) {
        if (event.code == key::f4 || !alone) model_.LastButton = button::left;
        UserControl_Click();
    } else if (event.code == key::escape && alone)
        HidePopUp();
    attempt([&] { KeyDown(event.code, event.shift); });
    // With Ctrl or Alt it is a shortcut that nobody had.
    const bool presses = (event.shift & ~shift::shift) == 0;
    model_.LastKeyDown = presses ? event.code : int16_t{0};
    if (event.code == key::space && presses)
        press({button::left, shift::shift, 1, 1});
    else if ((event.code == key::left || event.code == key::up) && alone)
        offerToContainer({key::tab, shift::shift, false});
}

void ButtonPalette::surfaceKeyUp(KeyEvent& event) {
    if (!Enabled()) return;
    SetTheme();
    if (event.code == key::space && model_.LastKeyDown == key::space) {
        release({button::left, shift::shift, 1, 1});
        model_.LastButton = button::left;
        UserControl_Click();
    }
    attempt([&] { KeyUp(event.code, event.shift); });
}

void ButtonPalette::buttonMouse(const MouseEvent& event) {
    if (!Enabled()) return;
    Surface* shownOn = cmdMAINBTN.surface();
    MouseArguments at = MouseArguments::inPixels(event);
    switch (event.kind) {
        case MouseEvent::Kind::down:
            model_.drop.pressed = event.button == button::left;
            if (shownOn) shownOn->capture(cmdMAINBTN);
            if (event.button == button::left) cmdMAINBTN.takeFocus();
            refresh();
            press(at);
            break;
        case MouseEvent::Kind::up: {
            // A press that began elsewhere, on the open panel above all, is no click of the button.
            const bool inside = shownOn && cmdMAINBTN.hitTest(event.at);
            const bool ofThisButton =
                event.button == model_.LastButton && shownOn && shownOn->captured(cmdMAINBTN);
            const bool clicked =
                inside && ofThisButton && (model_.drop.pressed || event.button != button::left);
            model_.drop.pressed = false;
            releaseOwnCapture();
            refresh();
            release(at);
            if (clicked && Enabled()) UserControl_Click();
            break;
        }
        case MouseEvent::Kind::move:
            if (shownOn) shownOn->setToolTip(cmdMAINBTN.pixelBounds(), button_.ToolTip);
            if (!button_.hot && !panel_.visible() && cmdMAINBTN.hitTest(event.at))
                model_.set(&ButtonState::hot, true);
            if (!model_.drop.mouseHeld) UserControlMouseOut(at.Button, at.Shift, at.X, at.Y);
            attempt([&] { at.raise(MouseMove); });
            break;
        case MouseEvent::Kind::doubleClick:
            if (model_.LastButton == button::left) {
                model_.drop.pressed = event.button == button::left;
                if (shownOn) shownOn->capture(cmdMAINBTN);
                refresh();
                press({button::left, 0, 1, 1});
            }
            attempt([&] { DblClick(); });
            break;
        case MouseEvent::Kind::leave:
            model_.set(&ButtonState::hot, false);
            break;
    }
}

void ButtonPalette::press(MouseArguments at) {
    model_.LastButton = at.Button;
    model_.drop.mouseHeld = at.Button != button::right;
    attempt([&] { at.raise(MouseDown); });
}

void ButtonPalette::release(MouseArguments at) {
    model_.drop.mouseHeld = false;
    attempt([&] { at.raise(MouseUp); });
}

void ButtonPalette::releaseOwnCapture() {
    if (Surface* shownOn = cmdMAINBTN.surface()) shownOn->releaseCapture(cmdMAINBTN);
}

}  // namespace obk
