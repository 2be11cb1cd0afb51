// What a control asks of the container it sits in.
#pragma once

#include "base/font.h"
#include "base/units.h"
#include "framework/value.h"
#include "widgets/input.h"

#include <cstdint>
#include <span>

namespace obk {

struct Member;

// Every function may re-enter the control, or end its life in the container; the caller holds the control
// alive.
class ControlHost {
public:
    // An event, by its table row. Arguments by reference come back as the container changed them.
    virtual void raise(const Member& event, std::span<Value> arguments) = 0;
    // A persisted value changed; `property` is null for one without a public property.
    virtual void propertyChanged(const Member* property) = 0;
    // Null when the container names none.
    virtual FontRef ambientFont() = 0;
    // Asks to be given another size. The container answers by sizing the control, or not at all.
    virtual void requestSize(Twips width, Twips height) = 0;
    // The focus came into the control's scope, or left it.
    virtual void focusChanged(bool inside) = 0;
    // A key that the control does not want, Tab above all; whether the container used it.
    virtual bool offerToContainer(const KeyEvent& event) = 0;
    // How the control looks has changed.
    virtual void viewChanged() = 0;
    // What the container calls the control; empty where it gives no name.
    virtual Text name() { return {}; }
    virtual bool rightToLeft() { return false; }
    // The form is being designed: nobody works with the control.
    virtual bool designMode() { return false; }
    // The control is called by other keys now; see Control::accessKeys.
    virtual void accessKeysChanged() {}

protected:
    ~ControlHost() = default;
};

}  // namespace obk
