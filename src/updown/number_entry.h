// How a person writes a number into a field, where a control that hosts the field has other rules for it.
#pragma once

#include "base/text.h"
#include "widgets/input.h"

#include <cstdint>
#include <optional>

namespace obk {

class TextBox;

// The hosting control claims the keys that it is about. The range of the field is not asked for.
class NumberEntry {
public:
    enum class Step : int8_t { down = -1, none = 0, up = 1 };

    // Which way a key steps.
    virtual Step stepOf(const KeyEvent& event) const = 0;
    // The text after a step; nothing where `text` does not step.
    virtual std::optional<Text> stepped(TextView text, Step step) const = 0;
    // What a typed character becomes before anyone hears of it; 0 discards it.
    virtual int16_t filtered(int16_t character, const TextBox& line) const = 0;
    // What is left to the window of a character that nobody has discarded; 0 where it is written here.
    virtual int16_t written(int16_t character, TextBox& line) const = 0;

protected:
    ~NumberEntry() = default;
};

}  // namespace obk
