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
      chooser_(panel_, picDROPDOWNPANEL),
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
    drop_.mouseHeld = true;
}

void ButtonPalette::initProperties() {
    Appearance& appearance = platform().appearance();
    const auto systemColour = [&appearance](SystemColour index) {
        return OleColour(appearance.systemColour(static_cast<uint8_t>(index)).value_or(Rgb{}));
    };
    setSize({1125}, height());
    setSize(width(), {345});
    drop_.positionDefault = true;
    cmdMAINBTN.state.showsFocus = true;
    buttonType_ = 1;
    backColor_ = systemColour(SystemColour::buttonFace);
    cmdMAINBTN.state.textColour = systemColour(SystemColour::buttonText);
    const FontRef ambient = ambientFont();
    cmdMAINBTN.font.set(ambient);
    followedFont_.took(ambient, ambient);
    chooser_.setPalette(enQUILLPalette::QP24X8, firstColour);
    cmdMAINBTN.setEnabled(true);
    cmdMAINBTN.state.caption = u"   Button";  // the blanks keep clear of the swatch
    showBackground();
}

void ButtonPalette::loaded() {
    showBackground();
    barPALETTE.setEnabled(Enabled());
    chooser_.showChoice();
}

void ButtonPalette::connectChildren() {
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(cmdMAINBTN.mouseReported, [this](const MouseEvent& event) { buttonMouse(event); });
    on(cmdMAINBTN.captureTaken, [this] {
        drop_.pressed = false;
        cmdMAINBTN.state.hot = false;
        refresh();
    });
    on(cmdMAINBTN.fontChanged, [this] {
        followedFont_.changed();
        PropertyChanged<&ButtonPalette::Font>();
    });
    on(picDROPDOWNPANEL.mouseReported, [this](const MouseEvent& event) { chooser_.mouse(event); });
    on(panel_.mouseElsewhere, [this](const MouseEvent& event) { chooser_.mouse(event); });
    on(chooser_.closing, [this] { HidePopUp(); });
    on(chooser_.activeChanged, [this] { activeChanged(); });
    on(chooser_.chosen, [this](PaletteChoice::Outcome outcome) { chosen(outcome); });
    on(chooser_.moreColoursAsked, [this] { chooseCustomColour(); });
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
    drop_.mouseOver = bMOUSEPOSLOC;
}

void ButtonPalette::SetbPOSITIONDEFAULT(bool bPOSITIONDEFAULT) {
    drop_.positionDefault = bPOSITIONDEFAULT;
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
    chooser_.setColour(Color);
    resize();
    PropertyChanged<&ButtonPalette::Color>();
}

void ButtonPalette::SetEnabled(bool Enabled) {
    cmdMAINBTN.setEnabled(Enabled);
    barPALETTE.setEnabled(Enabled);
    if (!Enabled) {
        drop_.pressed = false;
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
    drop_.mouseOver = MousePosn;
}

void ButtonPalette::SetPalette(int32_t Palette) {
    loadPalette(Palette);
    if (panel_.visible()) panel_.resize(picDROPDOWNPANEL.layOut(panel_.dpi()), drop_.firstSide());
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
    drop_.popupEnabled = PopupEnabled;
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
    drop_.mouseHeld = false;
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
    panel_.show(size, drop_.firstSide());
    refresh();
}

void ButtonPalette::resize() {
    cmdMAINBTN.move({{0}, {0}, width(), height()});
    barPALETTE.move(ButtonFace::arrowPlace(width(), height(), barPALETTE->width(), barPALETTE->height()));
    refresh();
}

void ButtonPalette::useAmbientFont(const FontRef& font) {
    followedFont_.follow(font, Font());
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
    chooser_.choose(colour, root().rgb(colour));
}

void ButtonPalette::loadToolTip(const obk::Text& text) {
    attempt([&] { toolTip_ = text; });
}

void ButtonPalette::loadColor(OleColour colour) {
    cmdMAINBTN.state.swatch = colour;
    refresh();
}

void ButtonPalette::loadPalette(int32_t palette) {
    if (const auto known = paletteFromNumber(palette))
        chooser_.setPalette(*known, root().rgb(selectedColor()));
}

void ButtonPalette::refresh() {
    cmdMAINBTN.state.pressed = drop_.pressed || panel_.visible();
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

void ButtonPalette::activeChanged() {
    PropertyChanged<&ButtonPalette::ActiveColor>();
    PropertyChanged<&ButtonPalette::ActiveText>();
    int32_t colour = asLong(ActiveColor());
    attempt([&] { Change(colour); });
}

void ButtonPalette::chosen(PaletteChoice::Outcome outcome) {
    const OleColour colour = selectedColor();
    if (outcome == PaletteChoice::Outcome::changed) {
        PropertyChanged<&ButtonPalette::selectedColor>();
        PropertyChanged<&ButtonPalette::Text>();
        if (Color() != colour) loadColor(colour);
        attempt([&] { Click(); });
    }
    int32_t told = asLong(colour);
    attempt([&] { Change(told); });
}

void ButtonPalette::chooseCustomColour() {
    const OleColour start = Color();
    const Surface* shownOn = root().surface();
    const NativeWindow owner = shownOn && shownOn->peer() ? shownOn->peer()->window() : 0;
    std::optional<Rgb> picked;
    attempt([&] { picked = platform().chooseColour(owner, {root().rgb(start), true, u"Custom"}); });
    // What was cancelled answers the colour it started from, and the host hears of that all the same.
    const OleColour colour = picked ? OleColour(*picked) : start;
    loadColor(colour);
    PropertyChanged<&ButtonPalette::selectedColor>();
    PropertyChanged<&ButtonPalette::Text>();
    int32_t told = asLong(colour);
    attempt([&] { ChangeCustom(told); });
}

}  // namespace obk
