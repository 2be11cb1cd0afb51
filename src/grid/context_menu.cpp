#include "grid/context_menu.h"

namespace obk {

namespace {

constexpr MenuLine lines[] = {
    {EditAction::undo, u"&Undo\tCtrl+Z"},
    {EditAction::redo, u"&Redo\tCtrl+Y"},
    {},
    {EditAction::cut, u"Cu&t\tCtrl+X"},
    {EditAction::copy, u"&Copy\tCtrl+C"},
    {EditAction::paste, u"&Paste\tCtrl+V"},
    {},
    {EditAction::insertRow, u"&Insert row\tIns"},
    {EditAction::deleteRows, u"&Delete row\tDel"},
    {},
    {EditAction::fitColumn, u"&Fit column\tCtrl++"},
};

bool enabled(EditAction action, const MenuState& state) {
    switch (action) {
        case EditAction::copy:
        case EditAction::fitColumn:
            return true;
        case EditAction::paste:
            return state.editable && state.hasClipboard;
        case EditAction::undo:
            return state.editable && state.hasUndo;
        case EditAction::redo:
            return state.editable && state.hasRedo;
        default:
            return state.editable;
    }
}

}  // namespace

std::span<const MenuLine> contextMenuLines() {
    return lines;
}

std::vector<MenuItem> contextMenu(const MenuState& state) {
    std::vector<MenuItem> items;
    for (const MenuLine& line : lines)
        items.push_back({Text(line.caption), enabled(line.action, state), false});
    return items;
}

}  // namespace obk
