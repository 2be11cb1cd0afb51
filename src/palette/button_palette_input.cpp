// What the mouse, the keys and the focus do to the palette button.
#include "base/attempt.h"
#include "palette/button_palette.h"

namespace obk {

void ButtonPalette::UserControl_Click() {
    if (lastButton_ == button::left && Enabled()) {
        if (drop_.popupEnabled) {
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
    drop_.mouseOver = true;
    refresh();
}

void ButtonPalette::UserControl_ExitFocus() {
    drop_.leave(FocusLost, MouseUp);
}

void ButtonPalette::UserControlMouseOut(int16_t& Button, int16_t& Shift, float& X, float& Y) {
    const Dpi dpi = root().dpi();
    const auto right = static_cast<float>(dpi.toPixels(width()));
    const auto bottom = static_cast<float>(dpi.toPixels(height()));
    // A condition that cannot be computed is false: no place at all is not outside.
    if (X < 0 || X > right || Y < 0 || Y > bottom) {
        drop_.mouseOver = false;
        cmdMAINBTN.state.hot = false;
        releaseOwnCapture();
        refresh();
    } else {
        cmdMAINBTN.state.hot = Enabled() && !panel_.visible();
        SetTheme();
        // An open panel keeps the mouse: it has to see the press that closes it.
        Surface* shownOn = cmdMAINBTN.surface();
        if (shownOn && Enabled() && !panel_.visible()) shownOn->capture(cmdMAINBTN);
        drop_.mouseOver = true;
    }
    attempt([&] { MouseOut(Button, Shift, X, Y); });
}

void ButtonPalette::enterFocus() {
    cmdMAINBTN.state.focused = true;
    refresh();
}

void ButtonPalette::exitFocus() {
    cmdMAINBTN.state.focused = false;
    refresh();
    // Two kinds of loss arrive, as hosts know it: the button's own, and the whole control's.
    if (panel_.visible()) HidePopUp();
    attempt([&] { FocusLost(); });
    UserControl_ExitFocus();
}

KeyRoute ButtonPalette::preTranslate(const KeyEvent& event) {
    const bool wanted = (event.code == key::escape && panel_.visible()) ||
                        (event.code == key::enter && picDROPDOWNPANEL.walking());
    return wanted && hasFocus() ? KeyRoute::child : Control::preTranslate(event);
}

void ButtonPalette::surfaceKeyDown(KeyEvent& event) {
    if (!Enabled()) return;
    if (chooser_.keyDown(event)) {
        // The key was the panel's: the button does nothing with it, nor with its release.
        attempt([&] { KeyDown(event.code, event.shift); });
        lastKeyDown_ = 0;
        return;
    }
    // A key that is held must not open and close the panel again and again.
    if ((event.code == key::pageDown || event.code == key::down) && event.shift == 0 && !event.repeated)
        UserControl_Click();
    else if (event.code == key::escape)
        HidePopUp();
    attempt([&] { KeyDown(event.code, event.shift); });
    lastKeyDown_ = event.code;
    if (event.code == key::space)
        press(button::left, shift::shift, 1, 1);
    else if (event.code == key::left || event.code == key::up)
        offerToContainer({key::tab, shift::shift, false});
}

void ButtonPalette::surfaceKeyUp(KeyEvent& event) {
    if (!Enabled()) return;
    SetTheme();
    if (event.code == key::space && lastKeyDown_ == key::space) {
        release(button::left, shift::shift, 1, 1);
        lastButton_ = button::left;
        UserControl_Click();
    }
    attempt([&] { KeyUp(event.code, event.shift); });
}

void ButtonPalette::buttonMouse(const MouseEvent& event) {
    if (!Enabled()) return;
    Surface* shownOn = cmdMAINBTN.surface();
    auto x = static_cast<float>(event.at.x);
    auto y = static_cast<float>(event.at.y);
    int16_t mouseButton = event.button;
    int16_t shiftState = event.shift;
    switch (event.kind) {
        case MouseEvent::Kind::down:
            drop_.pressed = event.button == button::left;
            if (shownOn) shownOn->capture(cmdMAINBTN);
            if (event.button == button::left) cmdMAINBTN.takeFocus();
            refresh();
            press(mouseButton, shiftState, x, y);
            break;
        case MouseEvent::Kind::up: {
            // A press that began elsewhere, on the open panel above all, is no click of the button.
            const bool inside = cmdMAINBTN.surface() && cmdMAINBTN.hitTest(event.at) != nullptr;
            const bool ofThisButton = event.button == lastButton_ && cmdMAINBTN.surface() &&
                                      cmdMAINBTN.surface()->captured(cmdMAINBTN);
            const bool clicked = inside && ofThisButton && (drop_.pressed || event.button != button::left);
            drop_.pressed = false;
            releaseOwnCapture();
            refresh();
            release(mouseButton, shiftState, x, y);
            if (clicked && Enabled()) UserControl_Click();
            break;
        }
        case MouseEvent::Kind::move:
            if (shownOn && shownOn->peer()) shownOn->peer()->setToolTip(cmdMAINBTN.pixelBounds(), toolTip_);
            if (!cmdMAINBTN.state.hot && !panel_.visible() && cmdMAINBTN.hitTest(event.at)) {
                cmdMAINBTN.state.hot = true;
                refresh();
            }
            if (!drop_.mouseHeld) UserControlMouseOut(mouseButton, shiftState, x, y);
            attempt([&] { MouseMove(mouseButton, shiftState, x, y); });
            break;
        case MouseEvent::Kind::doubleClick:
            if (lastButton_ == button::left) {
                drop_.pressed = event.button == button::left;
                if (shownOn) shownOn->capture(cmdMAINBTN);
                refresh();
                press(button::left, 0, 1, 1);
            }
            attempt([&] { DblClick(); });
            break;
        case MouseEvent::Kind::leave:
            cmdMAINBTN.state.hot = false;
            refresh();
            break;
    }
}

void ButtonPalette::press(int16_t mouseButton, int16_t shift, float x, float y) {
    lastButton_ = mouseButton;
    drop_.mouseHeld = mouseButton != button::right;
    attempt([&] { MouseDown(mouseButton, shift, x, y); });
}

void ButtonPalette::release(int16_t mouseButton, int16_t shift, float x, float y) {
    drop_.mouseHeld = false;
    attempt([&] { MouseUp(mouseButton, shift, x, y); });
}

void ButtonPalette::releaseOwnCapture() {
    if (Surface* shownOn = cmdMAINBTN.surface()) shownOn->releaseCapture(cmdMAINBTN);
}

}  // namespace obk
