// An example in Basic of everything that a control has: each property and method once, with what it answers.
#pragma once

#include "framework/control.h"

namespace obk {

// Runs in a script host as it stands. The control does all that the example does, so that what it answers is
// known: `answer = grid.RowsCurrent    ' "3"`. What depends on fonts, the mouse or a window has no answer
// there.
Text writeExample(Control& fresh);

}  // namespace obk
