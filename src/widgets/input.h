// What the user does: keys, mouse buttons, the wheel, dropping.
#pragma once

#include "base/opaque_object.h"
#include "base/units.h"

#include <cstdint>

namespace obk {

// Bits of the shift state, in the numbering that hosts know.
namespace shift {
constexpr int16_t shift = 1;
constexpr int16_t control = 2;
constexpr int16_t alt = 4;
}  // namespace shift

// Mouse buttons, in the numbering that hosts know; a move carries the sum of those held.
namespace button {
constexpr int16_t left = 1;
constexpr int16_t right = 2;
constexpr int16_t middle = 4;
}  // namespace button

// Virtual key codes that rules ask for by name.
namespace key {
constexpr int16_t backspace = 8;
constexpr int16_t tab = 9;
constexpr int16_t enter = 13;
constexpr int16_t escape = 27;
constexpr int16_t space = 32;
constexpr int16_t pageUp = 33;
constexpr int16_t pageDown = 34;
constexpr int16_t end = 35;
constexpr int16_t home = 36;
constexpr int16_t left = 37;
constexpr int16_t up = 38;
constexpr int16_t right = 39;
constexpr int16_t down = 40;
constexpr int16_t insert = 45;
constexpr int16_t deleteKey = 46;
constexpr int16_t menu = 93;
constexpr int16_t add = 107;  // on the number pad
constexpr int16_t f2 = 113;
constexpr int16_t f4 = 115;
constexpr int16_t f10 = 121;
constexpr int16_t plus = 187;

// As in a mirror: the arrows to the sides change places.
constexpr int16_t mirrored(int16_t code) {
    return code == left ? right : code == right ? left : code;
}
}  // namespace key

// One key going down or up. A listener that sets `code` to 0 discards the key.
struct KeyEvent {
    int16_t code = 0;       // virtual key code
    int16_t shift = 0;      // shift:: bits
    bool repeated = false;  // the key was down already
    // Ctrl and Alt are held, which for this key of the user's keyboard means a character and no command.
    bool typesWithAltGr = false;
};

struct MouseEvent {
    enum class Kind { down, up, move, doubleClick, leave };
    Kind kind = Kind::move;
    int16_t button = 0;  // of down, up, doubleClick: the button; of move: the sum of those held
    int16_t shift = 0;
    PixelPoint at;  // relative to the receiver's client area; outside it while captured
};

enum class ToolTipShown : uint8_t { whenMouseRests, atOnce };

struct WheelEvent {
    int32_t delta = 0;  // 120 a notch, positive away from the user; fine-grained wheels send less
    bool horizontal = false;
    int16_t shift = 0;
    PixelPoint at;
};

// What becomes of data that is dropped, in the numbering that hosts know.
namespace drop_effect {
constexpr int32_t none = 0;
constexpr int32_t copy = 1;
constexpr int32_t move = 2;
constexpr int32_t link = 4;
}  // namespace drop_effect

// Something that was dragged from anywhere is let go.
struct DropEvent {
    ObjectRef data;
    int32_t effect = 0;  // the sum of what its source allows; whoever takes it leaves what it has done
    int16_t button = 0;  // which it was dragged with
    int16_t shift = 0;
    PixelPoint at;
};

// Who gets a key that the container offers to the control first.
enum class KeyRoute {
    handled,    // the control has used it
    child,      // it belongs to the focused child's window: dispatch it there
    container,  // the control does not want it: dialog navigation, accelerators
};

enum class Cursor { arrow, hand, sizeColumn };

}  // namespace obk
