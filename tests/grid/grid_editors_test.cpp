#include "grid_edit_fixture.h"

#include "grid/cell_values.h"
#include "grid/context_menu.h"
#include "platform/headless/recording_canvas.h"

#include <ctime>
#include <random>

namespace obk::test {
namespace {

constexpr int32_t textCol = 0, dateCol = 1, fixedCol = 2, checkCol = 3, listCol = 4, numberCol = 5,
                  timeCol = 6;

// Every event but those of keys and of the mouse's way.
Journal news(Journal journal) {
    std::erase_if(journal, [](const std::string& line) {
        return line.starts_with("Key") || line.starts_with("Mouse") || line.starts_with("changed") ||
               line.starts_with("offered");
    });
    return journal;
}

const Journal edited{"ChangeEdited", "Change", "ChangePost"};

// A grid with one column of each type, the first cell the current one.
class GridEditorsTest : public GridEditTest {
protected:
    void SetUp() override {
        GridEditTest::SetUp();
        size(4, 7);
        for (int32_t col = 0; col < 7; ++col) call(u"ColTypeSet", {col, col});
        for (const char16_t* item : {u"oak", u"elm", u"ash"}) call(u"ComboAdd", {Text(item)});
        platform.clock().setToday(std::chrono::year(2026) / 11 / 14);
    }
    void work() {
        activate({0, 0, 600, 200});
        surface().paint();
        call(u"GridFocusShow");
        host.take();
    }
    void goTo(int32_t row, int32_t col) {
        call(u"RowSetFocus", {row});
        call(u"ColSetFocus", {col});
    }
    Journal takeNews() { return news(host.take()); }
    // What changed in the cell when it was typed into from the keyboard.
    std::string typedInto(int32_t row, int32_t col, TextView keys) {
        goTo(row, col);
        platform.type(keys);
        platform.pressKey(key::escape);
        return read(row, col);
    }
    bool isOpen() {
        host.take();
        call(u"BoxHide");
        return takeNews() == edited;
    }
};

TEST_F(GridEditorsTest, WhatIsTypedOverACellOpensItsEditorAndIsKept) {
    work();
    set(0, 0, u"before");
    set(1, 0, u"before");
    set(0, numberCol, u"12");
    set(0, dateCol, u"Mon 2 Feb 2026");
    EXPECT_EQ(typedInto(0, textCol, u"x\u20ACy"), "x\xE2\x82\xACy");
    EXPECT_EQ(takeNews(), (Journal{"Click", "ChangeEdited", "Change", "ChangePost"}));
    EXPECT_EQ(typedInto(1, textCol, u"\u65E5"), "\xE6\x97\xA5") << "an input method's";
    EXPECT_EQ(typedInto(1, textCol, u"\b"), "");
    EXPECT_EQ(typedInto(0, dateCol, u"3 mar 2027"), "Wed 3 Mar 2027");
    EXPECT_EQ(typedInto(0, dateCol, u"soon"), "soon");
    EXPECT_EQ(typedInto(0, listCol, u"a"), "ash");
    EXPECT_EQ(typedInto(0, listCol, u"el"), "elm");
    EXPECT_EQ(typedInto(0, numberCol, u"7.5"), "7.5");
    EXPECT_EQ(typedInto(1, numberCol, u"a99999999999"), "99999999999") << "no limit but the digits";
    EXPECT_EQ(typedInto(0, timeCol, u"9:3"), "9:30:00 am");
    EXPECT_EQ(typedInto(0, checkCol, u" "), "a");
    EXPECT_EQ(typedInto(0, checkCol, u"  "), "a") << "turned over twice";
    EXPECT_EQ(typedInto(0, checkCol, u" "), "");
    host.take();
    EXPECT_EQ(typedInto(0, fixedCol, u"x"), "");
    EXPECT_EQ(takeNews(), Journal{"ChangeEdited"});
}

TEST_F(GridEditorsTest, AnEditorOpensWithItsCellAndLeavesWhatItCannotShow) {
    work();
    const char16_t* const texts[] = {u"two\r\nlines", u"Mon 2 Feb 2026", u"fixed", u"  a",
                                     u"beech",        u"1234567890123",  u"9:15"};
    for (int32_t col = 0; col < 7; ++col) {
        set(2, col, texts[col]);
        call(u"BoxShow");
        platform.setFocus(0);
        platform.setFocus(control->window());
        EXPECT_EQ(read(2, col), toUtf8(texts[col])) << col;
    }
    host.take();
    goTo(0, dateCol);
    call(u"BoxShow");
    call(u"BoxHide");
    EXPECT_EQ(read(0, dateCol), "Sat 14 Nov 2026") << "an empty date cell opens with today";
    EXPECT_EQ(takeNews(), (Journal{"Click", "ChangeEdited", "Change", "ChangePost"}));
}

TEST_F(GridEditorsTest, AScriptEditsWithoutAWindow) {
    set(1, 0, u"oak");
    call(u"BoxShow");
    call(u"BoxShow");
    EXPECT_EQ(host.take(), Journal{"Click"}) << "it is open already";
    call(u"BoxHide");
    EXPECT_EQ(host.take(), edited);
    call(u"BoxHide");
    EXPECT_EQ(host.take(), Journal{"ChangeEdited"});
    goTo(2, fixedCol);
    call(u"BoxShow");
    EXPECT_FALSE(isOpen());
    call(u"ColTypeSet", {fixedCol, 17});
    call(u"BoxShow");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(platform.windowCount(), 0u);
}

TEST_F(GridEditorsTest, AnEditorStandsOverItsCellAtEveryScale) {
    work();
    for (const int32_t dotsPerInch : {96, 120, 144, 168, 192}) {
        surface().setDpi(Dpi(dotsPerInch));
        const Dpi dpi(dotsPerInch);
        for (const auto& [style, header] : {std::pair(1, true), std::pair(0, true), std::pair(1, false)}) {
            put(u"BorderStyle", style);
            put(u"BarHeader", header);
            goTo(1, textCol);
            const int32_t first = firstRowAt();
            call(u"BoxShow");
            const auto pixels = [&](TextView member) { return dpi.toPixels(Twips{1.0 * number(member)}); };
            const int32_t edge = style == 1 ? dpi.toPixels(Twips{30}) : 0;
            const int32_t top = first + pixels(u"CellCurrentTop");
            const int32_t bottom = top + pixels(u"CellCurrentHeight");
            const auto* const shown = surface().childAt({10, (top + bottom) / 2});
            ASSERT_TRUE(shown) << dotsPerInch;
            // One line of text, which stands where the cell's does: in the middle above the grid's line.
            const PixelRect line = shown->bounds();
            EXPECT_EQ(line.left, edge) << dotsPerInch;
            EXPECT_EQ(line.width(), pixels(u"CellCurrentWidth")) << dotsPerInch;
            EXPECT_GT(line.top, top) << dotsPerInch;
            EXPECT_NEAR(line.top - top, bottom - dpi.scaled(1) - line.bottom, 1) << dotsPerInch;
            call(u"BoxHide");
        }
    }
}

TEST_F(GridEditorsTest, KeysGoThroughTheCells) {
    work();
    platform.type(u"oak");
    host.take();
    platform.pressKey(key::enter);
    EXPECT_EQ(takeNews(), (Journal{"ChangeEdited", "Change", "ChangePost", "CellSelected", "NewRowSelected",
                                   "SelChange", "Click"}));
    EXPECT_EQ(current(), std::pair(1, 0));
    platform.type(u"elm");
    platform.pressKey(key::tab);
    EXPECT_EQ(current(), std::pair(1, dateCol));
    EXPECT_EQ(column(0), "oak,elm,,");
    platform.pressKey(key::tab);
    EXPECT_EQ(current(), std::pair(1, checkCol)) << "the read-only column is passed over";
    platform.pressKey(key::tab, shift::shift);
    EXPECT_EQ(current(), std::pair(1, dateCol));
    call(u"ColumnVisible", {textCol, 0, false});
    platform.pressKey(key::tab, shift::shift);
    EXPECT_EQ(current(), std::pair(0, timeCol)) << "a hidden column is passed over, and the row left";
    platform.pressKey(key::tab);
    EXPECT_EQ(current(), std::pair(1, dateCol));
    EXPECT_TRUE(isOpen());
    platform.pressKey(key::right);
    EXPECT_EQ(current(), std::pair(1, fixedCol)) << "arrows move where no editor is open";
    EXPECT_FALSE(isOpen());
    platform.pressKey(key::f2);
    platform.pressKey(key::enter);
    EXPECT_EQ(current(), std::pair(2, fixedCol)) << "there is nothing to open, but a way";
    EXPECT_FALSE(isOpen());
}

TEST_F(GridEditorsTest, TabLeavesTheGridAtItsEnds) {
    work();
    host.takesKeys = true;
    goTo(3, timeCol);
    platform.type(u"1");
    host.take();
    platform.pressKey(key::tab);
    EXPECT_EQ(host.take().front(), "offered 9");
    call(u"BoxHide");
    goTo(0, textCol);
    host.take();
    platform.pressKey(key::tab, shift::shift);
    EXPECT_EQ(current(), std::pair(0, textCol));
    EXPECT_EQ(host.take().front(), "offered 9");
    put(u"AllowGridEdit", false);
    goTo(1, textCol);
    host.take();
    platform.pressKey(key::tab);
    EXPECT_EQ(host.take().front(), "offered 9") << "there is nothing to go to";
    host.take();
    platform.pressKey(key::escape);
    EXPECT_EQ(host.take().front(), "offered 27") << "a dialog may want to be cancelled";
}

TEST_F(GridEditorsTest, F2EditsWhatIsThereAndTypingReplacesIt) {
    work();
    set(0, 0, u"oak");
    platform.pressKey(key::f2);
    platform.type(u"en");
    platform.pressKey(key::escape);
    EXPECT_EQ(read(0, 0), "oaken");
    call(u"BoxShow");
    call(u"BoxSelect");
    platform.type(u"elm");
    platform.pressKey(key::deleteKey);
    platform.pressKey(key::insert);
    EXPECT_EQ(number(u"RowsCurrent"), 4) << "in an editor these are its own";
    platform.pressKey(key::enter);
    EXPECT_EQ(column(0), "elm,,,");
}

TEST_F(GridEditorsTest, RowsComeAndGoByKeys) {
    work();
    goTo(3, 0);
    host.take();
    platform.pressKey(key::down);
    EXPECT_EQ(takeNews(),
              (Journal{"ChangeEdited", "Change", "NewRow 4", "CellSelected", "NewRowSelected", "SelChange"}));
    EXPECT_EQ(current(), std::pair(4, 0));
    EXPECT_FALSE(isOpen());
    host.take();
    platform.type(u"oak");
    platform.pressKey(key::enter);
    EXPECT_EQ(takeNews(), (Journal{"Click", "ChangeEdited", "Change", "ChangePost", "Change", "NewRow 5",
                                   "CellSelected", "NewRowSelected", "SelChange", "Click"}));
    EXPECT_EQ(current(), std::pair(5, 0));
    platform.type(u"elm");
    platform.pressKey(key::escape);
    EXPECT_EQ(column(0), ",,,,oak,elm");
    goTo(4, 1);
    platform.pressKey(key::left);
    host.take();
    platform.pressKey(key::insert);
    EXPECT_EQ(takeNews(),
              (Journal{"ChangeEdited", "Change", "NewRow 4", "CellSelected", "NewRowSelected", "SelChange"}));
    EXPECT_EQ(column(0), ",,,,,oak,elm");
    platform.pressKey(key::deleteKey);
    EXPECT_EQ(takeNews(), (Journal{"ChangeEdited", "Change", "DelRow"}));
    platform.pressKey(key::deleteKey);
    EXPECT_EQ(column(0), ",,,,elm");
    call(u"RowsSet", {1});
    platform.pressKey(key::deleteKey);
    set(0, 0, u"probe");
    EXPECT_TRUE(gridShows()) << "a person goes on in the row that is left";
    platform.type(u"x");
    platform.pressKey(key::escape);
    EXPECT_EQ(column(0), "x");
}

TEST_F(GridEditorsTest, AGridThatIsNotEditedStaysAsItIs) {
    work();
    set(3, 0, u"oak");
    host.take();
    platform.type(u"elm");
    put(u"AllowGridEdit", false);
    EXPECT_EQ(takeNews(), (Journal{"Click", "ChangeEdited", "Change", "ChangePost"}))
        << "what is open is kept";
    platform.setClipboard(u"1\t2");
    for (const int16_t code : {key::f2, key::insert, key::deleteKey, key::down, int16_t{'X'}})
        platform.pressKey(code);
    platform.pressKey('V', shift::control);
    platform.pressKey('Z', shift::control);
    platform.pressKey(key::enter);
    click(at(0, 0));
    call(u"BoxShow");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(column(0), ",,,elm");
    put(u"AllowGridEdit", true);
    host.designs = true;
    call(u"BoxShow");
    EXPECT_FALSE(isOpen()) << "on a form that is being designed";
}

TEST_F(GridEditorsTest, WhateverDisturbsTheCellsKeepsTheEditorsTextFirst) {
    work();
    size(40, 7);
    const WheelEvent notch{-120, false, 0, at(1, 0)};
    const MouseEvent press{Kind::down, button::left, 0, {border + colWidth, 60}},
        drag{Kind::move, button::left, 0, {border + colWidth + 9, 60}};
    const PixelPoint noCell{500, 60}, caption{50, 8};
    const PixelRect smaller{0, 0, 500, 150};
    const std::vector<Value> noText{Text(), 0}, hide{0, 900, true};
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"scroll", [&] { call(u"TopRowSet", {5}); }},
        {"wheel", [&] { platform.wheel(control->window(), notch); }},
        {"another cell", [&] { click(at(2, 1)); }},
        {"no cell", [&] { click(noCell); }},
        {"column border",
         [&] { platform.mouse(control->window(), press), platform.mouse(control->window(), drag); }},
        {"captions", [&] { click(caption); }},
        {"sort", [&] { call(u"GridColSort", {0}); }},
        {"focus", [&] { platform.setFocus(0); }},
        {"rows", [&] { call(u"RowsSet", {41}); }},
        {"columns", [&] { call(u"ColsSet", {8}); }},
        {"row", [&] { call(u"RowAdd", noText); }},
        {"hidden column", [&] { call(u"ColumnVisible", hide); }},
        {"size", [&] { control->setBounds(smaller); }},
        {"window", [&] { control->deactivate(); }},
    };
    for (const auto& [name, disturb] : ways) {
        if (!control->active()) activate({0, 0, 600, 200});
        platform.mouse(control->window(), {Kind::up, button::left, 0, {300, 60}});
        call(u"GridHide");
        call(u"GridShow");
        call(u"TopRowSet", {0});
        call(u"GridClear");
        goTo(1, 0);
        call(u"GridFocusShow");
        platform.type(u"oak");
        host.take();
        disturb();
        Journal told = takeNews();
        ASSERT_GE(told.size(), 3u) << name;
        std::erase(told, "focus out");
        told.resize(3);
        EXPECT_EQ(told, edited) << name;
        EXPECT_NE(column(0).find("oak"), std::string::npos) << name;
    }
}

TEST_F(GridEditorsTest, AnEditorBelongsToTheCellItWasOpenedFor) {
    work();
    goTo(1, 0);
    platform.type(u"oak");
    set(3, 1, u"elsewhere");
    call(u"BoxHide");
    EXPECT_EQ(column(0), ",oak,,");
    EXPECT_EQ(current(), std::pair(3, 1));
    goTo(0, 0);
    platform.type(u"ash");
    set(3, 1, u"elsewhere");
    std::pair<int32_t, int32_t> told;
    onEvent("ChangeEdited", [&] { told = current(); });
    platform.pressKey(key::enter);
    host.on.clear();
    EXPECT_EQ(told, std::pair(0, 0)) << "the host is asked about the cell that is left";
    EXPECT_EQ(column(0), "ash,oak,,");
    EXPECT_EQ(current(), std::pair(1, 0)) << "a person goes on from there";
    call(u"GridClear");
    goTo(2, 0);
    platform.type(u"elm");
    call(u"RowAddQuick", {Text(u"quick"), 0});
    call(u"BoxHide");
    EXPECT_EQ(column(0), "quick,,,elm,") << "it has moved with its row";
    call(u"BoxShow");
    set(0, 1, u"elsewhere");
    platform.type(u"elms");
    call(u"BoxHide");
    EXPECT_EQ(column(0), "elms,,,elm,") << "what is typed still replaces the text";
    goTo(0, 0);
    call(u"BoxShow");
    set(number(u"RowCurrent"), 0, u"host's");
    call(u"BoxHide");
    EXPECT_EQ(column(0), "host's,,,elm,") << "nobody has typed anything else";
}

TEST_F(GridEditorsTest, AClickOpensTheEditorOfItsCell) {
    work();
    click(at(1, textCol));
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseDown 1 0 150 405", "ChangeEdited", "CellSelected",
                                          "NewRowSelected", "SelChange", "MouseUp 1 0 150 405", "Click"}));
    EXPECT_TRUE(isOpen());
    click(at(1, textCol));
    EXPECT_TRUE(isOpen()) << "also in the current cell";
    click(at(1, fixedCol));
    EXPECT_EQ(takeNews(), (Journal{"ChangeEdited", "CellSelected", "SelChange", "Click"}));
    EXPECT_FALSE(isOpen());
    platform.mouse(control->window(), {Kind::down, button::left, 0, at(0, 0)});
    platform.mouse(control->window(), {Kind::move, button::left, 0, at(2, 1)});
    platform.mouse(control->window(), {Kind::up, button::left, 0, at(2, 1)});
    EXPECT_FALSE(isOpen()) << "cells are being selected";
    click(at(1, textCol));
    host.take();
    click(at(1, textCol), Kind::doubleClick);
    EXPECT_EQ(takeNews(), Journal{"DblClickExt"});
}

TEST_F(GridEditorsTest, TheListTellsWhatIsChosen) {
    work();
    goTo(0, listCol);
    call(u"BoxShow");
    host.take();
    click(at(0, listCol));
    ASSERT_TRUE(topPanel());
    const PixelRect third = parts(*topPanel(), AccessibleItem::Role::listItem)[2].bounds;
    platform.click(topPanel()->id(), {third.left + 5, third.top + 5});
    EXPECT_EQ(takeNews(), (Journal{"CboBoxClick", "CboClick"}));
    EXPECT_FALSE(topPanel());
    call(u"BoxShow");
    platform.keyDown(key::f4, 0, true);
    EXPECT_FALSE(topPanel()) << "a held key opens no list";
    platform.pressKey(key::f4);
    ASSERT_TRUE(topPanel());
    platform.pressKey(key::home);
    platform.pressKey(key::escape);
    EXPECT_FALSE(topPanel());
    EXPECT_TRUE(takeNews().empty()) << "the first Escape closes the list alone";
    // A host that fills the list anew when it is about to open.
    onEvent("CboBoxClick", [this] {
        call(u"ComboClear");
        for (const char16_t* item : {u"", u"R&D", u"ash", u"elm", u"oak"}) call(u"ComboAdd", {Text(item)});
    });
    click(at(0, listCol));
    const auto items = parts(*topPanel(), AccessibleItem::Role::listItem);
    ASSERT_EQ(items.size(), 5u);
    EXPECT_EQ(items[1].name, u"R&D");
    EXPECT_TRUE(items[2].is(AccessibleItem::selected)) << "the item stays";
    platform.mouse(control->window(), {Kind::up, button::left, 0, at(0, listCol)});
    EXPECT_TRUE(topPanel()) << "the press that opened it is over";
    platform.mouse(topPanel()->id(), {Kind::down, button::left, 0, {-30, -40}});
    EXPECT_FALSE(topPanel());
    host.on.clear();
    platform.pressKey(key::f4);
    platform.pressKey(key::home);
    host.take();
    platform.pressKey(key::tab);
    EXPECT_EQ(takeNews().front(), "CboClick") << "Tab takes what is marked along";
    EXPECT_EQ(read(0, listCol), "") << "an empty item is one";
    call(u"ComboClear");
    for (const char16_t* item : {u"oak", u"elm", u"ash"}) call(u"ComboAdd", {Text(item)});
    set(0, listCol, u"ash");
    call(u"BoxShow");
    host.take();
    std::vector<Value> up{int16_t{key::up}, int16_t{0}};
    call(u"cboLIST_KeyDown", up);
    EXPECT_EQ(news(host.take()), Journal{"CboClick"});
    call(u"BoxHide");
    EXPECT_EQ(read(0, listCol), "elm");
    call(u"BoxShow");
    platform.pressKey(key::f4);
    platform.pressKey(key::end);
    call(u"ComboDel", {2});
    platform.pressKey(key::down);
    platform.pressKey(key::enter);
    call(u"BoxHide");
    EXPECT_EQ(read(0, listCol), "oak") << "an item that has gone is not marked";
    call(u"ComboDel", {1});
    call(u"ComboDel", {7});
    EXPECT_EQ(typedInto(1, listCol, u"e"), "");
    EXPECT_EQ(typedInto(1, listCol, u"o"), "oak");
    call(u"ComboClear");
    EXPECT_EQ(typedInto(1, listCol, u"a"), "oak");
}

TEST_F(GridEditorsTest, ACalendarHasTheKeysWhileItIsOpen) {
    work();
    set(0, dateCol, u"Mon 2 Feb 2026");
    platform.pressKey(key::f2);
    platform.pressKey(key::f4);
    for (int part = 0; part < 6; ++part) platform.pressKey(key::tab);  // once round
    platform.pressKey(key::right);
    host.take();
    platform.pressKey(key::enter);
    EXPECT_EQ(takeNews(), Journal{}) << "it picks the day";
    EXPECT_EQ(current(), std::pair(0, dateCol));
    platform.pressKey(key::enter);
    EXPECT_EQ(read(0, dateCol), "Tue 3 Feb 2026");
    EXPECT_EQ(current(), std::pair(1, dateCol));
    platform.pressKey(key::f4);
    EXPECT_TRUE(open());
    control->deactivate();
    EXPECT_EQ(platform.windowCount(), 0u) << "it goes with the grid's window";
}

TEST_F(GridEditorsTest, StepsAreTakenBackAndDoneAgain) {
    work();
    const auto back = [this] { platform.pressKey('Z', shift::control); };
    const auto again = [this] { platform.pressKey('Y', shift::control); };
    set(1, 0, u"oak");
    goTo(0, 0);
    platform.type(u"elm");
    platform.pressKey(key::enter);
    host.take();
    back();
    EXPECT_EQ(column(0), ",oak,,") << "also with the next editor open and untouched";
    EXPECT_EQ(current(), std::pair(0, 0)) << "where the change was";
    back();
    again();
    EXPECT_EQ(column(0), "elm,oak,,");
    goTo(0, 0);
    platform.type(u"ash");
    back();
    EXPECT_EQ(column(0), "elm,oak,,") << "in an editor that was typed into the key is its own";
    platform.pressKey(key::escape);
    call(u"CellColorSetx", {red, 1, 1});
    platform.pressKey(key::deleteKey);
    EXPECT_EQ(column(0), "as,,") << "its line has taken back one letter";
    back();
    EXPECT_EQ(column(0), "as,oak,,");
    EXPECT_EQ(colourAt(at(1, 1)), Rgb::of(255, 0, 0)) << "with all that its row had";
    again();
    EXPECT_EQ(column(0), "as,,");
    // The host's own rows move what is remembered, whatever it does inside the events.
    call(u"RowAdd", {Text(u"new"), 0});
    onEvent("Change", [this] {
        host.on.clear();
        call(u"RowAddQuick", {Text(u"quick"), 0});
    });
    back();
    EXPECT_EQ(column(0), "quick,new,as,oak,,");
    back();
    EXPECT_EQ(column(0), "quick,new,elm,oak,,");
    call(u"RowDel", {int32_t{2}});
    back();
    EXPECT_EQ(column(0), "quick,new,oak,,") << "what was about a row that is gone";
    goTo(3, 0);
    platform.type(u"z");
    platform.pressKey(key::escape);
    call(u"GridColSort", {int32_t{0}});
    back();
    EXPECT_EQ(column(0), "z,quick,oak,new,") << "the rows stand elsewhere";
    call(u"RowsSet", {int32_t{1}});
    set(0, 0, u"only");
    platform.pressKey(key::deleteKey);
    EXPECT_EQ(column(0), "");
    back();
    EXPECT_EQ(column(0), "only");
    platform.type(u"same");
    set(0, 0, u"same");
    platform.pressKey(key::escape);
    again();
    EXPECT_EQ(column(0), "") << "nothing but the host has changed the cell";
    back();
    platform.pressKey(key::enter);
    platform.pressKey(key::enter);
    EXPECT_EQ(number(u"RowsCurrent"), 3);
    back();
    back();
    EXPECT_EQ(number(u"RowsCurrent"), 1) << "rows that Enter has added";
}

TEST_F(GridEditorsTest, APersonTakesBackAllThatWasDoneAndDoesItAgain) {
    work();
    const auto state = [this] {
        std::string texts;
        for (int32_t col = 0; col < 7; ++col) texts += column(col) + "|";
        return texts;
    };
    for (uint32_t seed = 1; seed <= 12; ++seed) {
        std::mt19937 random(seed);
        const auto one = [&](auto... of) {
            const std::common_type_t<decltype(of)...> all[] = {of...};
            return all[random() % sizeof...(of)];
        };
        std::vector<std::string> states{state()};
        for (int32_t action = 0; action < 45; ++action) {
            switch (random() % 8) {
                case 0:
                case 1:
                    platform.type(one(u"oak", u"7", u" ", u"3 mar 27", u"e", u"-"));
                    break;
                case 2: {
                    platform.setClipboard(one(u"1\t2\r\n3\t4\r\n", u"x\r\ny\r\nz\r\n", u"TRUE"));
                    platform.pressKey('V', shift::control);
                    break;
                }
                case 3:
                    platform.pressKey(one('X', 'D'), shift::control);
                    break;
                case 4:
                    platform.pressKey(one(key::down, key::right), shift::shift);
                    break;
                case 5:
                    platform.pressKey(one(key::enter, key::insert, key::deleteKey));
                    break;
                default:
                    platform.pressKey(one(key::left, key::up, key::right, key::down, key::tab, key::escape));
                    break;
            }
            // Nothing is in an editor then that was not told of.
            platform.pressKey(key::escape);
            if (state() != states.back()) states.push_back(state());
        }
        const auto walk = [&](int16_t key, auto next, auto end) {
            // Each state is met on the way, in its order.
            for (int32_t step = 0; step <= 100; ++step) {
                while (next != end && *next == state()) ++next;
                platform.pressKey(key, shift::control);
            }
            return next == end;
        };
        EXPECT_GT(states.size(), 10u) << seed;
        EXPECT_TRUE(walk('Z', states.rbegin(), states.rend())) << seed;
        EXPECT_TRUE(walk('Y', states.begin(), states.end())) << seed;
        EXPECT_EQ(state(), states.back()) << seed;
        call(u"RowsSet", {int32_t{4}});
    }
}

// Another program's text, one line of which is wide and all others of which are many.
TEST_F(GridEditorsTest, APasteCostsNoMoreThanItsTextHoweverWideItIs) {
    work();
    goTo(0, 0);
    constexpr int32_t wide = 200'000, lines = 50'000;
    platform.setClipboard(u"first" + Text(wide, u'\t') + u"last" + Text(lines, u'\n') + u"end");
    const std::clock_t before = std::clock();
    platform.pressKey('V', shift::control);
    EXPECT_LT((std::clock() - before) / CLOCKS_PER_SEC, 8) << "of the processor's time";
    EXPECT_EQ(read(0, 0), "first");
    EXPECT_EQ(grid().RowsCurrent(), lines + 1);
    EXPECT_EQ(read(lines, 0), "end");
}

TEST_F(GridEditorsTest, APasteGoesThroughTheColumnTypes) {
    work();
    set(1, fixedCol, u"fixed");
    set(2, numberCol, u"12");
    goTo(1, 0);
    platform.setClipboard(
        u"\"a\ttab\"\t3 mar 2027\tlost\tTRUE\tELM\t7.5\t9:30 pm\tbeyond\r\n"
        u"b\tno date\t\t0\tpine\tseven\t25:00\r\n");
    surface().paint();
    call(u"BoxShow");
    host.take();
    platform.pressKey('V', shift::control);
    EXPECT_EQ(takeNews(), (Journal{"ChangeEdited", "Change", "ChangePost", "Change", "ChangePost"}))
        << "from an editor that nothing was typed into";
    const auto row = [this](int32_t at) {
        std::string texts;
        for (int32_t col = 0; col < 7; ++col) texts += (col == 0 ? "" : "|") + read(at, col);
        return texts;
    };
    EXPECT_EQ(row(1), "a\ttab|Wed 3 Mar 2027|fixed|a|elm|7.5|9:30:00 pm");
    EXPECT_EQ(row(2), "b|||||12|") << "what a column does not take changes nothing";
    EXPECT_TRUE(drawnText(u"a").text.empty()) << "a mark, not a letter";
    platform.pressKey('Z', shift::control);
    EXPECT_EQ(row(1), "||fixed||||");
    EXPECT_EQ(row(2), "|||||12|");
    platform.setClipboard(u"1\r\n2\r\n3\r\n4\r\n");
    host.take();
    platform.pressKey(key::insert, shift::shift);
    EXPECT_EQ(column(0), ",1,2,3,4") << "rows come behind the last one";
    EXPECT_EQ(takeNews(), (Journal{"Change", "ChangePost"}));
    platform.pressKey('Z', shift::control);
    EXPECT_EQ(column(0), ",,,");
    goTo(0, 0);
    platform.setClipboard(u"");
    platform.pressKey('V', shift::control);
    EXPECT_TRUE(isOpen()) << "with nothing to paste it is a key like others";
    platform.pressKey(key::escape);
    platform.setClipboard(u"one value\r\n");
    host.take();
    platform.pressKey('V', shift::control);
    EXPECT_EQ(takeNews(), Journal{"Click"}) << "it goes into the editor";
    platform.type(u"s");
    platform.pressKey(key::escape);
    EXPECT_EQ(read(0, 0), "one values");
}

TEST_F(GridEditorsTest, ASelectionIsWorkedOnAtOnce) {
    work();
    const auto select = [this](int32_t row, int32_t col, int32_t down, int32_t right) {
        goTo(row, col);
        for (; down > 0; --down) platform.pressKey(key::down, shift::shift);
        for (; right > 0; --right) platform.pressKey(key::right, shift::shift);
        host.take();
    };
    const Journal once{"Change", "ChangePost"};
    platform.setClipboard(u"1\r\n2\r\n");
    select(0, 0, 3, 0);
    platform.pressKey('V', shift::control);
    EXPECT_EQ(column(0), "1,2,1,2") << "again and again where there is room";
    EXPECT_EQ(takeNews(), once);
    select(0, 0, 2, 0);
    platform.pressKey('V', shift::control);
    EXPECT_EQ(column(0), "1,2,1,2") << "but no part of it";
    platform.setClipboard(u"x");
    platform.pressKey('V', shift::control);
    EXPECT_EQ(column(0), "x,x,x,2") << "one value fills all";
    set(1, fixedCol, u"fixed");
    select(1, 0, 1, 2);
    platform.pressKey('X', shift::control);
    EXPECT_EQ(takeNews(), once);
    EXPECT_EQ(toUtf8(platform.clipboard()), "x\t\tfixed\r\nx\t\t\r\n");
    EXPECT_EQ(column(0), "x,,,2");
    EXPECT_EQ(read(1, fixedCol), "fixed");
    platform.pressKey('D', shift::control);
    select(0, 0, 3, 0);
    platform.pressKey('D', shift::control);
    EXPECT_EQ(takeNews(), once);
    EXPECT_EQ(column(0), "x,x,x,x");
    goTo(0, textCol);
    platform.pressKey('D', shift::control);
    EXPECT_EQ(takeNews(), Journal{}) << "nothing is above";
    set(1, checkCol, u"a");
    select(0, checkCol, 3, 1);
    platform.pressKey(key::space);
    EXPECT_EQ(column(checkCol), "a,a,a,a");
    EXPECT_EQ(takeNews(), once);
    platform.pressKey(key::space);
    EXPECT_EQ(column(checkCol), ",,,") << "all were checked";
    select(1, 0, 1, 0);
    platform.pressKey(key::deleteKey);
    EXPECT_EQ(takeNews(), (Journal{"ChangeEdited", "Change", "DelRow", "ChangeEdited", "Change", "DelRow"}));
    EXPECT_EQ(column(0), "x,x");
    platform.pressKey('Z', shift::control);
    EXPECT_EQ(column(0), "x,x,x,x") << "one step";
    platform.pressKey('A', shift::control);
    platform.pressKey('C', shift::control);
    EXPECT_TRUE(platform.clipboard().ends_with(u"x\t\t\t\t\t\t\r\n"));
    EXPECT_EQ(current(), std::pair(0, 0));
    click(at(2, 0));
    platform.mouse(control->window(), {Kind::down, button::left, shift::shift, at(3, 1)});
    platform.mouse(control->window(), {Kind::up, button::left, shift::shift, at(3, 1)});
    EXPECT_FALSE(isOpen()) << "cells are selected";
    platform.pressKey('C', shift::control);
    EXPECT_EQ(platform.clipboard(), u"x\t\r\nx\t\r\n");
}

TEST_F(GridEditorsTest, ANumberIsTypedAndNeverChangedByAccident) {
    work();
    const auto number = [this](TextView keys) { return typedInto(0, numberCol, keys); };
    EXPECT_EQ(number(u"-5"), "-5");
    EXPECT_EQ(number(u"5-"), "-5");
    EXPECT_EQ(number(u"12--"), "12");
    EXPECT_EQ(number(u"1,5"), "15") << "a comma is none here";
    EXPECT_EQ(number(u"-"), "15") << "no number";
    platform.setRegionalFormats({u',', {}});
    EXPECT_EQ(number(u"1,5,5"), "1.55");
    EXPECT_EQ(number(u"1.5"), "1.5");
    platform.setClipboard(u"1.234,50\t1,2,3\r\n");
    goTo(1, numberCol);
    platform.pressKey('V', shift::control);
    EXPECT_EQ(read(1, numberCol), "1234.50");
    for (const int16_t code : {key::up, key::down, key::pageUp, key::pageDown}) {
        goTo(2, numberCol);
        set(2, numberCol, u"12.34");
        call(u"BoxShow");
        platform.pressKey(code);
        EXPECT_EQ(read(2, numberCol), "12.34") << code;
        EXPECT_NE(current(), std::pair(2, numberCol)) << code;
        EXPECT_FALSE(isOpen()) << code;
    }
    goTo(2, numberCol);
    call(u"BoxShow");
    platform.pressKey(key::up, shift::alt);
    platform.pressKey(key::up, shift::alt);
    platform.pressKey(key::down, shift::alt);
    platform.pressKey(key::escape);
    EXPECT_EQ(read(2, numberCol), "13.34") << "all decimals stay";
    size(40, 7);
    goTo(2, numberCol);
    call(u"BoxShow");
    platform.wheel(control->window(), {-120, false, 0, at(2, numberCol)});
    EXPECT_EQ(this->number(u"TopRowRead"), 3) << "the wheel scrolls";
    call(u"BoxHide");
    EXPECT_EQ(read(2, numberCol), "13.34");
    size(3, 7);
    typedInto(0, numberCol, u"3-");
    typedInto(1, numberCol, u"10");
    typedInto(2, numberCol, u"2,5");
    goTo(0, numberCol);
    call(u"GridColSort", {numberCol});
    EXPECT_EQ(column(numberCol), "-3,2.5,10");
}

TEST_F(GridEditorsTest, AClickOnItsBoxTurnsACheckMark) {
    work();
    const auto box = [](int32_t row) { return PixelPoint{border + checkCol * colWidth + 33, at(row, 0).y}; };
    click(box(1));
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(read(1, checkCol), "a");
    click(at(1, checkCol));
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(read(1, checkCol), "a") << "beside it the cell is chosen";
    goTo(0, 0);
    set(2, checkCol, u" a");
    EXPECT_TRUE(drawnText(u" a").text.empty()) << "whoever has written it";
    call(u"ColTypeSet", {checkCol, int32_t{0}});
    EXPECT_FALSE(drawnText(u" a").text.empty());
}

TEST_F(GridEditorsTest, DatesAreReadAsTheUserWritesThem) {
    const auto read = [](TextView text, DateForms::Order order) {
        return cellText(ColumnType::date, text, {}, {u'.', {order, 2049, {}}});
    };
    using enum DateForms::Order;
    const std::pair<const char16_t*, std::vector<DateForms::Order>> rows[] = {
        {u"4.12.2026", {dayMonthYear}},
        {u" 04/12/2026 ", {dayMonthYear}},
        {u"4-12-26", {dayMonthYear}},
        {u"12/4/2026", {monthDayYear}},
        {u"12.4.26", {monthDayYear}},
        {u"26/12/04", {yearMonthDay}},
        {u"4 dec 26", {dayMonthYear, monthDayYear}},
        {u"2026-12-04", {dayMonthYear, monthDayYear, yearMonthDay}},
        {u"4 dec 2026", {dayMonthYear, monthDayYear, yearMonthDay}},
        {u"December 4, 2026", {dayMonthYear, monthDayYear, yearMonthDay}},
    };
    for (const auto& [text, orders] : rows) {
        for (const DateForms::Order order : {dayMonthYear, monthDayYear, yearMonthDay}) {
            const bool meant = std::count(orders.begin(), orders.end(), order) > 0;
            EXPECT_EQ(read(text, order) == u"Fri 4 Dec 2026", meant) << toUtf8(text) << int(order);
        }
    }
    EXPECT_EQ(read(u"4.12.2026", yearMonthDay), std::nullopt) << "the day or the month";
    EXPECT_EQ(read(u"1.2.50", dayMonthYear), u"Wed 1 Feb 1950");
    const RegionalFormats otherYears{u'.', {dayMonthYear, 99, {}}};
    for (const char16_t* text : {u"1.2.47", u"4 dec 47"})
        EXPECT_EQ(cellText(ColumnType::date, text, {}, otherYears), std::nullopt) << "of another calendar";
    EXPECT_EQ(cellText(ColumnType::date, u"4.12.2026", {}, otherYears), u"Fri 4 Dec 2026");
    for (const char16_t* text :
         {u"31.4.2026", u"4.13.2026", u"4.12.126", u"4.12/2026", u"4.12.20261", u"4.12.", u"2026-12-4x",
          u"2026-", u"0.0.0", u"1.2", u"4 dec", u"29.2.2026", u"dec 26"})
        EXPECT_EQ(read(text, dayMonthYear), std::nullopt) << toUtf8(text);
    work();
    platform.setRegionalFormats({u'.', {monthDayYear, 2049, {}}});
    for (const auto& [typed, kept] : {std::pair<const char16_t*, const char*>{u"12/4/26", "Fri 4 Dec 2026"},
                                      {u"4 dec 26", "Fri 4 Dec 2026"},
                                      {u"2026-12-04", "Fri 4 Dec 2026"},
                                      {u"31/12/26", "31/12/26"},
                                      {u"soon", "soon"}})
        EXPECT_EQ(typedInto(0, dateCol, typed), kept) << toUtf8(typed);
}

TEST_F(GridEditorsTest, TimesAreReadInTheUsualWays) {
    EXPECT_EQ(timeList().size(), 48u);
    EXPECT_EQ(timeList()[1], u"12:30:00 am");
    EXPECT_EQ(timeList()[24], u"12:00:00 pm");
    EXPECT_EQ(timeList().back(), u"11:30:00 pm");
    EXPECT_EQ(timeText(u"0:05"), u"12:05:00 am");
    EXPECT_EQ(timeText(u"12:00 AM"), u"12:00:00 am");
    EXPECT_EQ(timeText(u" 21:30:15 "), u"9:30:15 pm");
    EXPECT_EQ(timeText(u"9:30pm"), u"9:30:00 pm");
    for (const char16_t* text : {u"24:00", u"9:60", u"9", u"13:00 pm", u"0:30 am", u"9:30 o'clock", u"9:"})
        EXPECT_EQ(timeText(text), std::nullopt) << toUtf8(text);
}

TEST_F(GridEditorsTest, TheRightButtonOpensAMenuUnlessTheHostHasOne) {
    work();
    set(1, 0, u"oak");
    std::vector<MenuItem> asked;
    std::optional<size_t> answer;
    platform.answerMenu([&](std::span<const MenuItem> items, const PixelRect&) {
        asked.assign(items.begin(), items.end());
        return answer;
    });
    const auto choose = [&](TextView caption) {
        asked.clear();
        answer.reset();
        const auto lines = contextMenuLines();
        for (size_t line = 0; line < lines.size(); ++line) {
            if (lines[line].caption.starts_with(caption)) answer = line;
        }
        platform.click(control->window(), at(1, 0), button::right);
    };
    choose(u"Cu&t");
    EXPECT_EQ(column(0), ",,,") << "the cell under the mouse";
    EXPECT_EQ(platform.clipboard(), u"oak\r\n");
    choose(u"&Undo");
    EXPECT_EQ(column(0), ",oak,,");
    choose(u"&Delete row");
    choose(u"&Undo");
    EXPECT_EQ(column(0), ",oak,,");
    choose(u"&Insert row");
    EXPECT_EQ(column(0), ",,oak,,");
    asked.clear();
    answer.reset();
    put(u"AllowGridEdit", false);
    platform.pressKey(key::menu);
    ASSERT_FALSE(asked.empty()) << "the menu key, at the current cell";
    for (size_t line = 0; line < asked.size(); ++line) {
        const EditAction action = contextMenuLines()[line].action;
        if (action != EditAction::none)
            EXPECT_EQ(asked[line].enabled, action == EditAction::copy || action == EditAction::fitColumn)
                << line;
    }
    const std::pair<const char*, std::function<void(std::span<Value>)>> hosts[] = {
        {"MouseDown", [](std::span<Value> arguments) { arguments[0] = int16_t{0}; }},
        {"MouseUp", [](std::span<Value> arguments) { arguments[0] = int16_t{0}; }},
        {"MouseUp", [this](std::span<Value>) { platform.chooseFromMenu(control->window(), {}, {}); }},
        {"MouseUp", [this](std::span<Value>) { platform.setFocus(0); }},
    };
    for (const auto& [event, act] : hosts) {
        call(u"GridFocusShow");
        host.on[event] = act;
        asked.clear();
        platform.click(control->window(), at(1, 0), button::right);
        host.on.clear();
        EXPECT_TRUE(asked.empty()) << event;
    }
}

TEST_F(GridEditorsTest, AnEditorShowsItsTextAsTheCellDoes) {
    for (const int32_t dotsPerInch : {96, 144, 192}) {
        for (const double size : {6.0, 8.25, 11.0, 20.0, 36.0}) {
            SCOPED_TRACE(testing::Message() << dotsPerInch << " " << size);
            const Dpi dpi(dotsPerInch);
            platform.appearance().setDpi(dpi);
            place(GridEdit::memberTable());
            control->setSize(dpi.toTwips(900), dpi.toTwips(500));
            put(u"Font", std::make_shared<SharedFont>(FontDescription{u"Tahoma", size}));
            constexpr int32_t texts = 0, dates = 1, numbers = 2;
            call(u"ColsSet", {int32_t{3}});
            call(u"ColTypeSet", {texts, int32_t{0}});
            call(u"ColTypeSet", {dates, int32_t{1}});
            call(u"ColTypeSet", {numbers, int32_t{5}});
            for (const auto& [col, text] :
                 {std::pair(texts, u"probe"), {dates, u"Mon 2 Mar 2026"}, {numbers, u"-7"}}) {
                call(u"ColWidth", {col, 4000.0});
                for (const bool own : {false, true}) {
                    if (own) call(u"CellFontSet", {0, col, Text(u"Arial"), Text(u"6"), true, false, red});
                    set(0, col, text);
                    call(u"BoxShow");
                    headless::RecordingCanvas canvas(dpi, {0, 0, 900, 500});
                    control->draw(canvas, {0, 0, 900, 500});
                    auto items = canvas.items();
                    std::erase_if(items, [shown = TextView(text)](const DrawnItem& item) {
                        return trimmed(item.text) != shown;
                    });
                    ASSERT_EQ(items.size(), 2u) << "the cell's and the editor's";
                    const DrawnItem &cell = items[0], &editor = items[1];
                    EXPECT_EQ(editor.style.font, cell.style.font);
                    EXPECT_EQ(editor.style.horizontal, cell.style.horizontal);
                    const int32_t line = platform.appearance().metrics(cell.style.font, dpi).height();
                    EXPECT_NEAR(editor.rect.top, (cell.rect.top + cell.rect.bottom - line) / 2.0, 1) << col;
                    call(u"BoxHide");
                    if (col == dates) continue;  // its icon stands before the text
                    EXPECT_EQ(editor.style.colour, cell.style.colour);
                    EXPECT_EQ(editor.rect.left, cell.rect.left);
                    if (col == texts) EXPECT_EQ(editor.rect.right, cell.rect.right);
                }
            }
        }
    }
}

TEST_F(GridEditorsTest, InARightToLeftContainerAllIsMirrored) {
    constexpr PixelRect area{0, 0, 400, 150};
    std::vector<DrawnItem> pictures[2];
    PixelRect editors[2];
    for (const bool mirrored : {false, true}) {
        host.readsRightToLeft = mirrored;
        place(GridEdit::memberTable());
        size(30, 7);
        for (int32_t col = 0; col < 7; ++col) call(u"ColTypeSet", {col, col});
        for (int32_t col = 0; col < 7; ++col) set(1, col, u"a");
        call(u"BarHeaderCaptionSet", {1, Text(u"Date")});
        activate(area);
        call(u"GridFocusShow");
        const auto there = [&](PixelPoint at) {
            return mirrored ? PixelPoint{area.right - 1 - at.x, at.y} : at;
        };
        host.take();
        click(there(at(1, 2)));
        EXPECT_EQ(host.take()[0], "MouseDown 1 0 2070 405") << "X counts from the reading edge";
        EXPECT_EQ(current(), std::pair(1, 2));
        EXPECT_EQ(number(u"CellLeft"), 2 * colWidth * 15);
        platform.pressKey(mirrored ? key::right : key::left);
        EXPECT_EQ(current(), std::pair(1, 1)) << "arrows go where they point";
        click(there({border + 3 * colWidth + 20, border + 5}));
        EXPECT_EQ(call(u"BarHeaderColumn"), Value(3));
        goTo(1, 0);
        pictures[mirrored] = drawn();
        call(u"BoxShow");
        ASSERT_FALSE(surface().children().empty());
        for (const headless::HeadlessWindow* child : surface().children()) {
            if (child->visible()) editors[mirrored] = child->bounds();
        }
        call(u"BoxHide");
        // By dragging the first column's border away from the reading edge it becomes wider.
        const int32_t y = border + 5;
        platform.mouse(control->window(), {Kind::down, button::left, 0, there({border + colWidth, y})});
        platform.mouse(control->window(), {Kind::move, 0, 0, there({border + colWidth + 20, y})});
        platform.mouse(control->window(), {Kind::up, button::left, 0, there({border + colWidth + 20, y})});
        goTo(1, 0);
        EXPECT_EQ(number(u"CelWidth"), (colWidth + 20) * 15);
    }
    EXPECT_EQ(editors[1], editors[0].mirroredIn(area));
    ASSERT_EQ(pictures[1].size(), pictures[0].size());
    for (size_t item = 0; item < pictures[0].size(); ++item) {
        const DrawnItem &left = pictures[0][item], &right = pictures[1][item];
        EXPECT_EQ(right.rect, left.rect.mirroredIn(area)) << item;
        EXPECT_EQ(right.colour, left.colour) << item;
        EXPECT_EQ(right.text, left.text) << item;
        EXPECT_EQ(right.style.rightToLeft, left.kind == DrawnItem::Kind::text) << item;
    }
}

TEST_F(GridEditorsTest, AHostMayAnswerInTheEventsOfAClosingEditor) {
    work();
    // While it is asked, no editor opens.
    onEvent("ChangeEdited", [this] { call(u"BoxShow"); });
    call(u"BoxHide");
    host.on.clear();
    EXPECT_FALSE(isOpen());
    // One that checks what was typed sends the person back.
    onEvent("ChangePost", [this] { call(u"GridSetFocus", {0, 1}); });
    goTo(1, 0);
    platform.type(u"bad");
    platform.pressKey(key::tab);
    host.on.clear();
    EXPECT_EQ(current(), std::pair(1, 0));
    platform.type(u"good");
    platform.pressKey(key::escape);
    EXPECT_EQ(read(1, 0), "good");
}

}  // namespace
}  // namespace obk::test
