// Ends the creation of a control once its own class is complete.
#pragma once

namespace obk {

class Control;

class ControlFactory {
public:
    static void start(Control& control);
};

}  // namespace obk
