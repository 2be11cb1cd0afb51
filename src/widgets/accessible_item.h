// What a screen reader is told of a part that has no window of its own.
#pragma once

#include "base/text.h"
#include "base/units.h"

namespace obk {

struct AccessibleItem {
    enum class Role {
        client,
        button,
        staticText,
        separator,
        listItem,
        graphic,
        pageTabList,
        pageTab,
        columnHeader
    };
    Role role = Role::client;
    Text name;
    Text value;
    PixelRect bounds;  // on the surface
    bool enabled = true;
    bool pressed = false;  // of a list item or a page tab: chosen
};

}  // namespace obk
