// The ambient properties that a form offers to the controls on it.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <map>
#include <vector>

#include "container/variant.h"

namespace obk::container {

// The system's message font, in a part of its size.
ComPtr<IDispatch> messageFont(int percent);

// Values by their DISPID_AMBIENT_* number. Starts with what a form of ordinary colours in run mode
// offers; the font is the form's.
class AmbientProperties {
public:
    AmbientProperties();

    // Sets a value; the control is told by ControlSite::ambientChanged.
    void set(DISPID number, Variant value);
    // Empty when the container does not know it.
    Variant value(DISPID number) const;

    HRESULT read(DISPID number, VARIANT* result);

private:
    std::map<DISPID, Variant> values_;
};

}  // namespace obk::container
