#include "grid/edit_session.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace obk {

// The names of failures.
void PrintTo(EditAction action, std::ostream* out) {
    *out << "action " << static_cast<int>(action);
}

namespace {

using enum EditAction;

constexpr EditState cells{}, lastRow{EditPlace::cells, true, true}, fixed{EditPlace::cells, false, true},
    editor{EditPlace::line, true, false}, editorOnLastRow{EditPlace::line, true, true},
    opened{EditPlace::line, true, false, true}, mark{EditPlace::mark, true, false},
    list{EditPlace::list, true, false};
constexpr int16_t none_ = 0, shift_ = shift::shift, control_ = shift::control, alt_ = shift::alt,
                  altGr = shift::control | shift::alt;

TEST(EditSession, EachKeyHasOneMeaningInEachState) {
    struct Row {
        int16_t key, shift;
        EditAction inCells, onLastRow, whereNothingIsEdited, inEditor, inEditorOnLastRow;
    };
    const Row rows[] = {
        {key::enter, none_, goOn, addRowAndGoOn, goOn, goOn, addRowAndGoOn},
        {key::enter, control_, goOn, addRowAndGoOn, goOn, goOn, addRowAndGoOn},
        {key::enter, shift_, goBack, goBack, goBack, goBack, goBack},
        {key::escape, none_, commit, commit, commit, commit, commit},
        {key::tab, none_, nextCell, nextCell, nextCell, nextCell, nextCell},
        {key::tab, shift_, previousCell, previousCell, previousCell, previousCell, previousCell},
        {key::tab, control_, none, none, none, none, none},
        {key::down, none_, none, addRow, none, leave, leave},
        {key::down, shift_, none, none, none, none, none},
        {key::up, none_, none, none, none, leave, leave},
        {key::home, none_, none, none, none, none, none},
        {key::pageDown, none_, none, none, none, leave, leave},
        {key::f2, none_, openAtEnd, openAtEnd, none, none, none},
        {key::f4, none_, none, none, none, none, none},
        {key::insert, none_, insertRow, insertRow, none, none, none},
        {key::insert, control_, none, none, none, none, none},
        {key::insert, shift_, paste, paste, none, none, none},
        {key::deleteKey, none_, deleteRows, deleteRows, none, none, none},
        {key::deleteKey, shift_, cut, cut, none, none, none},
        {'V', control_, paste, paste, none, none, none},
        {'X', control_, cut, cut, none, none, none},
        {'A', control_, selectAll, selectAll, selectAll, none, none},
        {'D', control_, fillDown, fillDown, none, none, none},
        {'Z', control_, undo, undo, none, none, none},
        {'Y', control_, redo, redo, none, none, none},
        {'C', control_, none, none, none, none, none},
        {'V', alt_, none, none, none, none, none},
        {'Q', altGr, none, none, none, none, none},
        {key::backspace, none_, open, open, none, none, none},
        {key::space, none_, open, open, none, none, none},
        {'V', none_, open, open, none, none, none},
        {'V', shift_, open, open, none, none, none},
        {key::menu, none_, none, none, none, none, none},
        {key::add, control_, fitColumn, fitColumn, fitColumn, none, none},
        {key::left, alt_, narrowColumn, narrowColumn, narrowColumn, none, none},
        {key::up, alt_, pressCaption, pressCaption, pressCaption, none, none},
    };
    for (const Row& row : rows) {
        const KeyEvent event{row.key, row.shift, false};
        const auto is = [&](const EditState& state) { return editAction(event, state); };
        EXPECT_EQ(is(cells), row.inCells) << row.key << " " << row.shift;
        EXPECT_EQ(is(lastRow), row.onLastRow) << row.key << " " << row.shift;
        EXPECT_EQ(is(fixed), row.whereNothingIsEdited) << row.key << " " << row.shift;
        EXPECT_EQ(is(editor), row.inEditor) << row.key << " " << row.shift;
        EXPECT_EQ(is(editorOnLastRow), row.inEditorOnLastRow) << row.key << " " << row.shift;
    }
}

TEST(EditSession, TheEditorHasAShareInWhatAKeyMeans) {
    for (const auto& [code, inOpened] :
         {std::pair<int16_t, EditAction>{'V', pasteBlock}, {'Z', undo}, {'Y', redo}}) {
        EXPECT_EQ(editAction({code, control_, false}, opened), inOpened) << code;
        EXPECT_EQ(editAction({code, control_, false}, editor), none) << code;
    }
    for (const int16_t code : {key::left, key::right, key::up, key::down, key::pageUp}) {
        EXPECT_EQ(editAction({code, 0, false}, mark), leave) << code;
        EXPECT_EQ(editAction({code, 0, false}, list), none) << code << ": it chooses an item";
    }
    for (const int16_t code : {key::up, key::down}) EXPECT_EQ(editAction({code, alt_, false}, editor), none);
}

TEST(EditSession, AHeldKeyAddsAndDeletesOneRow) {
    const std::pair<int16_t, EditAction> rows[] = {{key::enter, goOn},
                                                   {key::down, none},
                                                   {key::insert, none},
                                                   {key::deleteKey, none},
                                                   {int16_t{'X'}, open}};
    for (const auto& [code, action] : rows) EXPECT_EQ(editAction({code, 0, true}, lastRow), action) << code;
}

TEST(EditSession, WhatTypesNothingOpensNothing) {
    std::set<int16_t> opening;
    for (int16_t code = 1; code < 255; ++code) {
        if (editAction({code, 0, false}, cells) == open) opening.insert(code);
    }
    for (const int16_t code :
         std::initializer_list<int16_t>{12, 16, 17, 18, 19,  20,  21,  25,  28,  29,  31,  35, 39,
                                        44, 91, 92, 93, 112, 123, 144, 145, 173, 240, 243, 244})
        EXPECT_EQ(opening.count(code), 0u) << code;
    // Letters, digits, the number pad, punctuation, an input method's keys.
    for (const int16_t code :
         std::initializer_list<int16_t>{8, 32, 48, 65, 90, 96, 107, 111, 186, 191, 222, 226, 229, 231})
        EXPECT_EQ(opening.count(code), 1u) << code;
}

TEST(EditSession, CharactersWithoutAKeyOfTheirOwnOpenAnEditor) {
    for (const char16_t typed : {u' ', u'@', u'\u20AC', u'\u65E5', u'\xFF5E'})
        EXPECT_TRUE(opensEditor(static_cast<int16_t>(typed))) << static_cast<int>(typed);
    for (const int16_t control : std::initializer_list<int16_t>{0, 8, 9, 13, 22, 27, 127})
        EXPECT_FALSE(opensEditor(control)) << control;
}

}  // namespace
}  // namespace obk
