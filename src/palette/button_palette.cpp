#include "palette/button_palette.h"

#include "base/attempt.h"
#include "framework/colours.h"
#include "framework/kxlib_system.h"

namespace obk {

namespace {

constexpr Rgb firstColour{2};  // what a new button's selection is nearest to

int32_t asLong(OleColour colour) {
    return static_cast<int32_t>(colour.value);
}

}  // namespace

ButtonPalette::ButtonPalette(Platform& platform)
    : Control(platform),
      cmdMAINBTN(root()),
      barPALETTE(*this, root()),
      panel_(*this),
      picDROPDOWNPANEL(*this, panel_.root()),
      cTIMER(platform.clock()) {
    barPALETTE.setTakesMouse(false);
    panel_.setAccessibleName(u"Colors");
    // It ticks nobody: its polling would stop the host. Hosts of old knew it, and it stays as it was.
    cTIMER.SetInterval(450);
    connectChildren();
}

void ButtonPalette::initialize() {
    const Look look = lookOfSystem(platform());
    cmdMAINBTN.state.look = look;
    picDROPDOWNPANEL.setLook(look);
    setSize({1125}, {345});
    lastButton_ = button::left;
    SetTheme();
    backColor_ =
        Rgb{static_cast<uint32_t>(TranslateOleColor(platform().appearance(), SystemColour::buttonFace))};
    showBackground();
    resize();
    // So the first hover is not tracked: only a release, a hiding or the focus going sets it free.
    mouseHeld_ = true;
}

void ButtonPalette::initProperties() {
    Appearance& appearance = platform().appearance();
    const auto systemColour = [&appearance](SystemColour index) {
        return OleColour(appearance.systemColour(static_cast<uint8_t>(index)).value_or(Rgb{}));
    };
    setSize({1125}, height());
    setSize(width(), {345});
    positionDefault_ = true;
    cmdMAINBTN.state.showsFocus = true;
    buttonType_ = 1;
    backColor_ = systemColour(SystemColour::buttonFace);
    cmdMAINBTN.state.textColour = systemColour(SystemColour::buttonText);
    fontFromAmbient_ = ambientFont();
    cmdMAINBTN.font.set(fontFromAmbient_);
    picDROPDOWNPANEL.setPalette(enQUILLPalette::QP24X8);
    chooseBaseFor(firstColour);
    selectedCell_ = picDROPDOWNPANEL.palette().nearestCell(firstColour);
    selectedColour_ = selectedCell_.Color;
    cmdMAINBTN.setEnabled(true);
    cmdMAINBTN.state.caption = u"   Button";  // the blanks keep clear of the swatch
    showBackground();
    showSelection();
}

void ButtonPalette::loaded() {
    showBackground();
    barPALETTE.setEnabled(Enabled());
    showSelection();
}

void ButtonPalette::connectChildren() {
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(cmdMAINBTN.mouseReported, [this](const MouseEvent& event) { buttonMouse(event); });
    on(cmdMAINBTN.captureTaken, [this] {
        pressed_ = false;
        cmdMAINBTN.state.hot = false;
        refresh();
    });
    on(cmdMAINBTN.fontChanged, [this] { PropertyChanged<&ButtonPalette::Font>(); });
    on(picDROPDOWNPANEL.mouseReported, [this](const MouseEvent& event) { panelMouse(event); });
    on(panel_.mouseElsewhere, [this](const MouseEvent& event) { panelMouse(event); });
    on(panel_.dismissed, [this] { HidePopUp(); });
    on(panel_.appearanceChanged, [this] {
        if (panel_.visible()) HidePopUp();
    });
}

void ButtonPalette::SetBackColor(OleColour BackColor) {
    backColor_ = BackColor;
    showBackground();
    PropertyChanged<&ButtonPalette::BackColor>();
}

void ButtonPalette::SetBackcolorCustom(bool BackcolorCustom) {
    backcolorCustom_ = BackcolorCustom;
    showBackground();
    PropertyChanged<&ButtonPalette::BackcolorCustom>();
}

void ButtonPalette::SetbMOUSEPOSLOC(bool bMOUSEPOSLOC) {
    mouseOver_ = bMOUSEPOSLOC;
}

void ButtonPalette::SetbPOSITIONDEFAULT(bool bPOSITIONDEFAULT) {
    positionDefault_ = bPOSITIONDEFAULT;
}

void ButtonPalette::SetButtonType(int32_t ButtonType) {
    buttonType_ = ButtonType;
    resize();
    PropertyChanged<&ButtonPalette::ButtonType>();
    resize();
}

void ButtonPalette::SetCaption(const obk::Text& Caption) {
    attempt([&] { cmdMAINBTN.state.caption = Caption; });
    refresh();
    PropertyChanged<&ButtonPalette::Caption>();
}

void ButtonPalette::SetColor(OleColour Color) {
    loadColor(Color);
    selectedColour_ = Color;
    showSelection();
    resize();
    PropertyChanged<&ButtonPalette::Color>();
}

void ButtonPalette::SetEnabled(bool Enabled) {
    cmdMAINBTN.setEnabled(Enabled);
    barPALETTE.setEnabled(Enabled);
    if (!Enabled) {
        pressed_ = false;
        cmdMAINBTN.state.hot = false;
        releaseOwnCapture();
    }
    refresh();
    if (!Enabled && panel_.visible()) HidePopUp();
    PropertyChanged<&ButtonPalette::Enabled>();
}

void ButtonPalette::SetFocusRect(bool FocusRect) {
    cmdMAINBTN.state.showsFocus = FocusRect;
    refresh();
    PropertyChanged<&ButtonPalette::FocusRect>();
}

void ButtonPalette::SetFont(const FontRef& Font) {
    const bool another = Font && Font != cmdMAINBTN.font.font();
    cmdMAINBTN.font.set(Font);  // another font notifies by its change
    if (!another) PropertyChanged<&ButtonPalette::Font>();
}

void ButtonPalette::SetForeColor(OleColour ForeColor) {
    cmdMAINBTN.state.textColour = ForeColor;
    refresh();
    PropertyChanged<&ButtonPalette::ForeColor>();
}

void ButtonPalette::SetMaskHLightColor(OleColour MaskHLightColor) {
    cmdMAINBTN.state.mask = MaskHLightColor;
    refresh();
    PropertyChanged<&ButtonPalette::MaskHLightColor>();
}

void ButtonPalette::SetMousePosn(bool MousePosn) {
    mouseOver_ = MousePosn;
}

void ButtonPalette::SetPalette(int32_t Palette) {
    loadPalette(Palette);
    if (panel_.visible()) panel_.resize(picDROPDOWNPANEL.layOut(panel_.dpi()), firstSide());
    PropertyChanged<&ButtonPalette::Palette>();
}

void ButtonPalette::SetPicture(const PictureRef& Picture) {
    cmdMAINBTN.state.picture = Picture;
    refresh();
    PropertyChanged<&ButtonPalette::Picture>();
}

void ButtonPalette::SetPictureDisabled(const PictureRef& PictureDisabled) {
    cmdMAINBTN.state.pictureDisabled = PictureDisabled;
    refresh();
    PropertyChanged<&ButtonPalette::PictureDisabled>();
}

void ButtonPalette::SetPictureVisible(bool PictureVisible) {
    cmdMAINBTN.state.showsPicture = PictureVisible;
    refresh();
    PropertyChanged<&ButtonPalette::PictureVisible>();
}

void ButtonPalette::SetPopupEnabled(bool PopupEnabled) {
    popupEnabled_ = PopupEnabled;
    PropertyChanged<&ButtonPalette::PopupEnabled>();
}

void ButtonPalette::SetShowButtonColor(bool ShowButtonColor) {
    cmdMAINBTN.state.showsSwatch = ShowButtonColor;
    refresh();
    PropertyChanged<&ButtonPalette::ShowButtonColor>();
}

void ButtonPalette::HidePopUp() {
    if (panel_.visible()) {
        panel_.hide();
        picDROPDOWNPANEL.endWalk();
        cTIMER.SetEnabled(false);
        refresh();
    }
    mouseHeld_ = false;
    attempt([&] { FocusHidden(); });
}

void ButtonPalette::SetTheme() {
    // The reverse of what loading shows, as it has always been: a custom background shows until the first
    // repaint, and the face of a button afterwards.
    cmdMAINBTN.state.background = backcolorCustom_ ? OleColour(Rgb{static_cast<uint32_t>(TranslateOleColor(
                                                         platform().appearance(), SystemColour::buttonFace))})
                                                   : backColor_;
    refresh();
}

void ButtonPalette::ShowPopUp() {
    if (panel_.visible()) return;
    picDROPDOWNPANEL.endWalk();
    const PixelSize size = picDROPDOWNPANEL.layOut(panel_.dpi());
    cmdMAINBTN.state.hot = false;
    panel_.show(size, firstSide());
    refresh();
}

void ButtonPalette::UserControl_Click() {
    if (lastButton_ == button::left && Enabled()) {
        if (popupEnabled_) {
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
    mouseOver_ = true;
    refresh();
}

void ButtonPalette::UserControl_ExitFocus() {
    mouseHeld_ = false;
    attempt([&] { FocusLost(); });
    int16_t mouseButton = button::left;
    int16_t shiftState = 0;
    float x = 0;
    float y = 0;
    attempt([&] { MouseUp(mouseButton, shiftState, x, y); });
}

void ButtonPalette::UserControlMouseOut(int16_t& Button, int16_t& Shift, float& X, float& Y) {
    const Dpi dpi = root().dpi();
    const auto right = static_cast<float>(dpi.toPixels(width()));
    const auto bottom = static_cast<float>(dpi.toPixels(height()));
    // A condition that cannot be computed is false: no place at all is not outside.
    if (X < 0 || X > right || Y < 0 || Y > bottom) {
        mouseOver_ = false;
        cmdMAINBTN.state.hot = false;
        releaseOwnCapture();
        refresh();
    } else {
        cmdMAINBTN.state.hot = Enabled() && !panel_.visible();
        SetTheme();
        // An open panel keeps the mouse: it has to see the press that closes it.
        Surface* shownOn = cmdMAINBTN.surface();
        if (shownOn && Enabled() && !panel_.visible()) shownOn->capture(cmdMAINBTN);
        mouseOver_ = true;
    }
    attempt([&] { MouseOut(Button, Shift, X, Y); });
}

void ButtonPalette::resize() {
    cmdMAINBTN.move({{0}, {0}, width(), height()});
    barPALETTE.move(ButtonFace::arrowPlace(width(), height(), barPALETTE->width(), barPALETTE->height()));
    refresh();
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

void ButtonPalette::useAmbientFont(const FontRef& font) {
    if (fontFromAmbient_ && Font() == fontFromAmbient_) fontFromAmbient_->setDescription(font->description());
}

KeyRoute ButtonPalette::route(const KeyEvent& event) {
    const bool wanted = (event.code == key::escape && panel_.visible()) ||
                        (event.code == key::enter && picDROPDOWNPANEL.walking());
    return wanted && hasFocus() ? KeyRoute::child : Control::route(event);
}

void ButtonPalette::surfaceKeyDown(KeyEvent& event) {
    if (!Enabled()) return;
    if (walkKey(event)) {
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

bool ButtonPalette::walkKey(const KeyEvent& event) {
    if (!panel_.visible() || event.shift != 0) return false;
    const bool walking = picDROPDOWNPANEL.walking();
    if (walking && (event.code == key::enter || event.code == key::space)) {
        const PixelPoint at = picDROPDOWNPANEL.walkPoint();
        panelPress(button::left, at);
        // On the strip the press has already closed the panel.
        if (panel_.visible()) panelRelease(at);
        return true;
    }
    const bool begins = event.code == key::right || event.code == key::home || event.code == key::end;
    if ((!walking && !begins) || !picDROPDOWNPANEL.walk(event.code)) return false;
    // Like a press on a base colour, so that its shades can be reached.
    if (const auto cell = picDROPDOWNPANEL.walkCell()) {
        becomeBase(*cell);
    }
    return true;
}

AccessibleItem ButtonPalette::describeSurface() const {
    AccessibleItem item = Control::describeSurface();
    item.role = AccessibleItem::Role::button;
    if (const TextView caption = trimmed(cmdMAINBTN.state.caption); !caption.empty()) item.name = caption;
    item.value = Text();
    item.enabled = Enabled();
    item.pressed = panel_.visible();
    return item;
}

void ButtonPalette::loadSelectedColor(OleColour colour) {
    chooseBaseFor(colour);
    selectedCell_ = picDROPDOWNPANEL.palette().nearestCell(root().rgb(colour));
    selectedColour_ = colour;
}

void ButtonPalette::loadToolTip(const obk::Text& text) {
    attempt([&] { toolTip_ = text; });
}

void ButtonPalette::loadColor(OleColour colour) {
    cmdMAINBTN.state.swatch = colour;
    refresh();
}

void ButtonPalette::loadPalette(int32_t palette) {
    const auto known = paletteFromNumber(palette);
    if (!known) return;
    picDROPDOWNPANEL.setPalette(*known);
    chooseBaseFor(selectedColour_);
    selectedCell_ = picDROPDOWNPANEL.palette().nearestCell(root().rgb(selectedColour_));
    selectedColour_ = selectedCell_.Color;
    showSelection();
}

void ButtonPalette::refresh() {
    cmdMAINBTN.state.pressed = pressed_ || panel_.visible();
    barPALETTE.setAmbientBackColour(cmdMAINBTN.ground());
    cmdMAINBTN.show();
}

void ButtonPalette::showBackground() {
    cmdMAINBTN.state.background = backcolorCustom_
                                      ? backColor_
                                      : OleColour(Rgb{static_cast<uint32_t>(TranslateOleColor(
                                            platform().appearance(), SystemColour::buttonFace))});
    refresh();
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
            pressed_ = event.button == button::left;
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
            const bool clicked = inside && ofThisButton && (pressed_ || event.button != button::left);
            pressed_ = false;
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
            if (!mouseHeld_) UserControlMouseOut(mouseButton, shiftState, x, y);
            attempt([&] { MouseMove(mouseButton, shiftState, x, y); });
            break;
        case MouseEvent::Kind::doubleClick:
            if (lastButton_ == button::left) {
                pressed_ = event.button == button::left;
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
    mouseHeld_ = mouseButton != button::right;
    attempt([&] { MouseDown(mouseButton, shift, x, y); });
}

void ButtonPalette::release(int16_t mouseButton, int16_t shift, float x, float y) {
    mouseHeld_ = false;
    attempt([&] { MouseUp(mouseButton, shift, x, y); });
}

void ButtonPalette::releaseOwnCapture() {
    if (Surface* shownOn = cmdMAINBTN.surface()) shownOn->releaseCapture(cmdMAINBTN);
}

void ButtonPalette::panelMouse(const MouseEvent& event) {
    if (!panel_.visible()) return;
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
            panelPress(event.button, event.at);
            break;
        case MouseEvent::Kind::move:
            panelMove(event.button, event.at);
            break;
        case MouseEvent::Kind::up:
            panelRelease(event.at);
            break;
        case MouseEvent::Kind::leave:
            picDROPDOWNPANEL.setStripHot(false);
            break;
    }
}

void ButtonPalette::panelPress(int16_t mouseButton, PixelPoint at) {
    // Where the point lies is settled before any host hears of it: a host may change the palette meanwhile.
    const bool inside = picDROPDOWNPANEL.holds(at);
    const bool onStrip = picDROPDOWNPANEL.belowStripTop(at);
    const bool beyondEdge = picDROPDOWNPANEL.beyondStripEdge(at);
    if (inside) {
        // The capture of the opening goes; that of a drag comes, so that a release outside is seen.
        panel_.renewCapture();
        if (const auto cell = picDROPDOWNPANEL.cellAt(at)) {
            panelMove(mouseButton, at);
            setActiveCell(*cell);
            becomeBase(*cell);
        }
    } else {
        HidePopUp();
    }
    if (onStrip) {
        if (beyondEdge)
            HidePopUp();
        else
            chooseCustomColour();
    }
}

void ButtonPalette::panelMove(int16_t mouseButton, PixelPoint at) {
    const bool leftDown = (mouseButton & button::left) != 0;
    const auto cell = picDROPDOWNPANEL.cellAt(at);
    picDROPDOWNPANEL.setStripHot(picDROPDOWNPANEL.holds(at) && picDROPDOWNPANEL.belowStripTop(at) &&
                                 !picDROPDOWNPANEL.beyondStripEdge(at));
    if (cell) {
        if (leftDown) setActiveCell(*cell);
        if (panel_.visible()) picDROPDOWNPANEL.hover(*cell);
        if (leftDown) becomeBase(*cell);
    }
}

void ButtonPalette::panelRelease(PixelPoint at) {
    const bool inside = picDROPDOWNPANEL.holds(at);
    const auto cell = picDROPDOWNPANEL.cellAt(at);
    HidePopUp();
    if (cell) {
        HidePopUp();
        selectCell(*cell, cell->Color);
    } else if (!inside) {
        selectCell(selectedCell_, selectedColour_);
    }
}

void ButtonPalette::becomeBase(const PaletteCell& cell) {
    // White after red keeps the shades of red: both have hue 0, and only the hue counts.
    if (!cell.isBase || cell.hls.hue == baseCell_.hls.hue || !picDROPDOWNPANEL.palette().geometry().ShadeMode)
        return;
    baseCell_ = cell;
    picDROPDOWNPANEL.buildShades(cell);
}

void ButtonPalette::setActiveCell(const PaletteCell& cell) {
    if (cell.Color == activeCell_.Color) return;
    activeCell_ = cell;
    PropertyChanged<&ButtonPalette::ActiveColor>();
    PropertyChanged<&ButtonPalette::ActiveText>();
    int32_t colour = asLong(activeCell_.Color);
    attempt([&] { Change(colour); });
}

void ButtonPalette::selectCell(const PaletteCell& cell, OleColour colour) {
    const bool changed = colour != selectedColour_;
    if (!changed && selectedColour_ == OleColour(activeCell_.Color)) return;
    int32_t told = asLong(colour);
    if (changed) {
        selectedCell_ = cell;
        selectedColour_ = colour;
        showSelection();
        PropertyChanged<&ButtonPalette::selectedColor>();
        PropertyChanged<&ButtonPalette::Text>();
        if (Color() != colour) loadColor(colour);
        attempt([&] { Click(); });
    }
    attempt([&] { Change(told); });
}

void ButtonPalette::chooseCustomColour() {
    HidePopUp();
    const OleColour start = Color();
    const Surface* shownOn = root().surface();
    const NativeWindow owner = shownOn && shownOn->peer() ? shownOn->peer()->window() : 0;
    std::optional<Rgb> chosen;
    attempt([&] { chosen = platform().chooseColour(owner, {root().rgb(start), true, u"Custom"}); });
    // What was cancelled answers the colour it started from, and the host hears of that all the same.
    const OleColour colour = chosen ? OleColour(*chosen) : start;
    loadColor(colour);
    PropertyChanged<&ButtonPalette::selectedColor>();
    PropertyChanged<&ButtonPalette::Text>();
    int32_t told = asLong(colour);
    attempt([&] { ChangeCustom(told); });
}

void ButtonPalette::chooseBaseFor(OleColour colour) {
    const ColourPalette& palette = picDROPDOWNPANEL.palette();
    if (!palette.geometry().ShadeMode) return;
    baseCell_ = palette.baseCell(root().rgb(colour));
    picDROPDOWNPANEL.buildShades(baseCell_);
}

void ButtonPalette::showSelection() {
    picDROPDOWNPANEL.setSelected(selectedCell_, OleColour(selectedCell_.Color) == selectedColour_);
}

}  // namespace obk
