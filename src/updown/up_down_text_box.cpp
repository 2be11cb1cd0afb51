#include "updown/up_down_text_box.h"

#include "base/attempt.h"
#include "base/scoped_value.h"
#include "framework/colours.h"
#include "framework/kxlib_system.h"
#include "framework/number_format.h"
#include "framework/value.h"
#include "framework/whole_line.h"
#include "updown/shift_color.h"
#include "widgets/text_line_keys.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace obk {

namespace {

constexpr KeyClaim stepKeys[] = {
    {key::up, key::up, shifts::withoutAlt, u"steps up"},
    {key::down, key::down, shifts::withoutAlt, u"steps down"},
    // With Ctrl they turn the pages of a form.
    keyClaim(key::pageUp, shifts::none | shifts::shift, u"steps up"),
    keyClaim(key::pageDown, shifts::none | shifts::shift, u"steps down"),
};

}  // namespace

UpDownTextBox::UpDownTextBox(Platform& platform)
    : Control(platform),
      txtBORDER(root()),
      picfraBOX(root()),
      lblBACK(picfraBOX),
      udnCTRL(picfraBOX),
      txtUPDOWN(picfraBOX),
      cboHEIGHT(picfraBOX) {
    applyBackColour(SystemColour::window);
    txtUPDOWN.setHoldsNumbers();
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
    on(txtUPDOWN.changed, [this] {
        showEnds();
        announceSurface(AccessibleEvent::value);
        attempt([&] { Change(); });
    });
    on(txtUPDOWN.clicked, [this] { attempt([&] { Click(); }); });
    on(txtUPDOWN.doubleClicked, [this] { attempt([&] { DblClick(); }); });
    on(txtUPDOWN.keyWentDown, [this](KeyEvent& event) { keyDown(event); });
    on(txtUPDOWN.characterTyped, [this](int16_t& character) {
        character =
            entry_ ? entry_->filtered(character, txtUPDOWN) : field_.filtered(character, txtUPDOWN.text());
        attempt([&] { KeyPress(character); });
        if (entry_) character = entry_->written(character, txtUPDOWN);
    });
    on(txtUPDOWN.keyWentUp, [this](KeyEvent& event) { attempt([&] { KeyUp(event.code, event.shift); }); });
    on(txtUPDOWN.mousePressed, [this](const MouseEvent& event) {
        resize();
        raiseMouse(MouseDown, event);
    });
    on(txtUPDOWN.mouseMoved, [this](const MouseEvent& event) { raiseMouse(MouseMove, event); });
    on(txtUPDOWN.mouseReleased, [this](const MouseEvent& event) { raiseMouse(MouseUp, event); });
    on(txtUPDOWN.focusCame, [this] {
        if (txtUPDOWN.enteredByKeys()) selectText();
    });
    on(txtUPDOWN.focusWent, [this] { holdInRange(field_.pattern()); });
    on(txtUPDOWN.wheelTurned, [this](const WheelEvent& event, bool& used) { used = udnCTRL.wheel(event); });
    on(txtUPDOWN.fontChanged, [this] {
        followedFont_.changed();
        attempt([&] { cboHEIGHT.setFont(txtUPDOWN.font()->description()); });
        if (!settingFont_) showFont();
    });
    on(udnCTRL.mousePressed, [this](const MouseEvent& event) {
        // As with any field, pressing its buttons brings the keyboard to it.
        txtUPDOWN.takeFocus();
        raiseMouse(MouseDown, event);
    });
    on(udnCTRL.increased, [this] { stepUp(); });
    on(udnCTRL.decreased, [this] { stepDown(); });
}

void UpDownTextBox::setEntry(const NumberEntry& entry) {
    entry_ = &entry;
    txtUPDOWN.centreAbove(1);
    resize();
}

void UpDownTextBox::SetAlignment(int32_t Alignment) {
    txtUPDOWN.setAlignment(Alignment);
    PropertyChanged<&UpDownTextBox::Alignment>();
}

void UpDownTextBox::SetAllowArrowKeys(bool AllowArrowKeys) {
    udnCTRL.setAllowArrowKeys(AllowArrowKeys);
    PropertyChanged<&UpDownTextBox::AllowArrowKeys>();
}

void UpDownTextBox::SetAllowDecpoint(bool AllowDecpoint) {
    field_.AllowDecpoint = AllowDecpoint;
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
    announceSurface(AccessibleEvent::state);
    PropertyChanged<&UpDownTextBox::Enabled>();
    resize();
}

void UpDownTextBox::SetFont(const FontRef& Font) {
    {
        const ScopedFlag setting(settingFont_);
        attempt([&] { txtUPDOWN.setFont(Font); });
    }
    showFont();
}

void UpDownTextBox::SetForeColor(OleColour ForeColor) {
    txtUPDOWN.setForeColour(ForeColor);
    PropertyChanged<&UpDownTextBox::ForeColor>();
}

void UpDownTextBox::SetInterval(double Interval) {
    field_.Interval = Interval;
    PropertyChanged<&UpDownTextBox::Interval>();
}

void UpDownTextBox::SetMax(int32_t Max) {
    field_.Max = Max;
    showEnds();
    PropertyChanged<&UpDownTextBox::Max>();
}

void UpDownTextBox::SetMaxLength(int32_t MaxLength) {
    txtUPDOWN.setMaxLength(MaxLength);
    PropertyChanged<&UpDownTextBox::MaxLength>();
}

void UpDownTextBox::SetMin(int32_t Min) {
    field_.Min = Min;
    showEnds();
    PropertyChanged<&UpDownTextBox::Min>();
}

void UpDownTextBox::SetSyncBuddy(bool SyncBuddy) {
    field_.SyncBuddy = SyncBuddy;
    PropertyChanged<&UpDownTextBox::SyncBuddy>();
}

void UpDownTextBox::SetText(const obk::Text& Text) {
    attempt([&] { txtUPDOWN.setText(Text); });
    PropertyChanged<&UpDownTextBox::Text>();
}

void UpDownTextBox::SetThousandsSeparator(bool ThousandsSeparator) {
    field_.ThousandsSeparator = ThousandsSeparator;
    PropertyChanged<&UpDownTextBox::ThousandsSeparator>();
}

void UpDownTextBox::Refresh() {
    resize();
    udnCTRL.invalidate();
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

    attempt([&] {
        const FontDescription& shown = txtUPDOWN.font()->description();
        FontDescription reference = cboHEIGHT.font();
        reference.name = shown.name;
        reference.size = std::round(shown.size);
        cboHEIGHT.setFont(reference);
    });

    txtBORDER.move({{0}, {0}, w, h});
    picfraBOX.move({2 * p, 2 * p, w - 4 * p, h - 4 * p});
    udnCTRL.move({2 * p, {0}, w - 6 * p, h - 4 * p});
    // Buttons at the left edge push their field aside.
    const Twips left = udnCTRL.buddyAlignment() == 0 ? Twips{0} : 2 * p + Spinner::buttonWidth;
    const Twips fieldWidth = w > spinnerWidth ? w - spinnerWidth : txtUPDOWN.bounds().width;
    if (entry_)
        txtUPDOWN.move({left - 2 * p, Twips{0} - 2 * p, fieldWidth + 2 * p, h});
    else
        txtUPDOWN.move(wholeLine(txtUPDOWN, {left, 0.5 * (h - lineHeight), fieldWidth, lineHeight}));
    lblBACK.move({{0}, {0}, w, lineHeight});
}

AccessibleItem UpDownTextBox::describeSurface() const {
    using Kind = AccessibleAction::Kind;
    AccessibleItem item = Control::describeSurface();
    item.role = AccessibleItem::Role::spinner;
    item.value = txtUPDOWN.text();
    item.set(AccessibleItem::valued);
    item.set(AccessibleItem::focusable);
    item.set(AccessibleItem::disabled, !Enabled());
    item.range = {numberFromText(item.value).value_or(0), static_cast<double>(field_.Min),
                  static_cast<double>(field_.Max), field_.Interval};
    item.allow(Kind::write, Kind::focus);
    // Who types here sets no bounds.
    constexpr double farthest = 1e15;
    if (entry_)
        item.range = {item.range->value, -farthest, farthest, 1};
    else
        item.allow(Kind::set);
    return item;
}

void UpDownTextBox::useSurface(const AccessibleAction& action) {
    switch (action.kind) {
        case AccessibleAction::Kind::write:
            return txtUPDOWN.setText(action.text);
        case AccessibleAction::Kind::set:
            return write(fixedText(std::max<double>(field_.Min, std::min<double>(action.number, field_.Max)),
                                   field_.AllowDecpoint ? 1 : 0));
        default:
            txtUPDOWN.takeFocus();
    }
}

void UpDownTextBox::exitFocus() {
    // A bound is written with one decimal here, whatever `AllowDecpoint` says: meant so.
    holdInRange(NumericField::Pattern::onePlace);
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

std::span<const KeyGroup> UpDownTextBox::keyGroups() const {
    static constexpr KeyGroup groups[] = {{{}, 0, textLineKeys}, {{}, 0, stepKeys}};
    if (entry_) return {};
    return groups;
}

void UpDownTextBox::keyDown(KeyEvent& event) {
    const bool stepped = step(event);
    if (stepped) txtUPDOWN.setSelection({txtUPDOWN.selection().start, 0});
    attempt([&] { KeyDown(event.code, event.shift); });
    // The key has done its work; the text window would move its caret by it.
    if (stepped) event.code = 0;
}

bool UpDownTextBox::step(const KeyEvent& event) {
    using Step = NumberEntry::Step;
    const bool up = event.code == key::up || event.code == key::pageUp;
    const Step by = entry_                        ? entry_->stepOf(event)
                    : !isClaimed(event, stepKeys) ? Step::none
                    : up                          ? Step::up
                                                  : Step::down;
    if (by == Step::up) stepUp();
    if (by == Step::down) stepDown();
    return by != Step::none;
}

void UpDownTextBox::stepUp() {
    attempt([&] { DownClick(); });
    if (entry_) {
        attempt([&] { write(entry_->stepped(txtUPDOWN.text(), NumberEntry::Step::up)); });
        return;
    }
    attempt([&] { write(field_.increased(txtUPDOWN.text())); });
    attempt([&] { write(field_.heldByMax(txtUPDOWN.text(), field_.pattern())); });
}

void UpDownTextBox::stepDown() {
    attempt([&] { UpClick(); });
    if (entry_) {
        attempt([&] { write(entry_->stepped(txtUPDOWN.text(), NumberEntry::Step::down)); });
        return;
    }
    attempt([&] { write(field_.decreased(txtUPDOWN.text())); });
    attempt([&] { write(field_.heldByMin(txtUPDOWN.text(), field_.pattern())); });
}

void UpDownTextBox::holdInRange(NumericField::Pattern writtenAs) {
    if (entry_) return;
    attempt([&] { write(field_.heldByMax(txtUPDOWN.text(), writtenAs)); });
    attempt([&] { write(field_.heldByMin(txtUPDOWN.text(), writtenAs)); });
}

void UpDownTextBox::write(const std::optional<obk::Text>& text) {
    if (text) txtUPDOWN.setText(*text);
}

void UpDownTextBox::showFont() {
    resize();
    PropertyChanged<&UpDownTextBox::Font>();
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

void UpDownTextBox::raiseMouse(const MouseRaised& event, const MouseEvent& mouse) {
    attempt([&] { MouseArguments::inTwips(mouse, root().dpi()).raise(event); });
}

}  // namespace obk
