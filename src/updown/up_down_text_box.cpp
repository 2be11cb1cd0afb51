#include "updown/up_down_text_box.h"

#include "base/attempt.h"
#include "framework/colours.h"
#include "framework/kxlib_system.h"
#include "framework/number_format.h"
#include "updown/shift_color.h"

#include <utility>

namespace obk {

using numeric_entry::Pattern;

UpDownTextBox::UpDownTextBox(Platform& platform)
    : Control(platform),
      txtBORDER(root()),
      picfraBOX(root()),
      lblBACK(picfraBOX),
      udnCTRL(picfraBOX),
      txtUPDOWN(picfraBOX),
      cboHEIGHT(picfraBOX) {
    applyBackColour(SystemColour::window);
    txtUPDOWN.setText(u"1");
    connectChildren();
}

void UpDownTextBox::initialize() {
    const Look look = lookOfSystem(platform());
    txtBORDER.setLook(look);
    udnCTRL.setLook(look);
    setSize({1215}, {315});
}

void UpDownTextBox::connectChildren() {
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(txtUPDOWN.changed, [this] { Change(); });
    on(txtUPDOWN.clicked, [this] { Click(); });
    on(txtUPDOWN.doubleClicked, [this] { DblClick(); });
    on(txtUPDOWN.keyWentDown, [this](KeyEvent& event) { keyDown(event); });
    on(txtUPDOWN.characterTyped, [this](int16_t& character) {
        character = numeric_entry::filteredCharacter(character, allowDecpoint_, txtUPDOWN.text());
        KeyPress(character);
    });
    on(txtUPDOWN.keyWentUp, [this](KeyEvent& event) { KeyUp(event.code, event.shift); });
    on(txtUPDOWN.mousePressed, [this](const MouseEvent& event) {
        resize();
        raiseMouse(MouseDown, event);
    });
    on(txtUPDOWN.mouseMoved, [this](const MouseEvent& event) { raiseMouse(MouseMove, event); });
    on(txtUPDOWN.mouseReleased, [this](const MouseEvent& event) { raiseMouse(MouseUp, event); });
    on(txtUPDOWN.focusWent, [this] { checkRange(pattern()); });
    on(txtUPDOWN.wheelTurned, [this](const WheelEvent& event, bool& used) { used = udnCTRL.wheel(event); });
    on(txtUPDOWN.fontChanged, [this] {
        followedFont_.changed();
        cboHEIGHT.setFont(txtUPDOWN.font()->description());
        resize();
        PropertyChanged<&UpDownTextBox::Font>();
    });
    on(udnCTRL.mousePressed, [this](const MouseEvent& event) {
        // As with any field, pressing its buttons brings the keyboard to it.
        txtUPDOWN.takeFocus();
        raiseMouse(MouseDown, event);
    });
    on(udnCTRL.increased, [this] { stepUp(); });
    on(udnCTRL.decreased, [this] { stepDown(); });
}

void UpDownTextBox::SetAlignment(int32_t Alignment) {
    txtUPDOWN.setAlignment(Alignment);
    PropertyChanged<&UpDownTextBox::Alignment>();
}

void UpDownTextBox::SetAllowArrowKeys(bool AllowArrowKeys) {
    udnCTRL.AllowArrowKeys = AllowArrowKeys;
    PropertyChanged<&UpDownTextBox::AllowArrowKeys>();
}

void UpDownTextBox::SetAllowDecpoint(bool AllowDecpoint) {
    allowDecpoint_ = AllowDecpoint;
    PropertyChanged<&UpDownTextBox::AllowDecpoint>();
}

void UpDownTextBox::SetBackColor(OleColour BackColor) {
    applyBackColour(BackColor);
    PropertyChanged<&UpDownTextBox::BackColor>();
}

void UpDownTextBox::SetBorderStyle(int32_t BorderStyle) {
    txtBORDER.setBorderStyle(BorderStyle);
    PropertyChanged<&UpDownTextBox::BorderStyle>();
}

void UpDownTextBox::SetBuddyAlignment(int32_t BuddyAlignment) {
    if (udnCTRL.setBuddyAlignment(BuddyAlignment)) resize();
    PropertyChanged<&UpDownTextBox::BuddyAlignment>();
}

void UpDownTextBox::SetEnabled(bool Enabled) {
    // Enabling discards a back colour of the host's on purpose: a field that can be used looks like one.
    applyBackColour(Enabled ? OleColour(SystemColour::window)
                            : OleColour(BlendColors(platform().appearance(), SystemColour::buttonFace,
                                                    SystemColour::window, 140)));
    udnCTRL.setEnabled(Enabled);
    enableChildren(Enabled);
    PropertyChanged<&UpDownTextBox::Enabled>();
    resize();
}

void UpDownTextBox::SetFont(const FontRef& Font) {
    const bool another = Font && Font != txtUPDOWN.font();
    txtUPDOWN.setFont(Font);  // another font lays out and notifies by its change
    if (!another) {
        resize();
        PropertyChanged<&UpDownTextBox::Font>();
    }
}

void UpDownTextBox::SetForeColor(OleColour ForeColor) {
    txtUPDOWN.setForeColour(ForeColor);
    PropertyChanged<&UpDownTextBox::ForeColor>();
}

void UpDownTextBox::SetInterval(double Interval) {
    interval_ = Interval;
    PropertyChanged<&UpDownTextBox::Interval>();
}

void UpDownTextBox::SetMax(int32_t Max) {
    udnCTRL.Max = Max;
    PropertyChanged<&UpDownTextBox::Max>();
}

void UpDownTextBox::SetMaxLength(int32_t MaxLength) {
    txtUPDOWN.setMaxLength(MaxLength);
    PropertyChanged<&UpDownTextBox::MaxLength>();
}

void UpDownTextBox::SetMin(int32_t Min) {
    udnCTRL.Min = Min;
    PropertyChanged<&UpDownTextBox::Min>();
}

void UpDownTextBox::SetSyncBuddy(bool SyncBuddy) {
    udnCTRL.SyncBuddy = SyncBuddy;
    PropertyChanged<&UpDownTextBox::SyncBuddy>();
}

void UpDownTextBox::SetText(const obk::Text& Text) {
    attempt([&] { txtUPDOWN.setText(Text); });
    PropertyChanged<&UpDownTextBox::Text>();
}

void UpDownTextBox::SetThousandsSeparator(bool ThousandsSeparator) {
    udnCTRL.ThousandsSeparator = ThousandsSeparator;
    PropertyChanged<&UpDownTextBox::ThousandsSeparator>();
}

int32_t UpDownTextBox::DecimalpointCheck(const obk::Text& Number) {
    return numeric_entry::DecimalpointCheck(Number);
}

uint8_t UpDownTextBox::KeyLock(int32_t KeyAscii, bool Extra_Check, obk::Text& Extra_sText) {
    return numeric_entry::KeyLock(KeyAscii, Extra_Check, Extra_sText);
}

void UpDownTextBox::Refresh() {
    resize();
    udnCTRL.invalidate();
}

void UpDownTextBox::RefreshFont() {
    FontDescription reference = cboHEIGHT.font();
    reference.name = txtUPDOWN.font()->description().name;
    reference.size = txtUPDOWN.font()->description().size;
    cboHEIGHT.setFont(reference);
    resize();
}

int32_t UpDownTextBox::ShiftColor(int32_t Color, int32_t amount, bool IsXP) {
    return obk::ShiftColor(Color, amount, IsXP);
}

void UpDownTextBox::loaded() {
    const OleColour colour = txtUPDOWN.backColour();
    lblBACK.setBackColour(colour);
    picfraBOX.SetBackColor(colour);
    txtBORDER.setBackColour(colour);
    enableChildren(udnCTRL.enabled());
}

void UpDownTextBox::resize() {
    const Twips w = width();
    const Twips h = height();
    const Twips p = root().dpi().twipsPerPixel();
    const Twips lineHeight{285};
    const Twips spinnerWidth{360};

    FontDescription reference = cboHEIGHT.font();
    reference.name = txtUPDOWN.font()->description().name;
    if (const auto size = fixedText(txtUPDOWN.font()->description().size, 0))
        reference.size = numberFromText(*size).value_or(reference.size);
    cboHEIGHT.setFont(reference);

    txtBORDER.move({{0}, {0}, w, h});
    picfraBOX.move({2 * p, 2 * p, w - 4 * p, h - 4 * p});
    if (w > spinnerWidth) txtUPDOWN.setWidth(w - spinnerWidth);
    txtUPDOWN.setHeight(lineHeight);
    txtUPDOWN.setTop(0.5 * (h - lineHeight));
    udnCTRL.move({2 * p, {0}, w - 6 * p, h - 4 * p});
    // Buttons at the left edge push their field aside.
    txtUPDOWN.setLeft(udnCTRL.buddyAlignment() == 0 ? Twips{0} : 2 * p + Spinner::buttonWidth);
    lblBACK.move({{0}, {0}, w, lineHeight});
}

void UpDownTextBox::exitFocus() {
    // Leaving the whole control always writes one decimal, whatever `AllowDecpoint` says; hosts know it so.
    checkRange(Pattern::onePlace);
    resize();
    txtBORDER.setFocused(false);
}

void UpDownTextBox::useAmbientFont(const FontRef& font) {
    followedFont_.follow(font, txtUPDOWN.font());
}

void UpDownTextBox::loadFont(const FontRef& font) {
    txtUPDOWN.setFont(font);
    followedFont_.took(font, ambientFont());
}

void UpDownTextBox::keyDown(KeyEvent& event) {
    const bool stepsUp = event.code == key::up || event.code == key::pageUp;
    const bool stepsDown = event.code == key::down || event.code == key::pageDown;
    if (stepsUp)
        stepUp();
    else if (stepsDown)
        stepDown();
    if (stepsUp || stepsDown) txtUPDOWN.setSelection({txtUPDOWN.selection().start, 0});
    KeyDown(event.code, event.shift);
    // The key has done its work; the text window would move its caret by it.
    if (stepsUp || stepsDown) event.code = 0;
}

void UpDownTextBox::stepUp() {
    attempt([&] { DownClick(); });
    attempt([&] { showStepped(interval_); });
    attempt([&] {
        if (const auto text = numeric_entry::clampedToMax(txtUPDOWN.text(), udnCTRL.Max, pattern()))
            txtUPDOWN.setText(*text);
    });
}

void UpDownTextBox::stepDown() {
    attempt([&] { UpClick(); });
    attempt([&] { showStepped(-interval_); });
    attempt([&] {
        if (const auto text = numeric_entry::clampedToMin(txtUPDOWN.text(), udnCTRL.Min, pattern()))
            txtUPDOWN.setText(*text);
    });
}

void UpDownTextBox::showStepped(double amount) {
    if (const auto text = numeric_entry::stepped(txtUPDOWN.text(), amount, pattern()))
        txtUPDOWN.setText(*text);
}

void UpDownTextBox::checkRange(Pattern writtenAs) {
    attempt([&] {
        if (const auto text = numeric_entry::clampedToMax(txtUPDOWN.text(), udnCTRL.Max, writtenAs))
            txtUPDOWN.setText(*text);
    });
    attempt([&] {
        if (const auto text = numeric_entry::clampedToMin(txtUPDOWN.text(), udnCTRL.Min, writtenAs))
            txtUPDOWN.setText(*text);
    });
}

void UpDownTextBox::applyBackColour(OleColour colour) {
    txtUPDOWN.setBackColour(colour);
    lblBACK.setBackColour(colour);
    txtBORDER.setBackColour(colour);
    picfraBOX.SetBackColor(colour);
}

void UpDownTextBox::enableChildren(bool enabled) {
    txtUPDOWN.setEnabled(enabled);
    cboHEIGHT.setEnabled(enabled);
    txtBORDER.setEnabled(enabled);
}

Pattern UpDownTextBox::pattern() const {
    return allowDecpoint_ ? Pattern::onePlace : Pattern::whole;
}

void UpDownTextBox::raiseMouse(const MouseRaised& event, const MouseEvent& mouse) {
    MouseArguments::inTwips(mouse, root().dpi()).raise(event);
}

}  // namespace obk
