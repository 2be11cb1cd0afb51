// The keys that a control has to do with, while it has the keyboard and from elsewhere on its form.
#pragma once

#include "base/text.h"
#include "framework/key_group.h"
#include "widgets/input.h"

#include <cstdint>
#include <span>

namespace obk {

class ControlKeys {
public:
    // While it has the keyboard: all others are its container's, and have their effect once nobody else has
    // used them. A control inside it has its own.
    virtual std::span<const KeyGroup> keyGroups() const { return {}; }
    // The states that hold now, a bit each, as the groups name them.
    virtual uint16_t keyStates() const { return 0; }

    // Letters that call the control, with Alt, from wherever the keyboard is on its form; upper case.
    virtual Text accessKeys() const { return {}; }
    virtual void useAccessKey(char16_t) {}
    // Other keys that call it from there.
    virtual std::span<const KeyEvent> formKeys() const { return {}; }
    virtual void useFormKey(const KeyEvent&) {}

protected:
    ~ControlKeys() = default;
};

}  // namespace obk
