#include "palette/button_palette.h"

#include "base/attempt.h"
#include "base/caption_text.h"
#include "framework/colours.h"

namespace obk {

namespace {

constexpr Rgb firstColour{2};  // what a new button's selection is nearest to

}  // namespace

ButtonPalette::ButtonPalette(Platform& platform)
    : Control(platform),
      cmdMAINBTN(root(), button_),
      barPALETTE(*this, root()),
      panel_(*this, [this](Dpi scale) { return layOutPanel(scale); }),
      picDROPDOWNPANEL(*this, panel_.root(), model_),
      cTIMER(platform.clock()) {
    barPALETTE.setTakesMouse(false);
    panel_.setAccessible(AccessibleItem::Role::list, u"Colors");
    // Hosts know of it, but nothing starts it: the captured mouse tells what polling could find out.
    cTIMER.SetInterval(450);

    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(model_.buttonChanged, [this] {
        barPALETTE.setAmbientBackColour(cmdMAINBTN.ground());
        cmdMAINBTN.invalidate();
    });
    on(model_.panelChanged, [this] { picDROPDOWNPANEL.invalidate(); });
    on(model_.cellsChanged, [this](const PixelRect& place) { picDROPDOWNPANEL.showCells(place); });
    on(model_.shadesChanged, [this] {
        if (panel_.visible()) picDROPDOWNPANEL.announce(AccessibleEvent::structure);
    });
    on(model_.stripChanged, [this] { picDROPDOWNPANEL.showStrip(); });
    on(cmdMAINBTN.mouseReported, [this](const MouseEvent& event) { buttonMouse(event); });
    on(cmdMAINBTN.captureTaken, [this] {
        model_.drop.pressed = false;
        model_.set(&ButtonState::hot, false);
        refresh();
    });
    on(cmdMAINBTN.fontChanged, [this] {
        followedFont_.changed();
        PropertyChanged<&ButtonPalette::Font>();
    });
    on(picDROPDOWNPANEL.mouseReported, [this](const MouseEvent& event) { panelMouse(event); });
    on(panel_.mouseElsewhere, [this](const MouseEvent& event) { panelMouse(event); });
    on(panel_.dismissed, [this] { HidePopUp(); });
}

void ButtonPalette::initialize() {
    setSize({1125}, {345});
    model_.set(&ButtonState::BackColor, buttonFace());
    model_.showBackground(buttonFace());
    resize();
    // So the first hover is not tracked: only a release, a hiding or the focus going sets it free.
    model_.drop.mouseHeld = true;
}

void ButtonPalette::initProperties() {
    Appearance& appearance = platform().appearance();
    const auto systemColour = [&appearance](SystemColour index) {
        return OleColour(appearance.systemColour(static_cast<uint8_t>(index)).value_or(Rgb{}));
    };
    setSize({1125}, height());
    setSize(width(), {345});
    model_.drop.positionDefault = true;
    model_.set(&ButtonState::FocusRect, true);
    model_.set(&ButtonState::ButtonType, 1);
    model_.set(&ButtonState::BackColor, systemColour(SystemColour::buttonFace));
    model_.setForeColor(systemColour(SystemColour::buttonText));
    const FontRef ambient = ambientFont();
    cmdMAINBTN.setFont(ambient);
    followedFont_.took(ambient, ambient);
    model_.setPalette(enQUILLPalette::QP24X8, firstColour);
    cmdMAINBTN.setEnabled(true);
    model_.set(&ButtonState::Caption, u"   Button");  // the blanks keep clear of the swatch
    model_.showBackground(buttonFace());
}

void ButtonPalette::loaded() {
    model_.showBackground(buttonFace());
    barPALETTE.setEnabled(Enabled());
}

template <auto Getter, typename T>
void ButtonPalette::put(T ButtonState::*place, const T& value) {
    attempt([&] { model_.set(place, value); });
    PropertyChanged<Getter>();
}

void ButtonPalette::SetBackColor(OleColour BackColor) {
    model_.set(&ButtonState::BackColor, BackColor);
    model_.showBackground(buttonFace());
    PropertyChanged<&ButtonPalette::BackColor>();
}

void ButtonPalette::SetBackcolorCustom(bool BackcolorCustom) {
    model_.set(&ButtonState::BackcolorCustom, BackcolorCustom);
    model_.showBackground(buttonFace());
    PropertyChanged<&ButtonPalette::BackcolorCustom>();
}

void ButtonPalette::SetButtonType(int32_t ButtonType) {
    model_.set(&ButtonState::ButtonType, ButtonType);
    resize();
    PropertyChanged<&ButtonPalette::ButtonType>();
    resize();
}

void ButtonPalette::SetCaption(const obk::Text& Caption) {
    const obk::Text keyBefore = accessKeys();
    announceSurface(AccessibleEvent::name);
    put<&ButtonPalette::Caption>(&ButtonState::Caption, Caption);
    if (accessKeys() != keyBefore) accessKeysChanged();
}

void ButtonPalette::SetColor(OleColour Color) {
    model_.setColor(Color);
    announceSurface(AccessibleEvent::value);
    resize();
    PropertyChanged<&ButtonPalette::Color>();
}

void ButtonPalette::SetEnabled(bool Enabled) {
    cmdMAINBTN.setEnabled(Enabled);
    barPALETTE.setEnabled(Enabled);
    if (!Enabled) {
        model_.drop.pressed = false;
        model_.set(&ButtonState::hot, false);
        releaseOwnCapture();
    }
    refresh();
    if (!Enabled && panel_.visible()) HidePopUp();
    announceSurface(AccessibleEvent::state);
    PropertyChanged<&ButtonPalette::Enabled>();
}

void ButtonPalette::SetFocusRect(bool FocusRect) {
    put<&ButtonPalette::FocusRect>(&ButtonState::FocusRect, FocusRect);
}

void ButtonPalette::SetFont(const FontRef& Font) {
    const bool another = Font && Font != cmdMAINBTN.font();
    // Another font notifies by its change.
    const bool set = attempt([&] { cmdMAINBTN.setFont(Font); });
    if (!another || !set) PropertyChanged<&ButtonPalette::Font>();
}

void ButtonPalette::SetForeColor(OleColour ForeColor) {
    model_.setForeColor(ForeColor);
    PropertyChanged<&ButtonPalette::ForeColor>();
}

void ButtonPalette::SetMaskHLightColor(OleColour MaskHLightColor) {
    put<&ButtonPalette::MaskHLightColor>(&ButtonState::MaskHLightColor, MaskHLightColor);
}

void ButtonPalette::SetPalette(int32_t Palette) {
    attempt([&] { loadPalette(Palette); });
    attempt([&] { panel_.sizeChanged(); });
    announceSurface(AccessibleEvent::value);
    PropertyChanged<&ButtonPalette::Palette>();
}

void ButtonPalette::SetPicture(const PictureRef& Picture) {
    put<&ButtonPalette::Picture>(&ButtonState::Picture, Picture);
}

void ButtonPalette::SetPictureDisabled(const PictureRef& PictureDisabled) {
    put<&ButtonPalette::PictureDisabled>(&ButtonState::PictureDisabled, PictureDisabled);
}

void ButtonPalette::SetPictureVisible(bool PictureVisible) {
    put<&ButtonPalette::PictureVisible>(&ButtonState::PictureVisible, PictureVisible);
}

void ButtonPalette::SetPopupEnabled(bool PopupEnabled) {
    model_.drop.popupEnabled = PopupEnabled;
    PropertyChanged<&ButtonPalette::PopupEnabled>();
}

void ButtonPalette::SetShowButtonColor(bool ShowButtonColor) {
    put<&ButtonPalette::ShowButtonColor>(&ButtonState::ShowButtonColor, ShowButtonColor);
}

void ButtonPalette::HidePopUp() {
    if (panel_.visible()) {
        panel_.hide();
        model_.endWalk();
        cTIMER.SetEnabled(false);
        refresh();
    }
    model_.drop.mouseHeld = false;
    attempt([&] { FocusHidden(); });
}

void ButtonPalette::SetTheme() {
    model_.repaint(buttonFace());
}

void ButtonPalette::ShowPopUp() {
    if (panel_.visible()) return;
    model_.endWalk();
    model_.set(&ButtonState::hot, false);
    panel_.show(model_.drop.firstSide());
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
    using Kind = AccessibleAction::Kind;
    AccessibleItem item = Control::describeSurface();
    item.role = AccessibleItem::Role::splitButton;
    if (const TextView caption = trimmed(button_.Caption); !caption.empty())
        item.name = plainCaption(caption);
    item.value = Text();
    // A colour from elsewhere is called as the one nearest to it.
    const PaletteCell& cell = model_.SelectedCell();
    if (ShowButtonColor() && (Color() != cell.Color || cell.Color != OleColour(rgbFromHls(cell.hls))))
        item.value = model_.palette().nearestCell(root().rgb(Color())).Name();
    if (button_.ToolTip != item.name) item.help = button_.ToolTip;
    if (accessKeyOf(button_.Caption)) item.accessKey = spokenAccessKey(button_.Caption);
    for (const auto state : {AccessibleItem::valued, AccessibleItem::readOnly, AccessibleItem::expandable,
                             AccessibleItem::focusable})
        item.set(state);
    item.set(AccessibleItem::disabled, !Enabled());
    item.set(AccessibleItem::expanded, panel_.visible());
    item.allow(Kind::press, Kind::focus, panel_.visible() ? Kind::collapse : Kind::expand);
    return item;
}

void ButtonPalette::useSurface(const AccessibleAction& action) {
    cmdMAINBTN.takeFocus();
    if (action.kind == AccessibleAction::Kind::focus) return;
    announceSurface(AccessibleEvent::invoked);
    model_.LastButton = button::left;
    UserControl_Click();
}

void ButtonPalette::loadToolTip(const obk::Text& text) {
    attempt([&] { model_.set(&ButtonState::ToolTip, text); });
}

void ButtonPalette::loadPalette(int32_t palette) {
    if (const auto known = paletteFromNumber(palette)) model_.setPalette(*known, root().rgb(selectedColor()));
}

Rgb ButtonPalette::buttonFace() const {
    return {static_cast<uint32_t>(TranslateOleColor(platform().appearance(), SystemColour::buttonFace))};
}

void ButtonPalette::refresh() {
    model_.set(&ButtonState::down, model_.drop.pressed || panel_.visible());
}

PixelSize ButtonPalette::layOutPanel(Dpi scale) {
    model_.setScale(scale);
    return picDROPDOWNPANEL.layOut();
}

}  // namespace obk
