// How a person types a number into a cell: the sign, the decimal separator, steps that keep all decimals.
#pragma once

#include "updown/number_entry.h"

namespace obk {

class NumberTyping final : public NumberEntry {
public:
    // What the user's keyboard has for the point that cells hold.
    void setDecimalSeparator(char16_t separator) { decimalSeparator_ = separator; }

    Step stepOf(const KeyEvent& event) const override;
    // An empty text steps from 0. More digits than a number keeps exactly do not step.
    std::optional<Text> stepped(TextView text, Step step) const override;
    // Digits, one point or decimal separator, the minus sign.
    int16_t filtered(int16_t character, const TextBox& line) const override;
    // The minus sign turns that of the whole number, wherever the caret is; nothing is written before it.
    int16_t written(int16_t character, TextBox& line) const override;

private:
    char16_t decimalSeparator_ = u'.';
};

// A number as cells hold it, out of one as the user writes it: a comma that is the decimal separator becomes
// a point, points before it go. Nothing for what is no number.
std::optional<Text> numberCellText(TextView text, char16_t decimalSeparator);

}  // namespace obk
