// The ambient properties that a form offers to the controls on it.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <map>
#include <vector>

#include "container/variant.h"

namespace obk::container {

// Values by their DISPID_AMBIENT_* number. Starts with what a form of ordinary colours in run mode
// offers; the font is the system's message font.
class AmbientProperties {
public:
    AmbientProperties();

    // Sets a value; the control is told by ControlSite::ambientChanged.
    void set(DISPID number, Variant value);
    // From now on the container does not know the property.
    void remove(DISPID number);
    // Empty when the container does not know it.
    Variant value(DISPID number) const;

    // The numbers that controls have asked for, in order, unknown ones too.
    const std::vector<DISPID>& asked() const { return asked_; }

    HRESULT read(DISPID number, VARIANT* result);

private:
    std::map<DISPID, Variant> values_;
    std::vector<DISPID> asked_;
};

}  // namespace obk::container
