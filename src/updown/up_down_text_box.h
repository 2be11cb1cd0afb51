// A numeric text box with a spinner: typing is filtered, keys and buttons step, the value is held in its
// range.
#pragma once

#include "framework/control.h"
#include "framework/followed_font.h"
#include "framework/mouse_arguments.h"
#include "updown/number_entry.h"
#include "updown/numeric_field.h"
#include "widgets/decoration.h"
#include "widgets/spinner.h"
#include "widgets/text_box.h"

#include <vector>

namespace obk {

class UpDownTextBox final : public Control {
public:
    explicit UpDownTextBox(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    // Properties. What a child shows is read from it and written to it, what the text obeys from the model;
    // units, ranges and keys stand in the table.
    int32_t Alignment() const { return txtUPDOWN.alignment(); }
    void SetAlignment(int32_t Alignment);
    bool AllowArrowKeys() const { return udnCTRL.allowArrowKeys(); }
    void SetAllowArrowKeys(bool AllowArrowKeys);
    bool AllowDecpoint() const { return field_.AllowDecpoint; }
    void SetAllowDecpoint(bool AllowDecpoint);
    OleColour BackColor() const { return txtUPDOWN.backColour(); }
    void SetBackColor(OleColour BackColor);
    int32_t BorderStyle() const { return txtBORDER.borderStyle(); }
    void SetBorderStyle(int32_t BorderStyle);
    int32_t BuddyAlignment() const { return udnCTRL.buddyAlignment(); }
    void SetBuddyAlignment(int32_t BuddyAlignment);
    bool Enabled() const { return udnCTRL.enabled(); }
    void SetEnabled(bool Enabled);
    FontRef Font() const { return txtUPDOWN.font(); }
    void SetFont(const FontRef& Font);
    OleColour ForeColor() const { return txtUPDOWN.foreColour(); }
    void SetForeColor(OleColour ForeColor);
    double Interval() const { return field_.Interval; }
    void SetInterval(double Interval);
    int32_t Max() const { return field_.Max; }
    void SetMax(int32_t Max);
    int32_t MaxLength() const { return txtUPDOWN.maxLength(); }
    void SetMaxLength(int32_t MaxLength);
    int32_t Min() const { return field_.Min; }
    void SetMin(int32_t Min);
    bool SyncBuddy() const { return field_.SyncBuddy; }
    void SetSyncBuddy(bool SyncBuddy);
    obk::Text Text() const { return txtUPDOWN.text(); }
    void SetText(const obk::Text& Text);
    bool ThousandsSeparator() const { return field_.ThousandsSeparator; }
    void SetThousandsSeparator(bool ThousandsSeparator);

    // Methods.
    int32_t DecimalpointCheck(const obk::Text& Number) { return NumericField::DecimalpointCheck(Number); }
    uint8_t KeyLock(int32_t KeyAscii, bool Extra_Check, obk::Text& Extra_sText) {
        return NumericField::KeyLock(KeyAscii, Extra_Check, Extra_sText);
    }
    void Refresh();
    void RefreshFont() { resize(); }  // which takes over the font's name and size
    int32_t ShiftColor(int32_t Color, int32_t amount, bool IsXP);

    // For a control that hosts this one over a text: its own rules for what a person writes, borrowed and
    // outliving the field, whose text then stands in the middle as that one does. What is typed next replaces
    // the text.
    void setEntry(const NumberEntry& entry);
    void selectText() { txtUPDOWN.setSelection({0, static_cast<int32_t>(txtUPDOWN.text().size())}); }

    std::span<const KeyGroup> keyGroups() const override;

    // Events.
    Event<> Change, Click, DblClick;
    Event<> DownClick, UpClick;  // before an increasing, before a decreasing step: the pairing is meant
    Event<int16_t&, int16_t&> KeyDown, KeyUp;                                 // KeyCode, Shift
    Event<int16_t&> KeyPress;                                                 // KeyAscii
    Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;  // Button, Shift, X, Y in twips

private:
    void initialize() override;
    void loaded() override;
    void resize() override;
    void enterFocus() override { txtBORDER.setFocused(true); }
    void exitFocus() override;
    void useAmbientFont(const FontRef& font) override;
    bool mirrorsItself() const override { return true; }
    AccessibleItem describeSurface() const override;
    void useSurface(const AccessibleAction& action) override;

    void connectChildren();
    void keyDown(KeyEvent& event);
    void showEnds() { udnCTRL.setEnds(field_.atMax(txtUPDOWN.text()), field_.atMin(txtUPDOWN.text())); }
    bool step(const KeyEvent& event);
    void stepUp();
    void stepDown();
    void holdInRange(NumericField::Pattern writtenAs);
    void write(const std::optional<obk::Text>& text);
    void applyBackColour(OleColour colour);
    void enableChildren(bool enabled);
    void loadEnabled(bool enabled) { udnCTRL.setEnabled(enabled); }
    void loadFont(const FontRef& font);
    void showFont();
    void raiseMouse(const MouseRaised& event, const MouseEvent& mouse);

    Frame txtBORDER;
    Container picfraBOX;
    Label lblBACK;
    Spinner udnCTRL;
    TextBox txtUPDOWN;
    ReferenceCombo cboHEIGHT;

    NumericField field_;
    const NumberEntry* entry_ = nullptr;
    FollowedFont followedFont_;
    bool settingFont_ = false;
    std::vector<Connection> connections_;
};

}  // namespace obk
