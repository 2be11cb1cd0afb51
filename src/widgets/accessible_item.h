// What screen readers and magnifiers are told of one thing on a surface.
#pragma once

#include "base/units.h"
#include "widgets/accessible_id.h"

#include <optional>

namespace obk {

struct AccessibleItem {
    enum class Role : uint8_t {
        none,  // what is in it stands in its place
        client,
        button,
        splitButton,
        staticText,
        edit,
        checkBox,
        spinner,
        comboBox,
        separator,
        graphic,
        list,
        listItem,
        pageTabList,
        pageTab,
        calendar,
        grid,
        row,
        cell,
        header,
        columnHeader,
        scrollBar,
    };
    enum State : uint32_t {
        disabled = 1,
        focusable = 2,
        focused = 4,
        selectable = 8,
        selected = 16,
        pressed = 32,
        checked = 64,
        expandable = 128,
        expanded = 256,
        readOnly = 512,
        offScreen = 1024,
        multiSelectable = 2048,
        valued = 4096,  // the value is one, also when it is empty
        checkable = 8192,
    };
    struct Range {
        double value = 0, least = 0, most = 0, step = 1;
    };
    // In percent of what can be scrolled; a position below 0 where there is nothing to scroll.
    struct Scroll {
        double across = -1, down = -1, shownAcross = 100, shownDown = 100;
    };

    Role role = Role::none;
    Text name;
    Text value;
    Text help;
    Text accessKey;
    PixelRect bounds{};  // on the surface; empty where it does not show
    uint32_t states = 0;
    uint32_t actions = 0;               // a bit for each kind
    int32_t position = 0, setSize = 0;  // from 1; 0 for what is in no set
    int32_t row = -1, col = -1;         // of a cell
    int32_t rows = 0, cols = 0;         // of what has cells
    std::optional<Range> range{};
    std::optional<Scroll> scroll{};
    uintptr_t window = 0;  // of its own, which the system describes

    bool is(State state) const { return (states & state) != 0; }
    void set(State state, bool on = true) { states = on ? states | state : states & ~uint32_t{state}; }
    void disable() {
        states = (states | disabled) & ~uint32_t{focusable | focused};
        actions = 0;
    }
    bool can(AccessibleAction::Kind kind) const { return (actions >> static_cast<uint32_t>(kind) & 1) != 0; }
    template <typename... Kinds>
    void allow(Kinds... kinds) {
        actions |= ((1u << static_cast<uint32_t>(kinds)) | ...);
    }
};

// Leaves of a name what can be said of it.
void makeSpoken(Text& name);

}  // namespace obk
