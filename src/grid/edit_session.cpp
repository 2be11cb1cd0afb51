#include "grid/edit_session.h"

#include <algorithm>
#include <iterator>

namespace obk {

namespace {

constexpr int16_t anyShift = -1;
constexpr uint8_t inCells = 1, inEditor = 2, everywhere = inCells | inEditor;

struct Rule {
    int16_t key;
    int16_t shift;
    uint8_t places;
    bool changes;  // what is shown: only where that is allowed
    EditAction action;
};

constexpr Rule rules[] = {
    {key::escape, anyShift, everywhere, false, EditAction::commit},
    {key::enter, anyShift, everywhere, false, EditAction::goOn},
    {key::tab, 0, everywhere, false, EditAction::nextCell},
    {key::tab, shift::shift, everywhere, false, EditAction::previousCell},
    {key::down, 0, inCells, true, EditAction::addRow},
    {key::f2, 0, inCells, true, EditAction::openAtEnd},
    {key::insert, 0, inCells, true, EditAction::insertRow},
    {key::insert, shift::shift, inCells, true, EditAction::paste},
    {key::deleteKey, 0, inCells, true, EditAction::deleteRow},
    {'V', shift::control, inCells, true, EditAction::paste},
    {'Z', shift::control, inCells, true, EditAction::undo},
};

struct KeyRange {
    int16_t first, last;
};

// Keys that move, command, or only change others: everything else is typed.
constexpr KeyRange notTyped[] = {
    {3, 3},                    // Cancel
    {12, 12},                  // Clear
    {16, 20},                  // Shift, Ctrl, Alt, Pause, Caps Lock
    {key::pageUp, key::down},  // with End, Home and the arrows
    {41, key::deleteKey},      // Select, Print, Execute, Print Screen, Insert
    {91, 93},                  // Windows keys and the menu key
    {95, 95},                  // Sleep
    {112, 135},                // function keys
    {144, 145},                // Num Lock, Scroll Lock
    {160, 183},                // one side's Shift, Ctrl and Alt; browsers, volume, media, programs
};

bool isTyped(const KeyEvent& event) {
    // AltGr types characters; they open the editor when they come.
    if ((event.shift & (shift::control | shift::alt)) != 0 || event.code <= 0) return false;
    return std::none_of(std::begin(notTyped), std::end(notTyped), [&event](const KeyRange& range) {
        return event.code >= range.first && event.code <= range.last;
    });
}

}  // namespace

EditAction editAction(const KeyEvent& event, const EditState& state) {
    const uint8_t place = state.place == EditPlace::cells ? inCells : inEditor;
    const auto* const rule = std::find_if(std::begin(rules), std::end(rules), [&](const Rule& each) {
        return each.key == event.code && (each.shift == anyShift || each.shift == event.shift) &&
               (each.places & place) != 0;
    });
    if (rule == std::end(rules))
        return place == inCells && state.editable && isTyped(event) ? EditAction::open : EditAction::none;
    if (rule->changes && !state.editable) return EditAction::none;
    // A key that is held adds and deletes one row.
    switch (rule->action) {
        case EditAction::goOn:
            return state.onLastRow && state.editable && !event.repeated ? EditAction::addRowAndGoOn
                                                                        : EditAction::goOn;
        case EditAction::addRow:
            return state.onLastRow && !event.repeated ? EditAction::addRow : EditAction::none;
        case EditAction::insertRow:
        case EditAction::deleteRow:
            return event.repeated ? EditAction::none : rule->action;
        default:
            return rule->action;
    }
}

bool opensEditor(int16_t character) {
    constexpr int16_t firstPrintable = 32, controlBackspace = 127;
    // Units beyond the signed range are negative here.
    return (character >= firstPrintable || character < 0) && character != controlBackspace;
}

}  // namespace obk
