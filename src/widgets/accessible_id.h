// What a screen reader can speak of: one thing on a surface, what is done to it, what happens to it.
#pragma once

#include "base/text.h"

#include <cstdint>

namespace obk {

class Widget;

// A part of a widget that is no widget itself: an item by its row, or a cell in it. Without a row: the widget
// as a whole.
struct AccessiblePart {
    int32_t row = -1, col = -1;

    bool whole() const { return row < 0; }
    friend bool operator==(AccessiblePart, AccessiblePart) = default;
};

// Names one thing as long as its widget lives; see AccessibleTree::has.
struct AccessibleId {
    Widget* widget = nullptr;
    AccessiblePart part;

    explicit operator bool() const { return widget != nullptr; }
    friend bool operator==(const AccessibleId&, const AccessibleId&) = default;
};

// What can be done, on behalf of a person. `text` is what is written, `number` the value or position set.
struct AccessibleAction {
    enum class Kind : uint8_t { press, toggle, select, extend, expand, collapse, focus, show, write, set };
    Kind kind = Kind::press;
    Text text;
    double number = 0;
};

enum class AccessibleEvent : uint8_t {
    focus,
    selection,
    value,
    name,
    state,
    expanded,
    structure,
    invoked,
    toggled,
    scrolledAcross,
    scrolledDown,
    extended,  // the selection, to where it ends now
};

}  // namespace obk
