#include "grid_edit_fixture.h"

#include "grid/cell_values.h"
#include "grid/context_menu.h"
#include "platform/headless/recording_canvas.h"

#include <algorithm>
#include <ctime>
#include <random>

namespace obk::test {
namespace {

constexpr int32_t textCol = 0, dateCol = 1, fixedCol = 2, checkCol = 3, listCol = 4, numberCol = 5,
                  timeCol = 6, allCols = 7;

// A grid with one column of each type, the first cell the current one.
class GridColumnsTest : public GridEditTest {
protected:
    void SetUp() override {
        GridEditTest::SetUp();
        makeColumns(4);
        fillList({u"oak", u"elm", u"ash"});
        platform.clock().setToday(std::chrono::year(2026) / 11 / 14);
    }
    void makeColumns(int32_t rows) {
        size(rows, allCols);
        for (int32_t col = 0; col < allCols; ++col) call(u"ColTypeSet", {col, col});
    }
    void fillList(std::initializer_list<const char16_t*> items) {
        call(u"ComboClear");
        for (const char16_t* item : items) call(u"ComboAdd", {Text(item)});
    }
    void typeInto(int32_t row, int32_t col, TextView keys) {
        goTo(row, col);
        platform.type(keys);
    }
    // What changed in the cell when it was typed into from the keyboard.
    std::string typedInto(int32_t row, int32_t col, TextView keys) {
        typeInto(row, col, keys);
        platform.pressKey(key::escape);
        return read(row, col);
    }
    void show(int32_t row, int32_t col) {
        goTo(row, col);
        call(u"BoxShow");
    }
    bool isOpen() { return after(u"BoxHide").news() == edited; }
    bool opens() {
        call(u"BoxShow");
        return isOpen();
    }
};

// A person works in it.
class GridEditorsTest : public GridColumnsTest {
protected:
    void SetUp() override {
        GridColumnsTest::SetUp();
        activate({0, 0, 600, 200});
        surface().paint();
        call(u"GridFocusShow");
        host.take();
    }
};

TEST_F(GridEditorsTest, WhatIsTypedOverACellOpensItsEditorAndIsKept) {
    set(0, 0, u"before");
    set(0, dateCol, u"Mon 2 Feb 2026");
    EXPECT_EQ(typedInto(0, textCol, u"x\u20ACy"), "x\xE2\x82\xACy");
    EXPECT_EQ(news(), "Click, ChangeEdited, Change, ChangePost");
    EXPECT_EQ(typedInto(1, textCol, u"\u65E5"), "\xE6\x97\xA5") << "an input method's";
    EXPECT_EQ(typedInto(1, textCol, u"\b"), "");
    EXPECT_EQ(typedInto(0, dateCol, u"3 mar 2027"), "Wed 3 Mar 2027");
    EXPECT_EQ(typedInto(0, listCol, u"a"), "ash");
    EXPECT_EQ(typedInto(0, listCol, u"el"), "elm");
    EXPECT_EQ(typedInto(0, timeCol, u"9:3"), "9:30:00 am");
    EXPECT_EQ(typedInto(0, checkCol, u" "), "a");
    EXPECT_EQ(typedInto(0, checkCol, u"  "), "a") << "turned over twice";
    EXPECT_EQ(typedInto(0, checkCol, u" "), "");
    typeInto(0, fixedCol, u"x");
    EXPECT_EQ(after(key::escape).news(), "ChangeEdited");
    EXPECT_EQ(read(0, fixedCol), "");
}

TEST_F(GridEditorsTest, AnEditorOpensWithItsCellAndLeavesWhatItCannotShow) {
    const char16_t* const texts[] = {u"two\r\nlines", u"Mon 2 Feb 2026", u"fixed", u"  a",
                                     u"beech",        u"1234567890123",  u"9:15"};
    for (int32_t col = 0; col < allCols; ++col) {
        set(2, col, texts[col]);
        call(u"BoxShow");
        platform.setFocus(0);
        platform.setFocus(control->window());
        EXPECT_EQ(read(2, col), toUtf8(texts[col])) << col;
    }
    goTo(0, dateCol);
    EXPECT_EQ(after(u"BoxShow").news(), "Click");
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(read(0, dateCol), "Sat 14 Nov 2026") << "an empty date cell opens with today";
}

TEST_F(GridColumnsTest, AScriptEditsWithoutAWindow) {
    set(1, 0, u"oak");
    EXPECT_EQ(after(u"BoxShow").news(), "Click");
    EXPECT_EQ(after(u"BoxShow").news(), "") << "it is open already";
    EXPECT_EQ(after(u"BoxHide").news(), edited);
    EXPECT_EQ(after(u"BoxHide").news(), "ChangeEdited");
    goTo(2, fixedCol);
    for (const int32_t code : {fixedCol, 7, 17, -1, INT32_MIN, INT32_MAX}) {
        call(u"ColTypeSet", {fixedCol, code});
        EXPECT_FALSE(opens()) << code;
    }
    EXPECT_EQ(platform.windowCount(), 0u);
}

TEST_F(GridEditorsTest, AnEditorStandsOverItsCellAtEveryScale) {
    for (const int32_t dotsPerInch : {96, 120, 144, 168, 192}) {
        const Dpi dpi(dotsPerInch);
        surface().setDpi(dpi);
        for (const auto& [style, header] : {std::pair(1, true), std::pair(0, true), std::pair(1, false)}) {
            SCOPED_TRACE(testing::Message() << dotsPerInch << " " << style << " " << header);
            put(u"BorderStyle", style);
            put(u"BarHeader", header);
            show(1, textCol);
            const auto pixels = [&](TextView member) { return dpi.toPixels(Twips{1.0 * number(member)}); };
            const int32_t top = firstRowAt() + pixels(u"CellCurrentTop");
            const int32_t bottom = top + pixels(u"CellCurrentHeight");
            const auto* const shown = surface().childAt({10, (top + bottom) / 2});
            ASSERT_TRUE(shown);
            // One line of text, which stands where the cell's does: in the middle above the grid's line.
            const PixelRect line = shown->bounds();
            EXPECT_EQ(line.left, style == 1 ? dpi.toPixels(Twips{30}) : 0);
            EXPECT_EQ(line.width(), pixels(u"CellCurrentWidth"));
            EXPECT_GT(line.top, top);
            EXPECT_NEAR(line.top - top, bottom - dpi.scaled(1) - line.bottom, 1);
            call(u"BoxHide");
        }
    }
}

TEST_F(GridEditorsTest, KeysGoThroughTheCells) {
    platform.type(u"oak");
    EXPECT_EQ(after(key::enter).news(),
              "ChangeEdited, Change, ChangePost, CellSelected, NewRowSelected, SelChange, Click");
    EXPECT_EQ(current(), std::pair(1, 0));
    platform.type(u"elm");
    EXPECT_EQ(after(key::tab).current(), std::pair(1, dateCol));
    EXPECT_EQ(column(0), "oak,elm,,");
    EXPECT_EQ(after(key::tab).current(), std::pair(1, checkCol)) << "the read-only column is passed over";
    EXPECT_EQ(after(key::tab, shift::shift).current(), std::pair(1, dateCol));
    call(u"ColumnVisible", {textCol, 0, false});
    EXPECT_EQ(after(key::tab, shift::shift).current(), std::pair(0, timeCol))
        << "a hidden column is passed over, and the row left";
    EXPECT_EQ(after(key::tab).current(), std::pair(1, dateCol));
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(after(key::right).current(), std::pair(1, fixedCol)) << "arrows move where no editor is open";
    EXPECT_FALSE(isOpen());
    press({key::f2, key::enter});
    EXPECT_EQ(current(), std::pair(2, fixedCol)) << "there is nothing to open, but a way";
    EXPECT_FALSE(isOpen());
}

TEST_F(GridEditorsTest, TabLeavesTheGridAtItsEnds) {
    host.takesKeys = true;
    typeInto(3, timeCol, u"1");
    EXPECT_EQ(after(key::tab).told().find("offered 9"), 0u);
    call(u"BoxHide");
    goTo(0, textCol);
    EXPECT_EQ(after(key::tab, shift::shift).told().find("offered 9"), 0u);
    EXPECT_EQ(current(), std::pair(0, textCol));
    put(u"AllowGridEdit", false);
    goTo(1, textCol);
    EXPECT_EQ(after(key::tab).told().find("offered 9"), 0u) << "there is nothing to go to";
    EXPECT_EQ(after(key::escape).told().find("offered 27"), 0u) << "a dialog may want to be cancelled";
}

TEST_F(GridEditorsTest, RowsComeAndGoByKeys) {
    const char added[] = "ChangeEdited, Change, NewRow 4, CellSelected, NewRowSelected, SelChange";
    goTo(3, 0);
    EXPECT_EQ(after(key::down).news(), added);
    EXPECT_EQ(current(), std::pair(4, 0));
    EXPECT_FALSE(isOpen());
    platform.type(u"oak");
    EXPECT_EQ(after(key::enter).news(),
              "ChangeEdited, Change, ChangePost, Change, NewRow 5, CellSelected, "
              "NewRowSelected, SelChange, Click");
    EXPECT_EQ(current(), std::pair(5, 0));
    EXPECT_EQ(typedInto(5, 0, u"elm"), "elm");
    goTo(4, 0);
    EXPECT_EQ(after(key::insert).news(), added);
    EXPECT_EQ(column(0), ",,,,,oak,elm");
    EXPECT_EQ(after(key::deleteKey).news(), "ChangeEdited, Change, DelRow");
    EXPECT_EQ(after(key::deleteKey).column(0), ",,,,elm");
    call(u"RowsSet", {1});
    platform.pressKey(key::deleteKey);
    set(0, 0, u"probe");
    EXPECT_TRUE(gridShows()) << "a person goes on in the row that is left";
    platform.type(u"x");
    EXPECT_EQ(after(key::escape).column(0), "x");
    call(u"BoxShow");
    call(u"BoxSelect");
    platform.type(u"elm");
    press({key::deleteKey, key::insert});
    EXPECT_EQ(after(u"BoxHide").column(0), "elm") << "in an editor these keys are its own";
}

TEST_F(GridEditorsTest, AGridThatIsNotEditedStaysAsItIs) {
    set(3, 0, u"oak");
    platform.type(u"elm");
    host.take();
    put(u"AllowGridEdit", false);
    EXPECT_EQ(news(), edited) << "what is open is kept";
    platform.setClipboard(u"1\t2");
    press({key::f2, key::insert, key::deleteKey, key::down, 'X'});
    press({'V', 'Z'}, shift::control);
    platform.pressKey(key::enter);
    click(at(0, 0));
    EXPECT_FALSE(opens());
    EXPECT_EQ(column(0), ",,,elm");
    put(u"AllowGridEdit", true);
    host.designs = true;
    EXPECT_FALSE(opens()) << "on a form that is being designed";
}

TEST_F(GridEditorsTest, WhateverDisturbsTheCellsKeepsTheEditorsTextFirst) {
    size(40, allCols);
    const WheelEvent notch{-120, false, 0, at(1, 0)};
    const PixelRect smaller{0, 0, 500, 150};
    const std::vector<Value> noText{Text(), 0}, hide{0, 900, true};
    const PixelPoint noCell{500, 60}, caption{50, 8}, edge{border + colWidth, 60}, beyond{edge.x + 9, 60};
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"scroll", [&] { call(u"TopRowSet", {5}); }},
        {"wheel", [&] { platform.wheel(control->window(), notch); }},
        {"another cell", [&] { click(at(2, 1)); }},
        {"no cell", [&] { click(noCell); }},
        {"column border", [&] { drag(edge, beyond); }},
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
        for (const TextView member : {u"GridHide", u"GridShow", u"GridClear"}) call(member);
        call(u"TopRowSet", {0});
        goTo(1, 0);
        call(u"GridFocusShow");
        platform.type(u"oak");
        host.take();
        disturb();
        const std::string told = news();
        EXPECT_TRUE(told.starts_with(edited)) << name << ": " << told;
        EXPECT_NE(column(0).find("oak"), std::string::npos) << name;
    }
}

TEST_F(GridEditorsTest, AnEditorBelongsToTheCellItWasOpenedFor) {
    typeInto(1, 0, u"oak");
    set(3, 1, u"elsewhere");
    EXPECT_EQ(after(u"BoxHide").column(0), ",oak,,");
    EXPECT_EQ(current(), std::pair(3, 1));
    typeInto(0, 0, u"ash");
    set(3, 1, u"elsewhere");
    std::pair<int32_t, int32_t> told;
    onEvent("ChangeEdited", [&] { told = current(); });
    EXPECT_EQ(after(key::enter).column(0), "ash,oak,,");
    host.on.clear();
    EXPECT_EQ(told, std::pair(0, 0)) << "the host is asked about the cell that is left";
    EXPECT_EQ(current(), std::pair(1, 0)) << "a person goes on from there";
    call(u"GridClear");
    typeInto(2, 0, u"elm");
    call(u"RowAddQuick", {Text(u"quick"), 0});
    EXPECT_EQ(after(u"BoxHide").column(0), "quick,,,elm,") << "it has moved with its row";
    call(u"BoxShow");
    set(0, 1, u"elsewhere");
    platform.type(u"elms");
    EXPECT_EQ(after(u"BoxHide").column(0), "elms,,,elm,") << "what is typed still replaces the text";
    show(0, 0);
    set(0, 0, u"host's");
    EXPECT_EQ(after(u"BoxHide").column(0), "host's,,,elm,") << "nobody has typed anything else";
}

TEST_F(GridEditorsTest, AClickOpensTheEditorOfItsCell) {
    click(at(1, textCol));
    EXPECT_EQ(told(),
              "MouseDown 1 0 150 405, ChangeEdited, CellSelected, NewRowSelected, SelChange, "
              "MouseUp 1 0 150 405, Click");
    EXPECT_TRUE(isOpen());
    click(at(1, textCol));
    EXPECT_TRUE(isOpen()) << "also in the current cell";
    click(at(1, fixedCol));
    EXPECT_EQ(news(), "ChangeEdited, CellSelected, SelChange, Click");
    EXPECT_FALSE(isOpen());
    drag(at(0, 0), at(2, 1));
    EXPECT_FALSE(isOpen()) << "cells are being selected";
    click(at(1, textCol));
    host.take();
    click(at(1, textCol), Kind::doubleClick);
    EXPECT_EQ(news(), "DblClickExt");
    for (const PixelPoint inCheckColumn :
         {PixelPoint{border + checkCol * colWidth + 33, at(1, 0).y}, at(1, checkCol)}) {
        click(inCheckColumn);
        EXPECT_TRUE(isOpen());
        EXPECT_EQ(read(1, checkCol), "a") << "a click beside the box only chooses the cell";
    }
}

TEST_F(GridEditorsTest, TheListTellsWhatIsChosen) {
    show(0, listCol);
    host.take();
    click(at(0, listCol));
    ASSERT_TRUE(topPanel());
    const PixelRect third = parts(*topPanel(), AccessibleItem::Role::listItem)[2].bounds;
    platform.click(topPanel()->id(), {third.left + 5, third.top + 5});
    EXPECT_EQ(news(), "CboBoxClick, CboClick");
    EXPECT_FALSE(topPanel());
    call(u"BoxShow");
    platform.keyDown(key::f4, 0, true);
    EXPECT_FALSE(topPanel()) << "a held key opens no list";
    platform.pressKey(key::f4);
    ASSERT_TRUE(topPanel());
    press({key::home, key::escape});
    EXPECT_FALSE(topPanel());
    EXPECT_EQ(news(), "") << "the first Escape closes the list alone";
    // A host that fills the list anew when it is about to open.
    onEvent("CboBoxClick", [this] { fillList({u"", u"R&D", u"ash", u"elm", u"oak"}); });
    click(at(0, listCol));
    const auto items = parts(*topPanel(), AccessibleItem::Role::listItem);
    ASSERT_EQ(items.size(), 5u);
    EXPECT_EQ(items[1].name, u"R&D");
    EXPECT_TRUE(items[2].is(AccessibleItem::selected)) << "the item stays";
    mouse(Kind::up, at(0, listCol));
    EXPECT_TRUE(topPanel()) << "the press that opened it is over";
    platform.mouse(topPanel()->id(), {Kind::down, button::left, 0, {-30, -40}});
    EXPECT_FALSE(topPanel());
    host.on.clear();
    press({key::f4, key::home});
    EXPECT_TRUE(after(key::tab).news().starts_with("CboClick")) << "Tab takes what is marked along";
    EXPECT_EQ(read(0, listCol), "") << "an empty item is one";
}

TEST_F(GridEditorsTest, TheHostWorksOnTheListThatIsOpen) {
    set(0, listCol, u"ash");
    call(u"BoxShow");
    EXPECT_EQ(after(u"cboLIST_KeyDown", {key::up, int16_t{0}}).news(), "CboClick");
    EXPECT_EQ(after(u"BoxHide").read(0, listCol), "elm");
    call(u"BoxShow");
    press({key::f4, key::end});
    call(u"ComboDel", {2});
    press({key::down, key::enter});
    EXPECT_EQ(after(u"BoxHide").read(0, listCol), "oak") << "an item that has gone is not marked";
    for (const int32_t item : {1, 7}) call(u"ComboDel", {item});
    EXPECT_EQ(typedInto(1, listCol, u"e"), "");
    EXPECT_EQ(typedInto(1, listCol, u"o"), "oak");
    call(u"ComboClear");
    EXPECT_EQ(typedInto(1, listCol, u"a"), "oak");
}

TEST_F(GridEditorsTest, ACalendarHasTheKeysWhileItIsOpen) {
    set(0, dateCol, u"Mon 2 Feb 2026");
    press({key::f2, key::f4});
    for (int part = 0; part < 6; ++part) platform.pressKey(key::tab);  // once round
    platform.pressKey(key::right);
    EXPECT_EQ(after(key::enter).news(), "") << "it picks the day";
    EXPECT_EQ(current(), std::pair(0, dateCol));
    EXPECT_EQ(after(key::enter).read(0, dateCol), "Tue 3 Feb 2026");
    EXPECT_EQ(current(), std::pair(1, dateCol));
    platform.pressKey(key::f4);
    EXPECT_TRUE(open());
    control->deactivate();
    EXPECT_EQ(platform.windowCount(), 0u) << "it goes with the grid's window";
}

TEST_F(GridEditorsTest, StepsAreTakenBackAndDoneAgain) {
    const auto back = [this] { return after('Z', shift::control).column(0); };
    const auto again = [this] { return after('Y', shift::control).column(0); };
    set(1, 0, u"oak");
    typeInto(0, 0, u"elm");
    platform.pressKey(key::enter);
    EXPECT_EQ(back(), ",oak,,") << "also with the next editor open and untouched";
    EXPECT_EQ(current(), std::pair(0, 0)) << "where the change was";
    back();
    EXPECT_EQ(again(), "elm,oak,,");
    typeInto(0, 0, u"ash");
    EXPECT_EQ(again(), "elm,oak,,") << "in an editor that was typed into the keys are its own";
    EXPECT_EQ(back(), "elm,oak,,");
    platform.pressKey(key::escape);
    call(u"CellColorSetx", {red, 1, 1});
    EXPECT_EQ(after(key::deleteKey).column(0), "as,,") << "its line has taken back one letter";
    EXPECT_EQ(back(), "as,oak,,");
    EXPECT_EQ(colourAt(at(1, 1)), Rgb::of(255, 0, 0)) << "with all that its row had";
    EXPECT_EQ(again(), "as,,");
    // The host's own rows move what is remembered, whatever it does inside the events.
    call(u"RowAdd", {Text(u"new"), 0});
    onEvent("Change", [this] {
        host.on.clear();
        call(u"RowAddQuick", {Text(u"quick"), 0});
    });
    EXPECT_EQ(back(), "quick,new,as,oak,,");
    EXPECT_EQ(back(), "quick,new,elm,oak,,");
    call(u"RowDel", {2});
    EXPECT_EQ(back(), "quick,new,oak,,") << "what was about a row that is gone";
    typedInto(3, 0, u"z");
    call(u"GridColSort", {0});
    EXPECT_EQ(back(), "z,quick,oak,new,") << "the rows stand elsewhere";
    call(u"RowsSet", {1});
    set(0, 0, u"only");
    EXPECT_EQ(after(key::deleteKey).column(0), "");
    EXPECT_EQ(back(), "only");
    platform.type(u"same");
    set(0, 0, u"same");
    platform.pressKey(key::escape);
    EXPECT_EQ(again(), "") << "nothing but the host has changed the cell";
    back();
    press({key::enter, key::enter});
    EXPECT_EQ(column(0), "same,,");
    back();
    EXPECT_EQ(back(), "same") << "rows that Enter has added";
}

TEST_F(GridEditorsTest, APersonTakesBackAllThatWasDoneAndDoesItAgain) {
    const char16_t* const typed[] = {u"oak", u"7", u" ", u"3 mar 27", u"e", u"-"};
    const char16_t* const copied[] = {u"1\t2\r\n3\t4\r\n", u"x\r\ny\r\nz\r\n", u"TRUE"};
    constexpr int16_t plain[] = {key::enter, key::insert, key::deleteKey, key::left,
                                 key::up,    key::right,  key::down,      key::tab};
    constexpr int16_t selecting[] = {key::down, key::right}, commands[] = {'V', 'V', 'X', 'D'};
    const auto state = [this] {
        std::string texts;
        for (int32_t col = 0; col < allCols; ++col) texts += column(col) + "|";
        return texts;
    };
    for (uint32_t seed = 1; seed <= 12; ++seed) {
        std::mt19937 random(seed);
        const auto one = [&](const auto& of) { return of[random() % std::size(of)]; };
        std::vector<std::string> states{state()};
        for (int32_t action = 0; action < 45; ++action) {
            platform.setClipboard(one(copied));
            const auto kind = random() % 8;
            if (kind < 2) platform.type(one(typed));
            if (kind == 2 || kind == 3) platform.pressKey(one(commands), shift::control);
            if (kind == 4) platform.pressKey(one(selecting), shift::shift);
            if (kind > 4) platform.pressKey(one(plain));
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
        call(u"RowsSet", {4});
    }
}

// Another program's text, one line of which is wide and all others of which are many.
TEST_F(GridEditorsTest, APasteCostsNoMoreThanItsTextHoweverWideItIs) {
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
    const auto row = [this](int32_t at) {
        std::string texts;
        for (int32_t col = 0; col < allCols; ++col) texts += (col == 0 ? "" : "|") + read(at, col);
        return texts;
    };
    set(1, fixedCol, u"fixed");
    set(2, numberCol, u"12");
    platform.setClipboard(
        u"\"a\ttab\"\t3 mar 2027\tlost\tTRUE\tELM\t7.5\t9:30 pm\tbeyond\r\n"
        u"b\tno date\t\t0\tpine\tseven\t25:00\r\n");
    surface().paint();
    show(1, 0);
    EXPECT_EQ(after('V', shift::control).news(), "ChangeEdited, Change, ChangePost, Change, ChangePost")
        << "from an editor that nothing was typed into";
    EXPECT_EQ(row(1), "a\ttab|Wed 3 Mar 2027|fixed|a|elm|7.5|9:30:00 pm");
    EXPECT_EQ(row(2), "b|||||12|") << "what a column does not take changes nothing";
    EXPECT_TRUE(drawnText(u"a").text.empty()) << "a mark, not a letter";
    platform.pressKey('Z', shift::control);
    EXPECT_EQ(row(1) + " " + row(2), "||fixed|||| |||||12|");
    platform.setClipboard(u"1\r\n2\r\n3\r\n4\r\n");
    EXPECT_EQ(after(key::insert, shift::shift).news(), "Change, ChangePost");
    EXPECT_EQ(column(0), ",1,2,3,4") << "rows come behind the last one";
    EXPECT_EQ(after('Z', shift::control).column(0), ",,,");
    typeInto(0, 0, u"x");
    EXPECT_EQ(after('V', shift::control).news(), "") << "an editor that was typed into takes it as text";
    platform.pressKey(key::escape);
    platform.setClipboard(u"");
    platform.pressKey('V', shift::control);
    EXPECT_TRUE(isOpen()) << "with nothing to paste it is a key like others";
    platform.pressKey(key::escape);
    platform.setClipboard(u"one value\r\n");
    EXPECT_EQ(after('V', shift::control).news(), "Click") << "it goes into the editor";
    platform.type(u"s");
    EXPECT_EQ(after(key::escape).read(0, 0), "one values");
}

TEST_F(GridEditorsTest, ASelectionIsWorkedOnAtOnce) {
    const auto select = [this](int32_t row, int32_t col, int32_t down, int32_t right) {
        goTo(row, col);
        for (; down > 0; --down) platform.pressKey(key::down, shift::shift);
        for (; right > 0; --right) platform.pressKey(key::right, shift::shift);
    };
    // What a key leaves in a column when it is one change.
    const auto once = [this](int16_t code, int16_t held, int32_t col = 0) {
        EXPECT_EQ(after(code, held).news(), "Change, ChangePost") << code;
        return column(col);
    };
    platform.setClipboard(u"1\r\n2\r\n");
    select(0, 0, 3, 0);
    EXPECT_EQ(once('V', shift::control), "1,2,1,2") << "again and again where there is room";
    platform.setClipboard(u"3\r\n4\r\n");
    select(0, 0, 2, 0);
    EXPECT_EQ(once('V', shift::control), "3,4,1,2") << "but no part of it";
    platform.setClipboard(u"x");
    EXPECT_EQ(once('V', shift::control), "x,x,x,2") << "one value fills all";
    set(1, fixedCol, u"fixed");
    select(1, 0, 1, 2);
    EXPECT_EQ(once('X', shift::control), "x,,,2");
    EXPECT_EQ(toUtf8(platform.clipboard()), "x\t\tfixed\r\nx\t\t\r\n");
    EXPECT_EQ(read(1, fixedCol), "fixed");
    platform.pressKey('D', shift::control);
    select(0, 0, 3, 0);
    EXPECT_EQ(once('D', shift::control), "x,x,x,x");
    goTo(0, textCol);
    EXPECT_EQ(after('D', shift::control).news(), "") << "nothing is above";
    set(1, checkCol, u"a");
    select(0, checkCol, 3, 1);
    EXPECT_EQ(once(key::space, 0, checkCol), "a,a,a,a");
    EXPECT_EQ(once(key::space, 0, checkCol), ",,,") << "all were checked";
    select(1, 0, 1, 0);
    EXPECT_EQ(after(key::deleteKey).news(), "ChangeEdited, Change, DelRow, ChangeEdited, Change, DelRow");
    EXPECT_EQ(column(0), "x,x");
    EXPECT_EQ(after('Z', shift::control).column(0), "x,x,x,x") << "one step";
    press({'A', 'C'}, shift::control);
    EXPECT_TRUE(platform.clipboard().ends_with(u"x\t\t\t\t\t\t\r\n"));
    EXPECT_EQ(current(), std::pair(0, 0));
    click(at(2, 0));
    mouse(Kind::down, at(3, 1), button::left, shift::shift);
    mouse(Kind::up, at(3, 1), button::left, shift::shift);
    EXPECT_FALSE(isOpen()) << "cells are selected";
    platform.pressKey('C', shift::control);
    EXPECT_EQ(platform.clipboard(), u"x\t\r\nx\t\r\n");
}

TEST_F(GridEditorsTest, ANumberIsTypedAndNeverChangedByAccident) {
    const auto typed = [this](TextView keys) { return typedInto(0, numberCol, keys); };
    EXPECT_EQ(typed(u"7.5"), "7.5");
    EXPECT_EQ(typed(u"a99999999999"), "99999999999") << "no limit but the digits";
    EXPECT_EQ(typed(u"-5"), "-5");
    EXPECT_EQ(typed(u"5-"), "-5");
    EXPECT_EQ(typed(u"12--"), "12");
    EXPECT_EQ(typed(u"1,5"), "15") << "a comma is none here";
    EXPECT_EQ(typed(u"-"), "15") << "no number";
    platform.setRegionalFormats({u',', {}});
    EXPECT_EQ(typed(u"1,5,5"), "1.55");
    EXPECT_EQ(typed(u"1.5"), "1.5");
    platform.setClipboard(u"1.234,50\t1,2,3\r\n");
    goTo(1, numberCol);
    EXPECT_EQ(after('V', shift::control).read(1, numberCol), "1234.50");
    for (const int16_t code : {key::up, key::down, key::pageUp, key::pageDown}) {
        set(2, numberCol, u"12.34");
        call(u"BoxShow");
        EXPECT_EQ(after(code).read(2, numberCol), "12.34") << code;
        EXPECT_NE(current(), std::pair(2, numberCol)) << code;
        EXPECT_FALSE(isOpen()) << code;
    }
    show(2, numberCol);
    press({key::up, key::up, key::down}, shift::alt);
    EXPECT_EQ(after(key::escape).read(2, numberCol), "13.34") << "all decimals stay";
    size(40, allCols);
    show(2, numberCol);
    platform.wheel(control->window(), {-120, false, 0, at(2, numberCol)});
    EXPECT_EQ(number(u"TopRowRead"), 3) << "the wheel scrolls";
    EXPECT_EQ(after(u"BoxHide").read(2, numberCol), "13.34");
    size(3, allCols);
    typedInto(0, numberCol, u"3-");
    typedInto(1, numberCol, u"10");
    typedInto(2, numberCol, u"2,5");
    EXPECT_EQ(after(u"GridColSort", {numberCol}).column(numberCol), "-3,2.5,10");
}

TEST_F(GridEditorsTest, DatesAreReadAsTheUserWritesThem) {
    using enum DateForms::Order;
    const auto read = [](TextView text, DateForms::Order order, int32_t pivot = 2049) {
        return cellText(ColumnType::date, text, {}, {u'.', {order, pivot, {}}});
    };
    const std::vector<DateForms::Order> all{dayMonthYear, monthDayYear, yearMonthDay};
    const std::pair<std::vector<DateForms::Order>, std::vector<const char16_t*>> forms[] = {
        {{dayMonthYear}, {u"4.12.2026", u" 04/12/2026 ", u"4-12-26"}},
        {{monthDayYear}, {u"12/4/2026", u"12.4.26"}},
        {{yearMonthDay}, {u"26/12/04"}},
        {{dayMonthYear, monthDayYear}, {u"4 dec 26"}},
        {all, {u"2026-12-04", u"4 dec 2026", u"December 4, 2026"}},
    };
    for (const auto& [orders, texts] : forms) {
        for (const char16_t* text : texts) {
            for (const DateForms::Order order : all) {
                const bool meant = std::count(orders.begin(), orders.end(), order) > 0;
                EXPECT_EQ(read(text, order) == u"Fri 4 Dec 2026", meant) << toUtf8(text) << int(order);
            }
        }
    }
    EXPECT_EQ(read(u"4.12.2026", yearMonthDay), std::nullopt) << "the day or the month";
    EXPECT_EQ(read(u"1.2.50", dayMonthYear), u"Wed 1 Feb 1950");
    for (const char16_t* text : {u"1.2.47", u"4 dec 47"})
        EXPECT_EQ(read(text, dayMonthYear, 99), std::nullopt) << "of another calendar";
    EXPECT_EQ(read(u"4.12.2026", dayMonthYear, 99), u"Fri 4 Dec 2026");
    for (const char16_t* text :
         {u"31.4.2026", u"4.13.2026", u"4.12.126", u"4.12/2026", u"4.12.20261", u"4.12.", u"2026-12-4x",
          u"2026-", u"0.0.0", u"1.2", u"4 dec", u"29.2.2026", u"dec 26"})
        EXPECT_EQ(read(text, dayMonthYear), std::nullopt) << toUtf8(text);
    platform.setRegionalFormats({u'.', {monthDayYear, 2049, {}}});
    EXPECT_EQ(typedInto(0, dateCol, u"12/4/26"), "Fri 4 Dec 2026");
    EXPECT_EQ(typedInto(0, dateCol, u"31/12/26"), "31/12/26") << "never another day";
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
    set(1, 0, u"oak");
    const std::span<const MenuLine> lines = contextMenuLines();
    std::vector<MenuItem> asked;
    std::optional<size_t> answer;
    platform.answerMenu([&](std::span<const MenuItem> items, const PixelRect&) {
        asked.assign(items.begin(), items.end());
        return std::exchange(answer, {});
    });
    const auto choose = [&](TextView caption) {
        const auto line = std::ranges::find_if(
            lines, [&](const MenuLine& each) { return each.caption.starts_with(caption); });
        answer = static_cast<size_t>(line - lines.begin());
        platform.click(control->window(), at(1, 0), button::right);
        return column(0);
    };
    EXPECT_EQ(choose(u"Cu&t"), ",,,") << "the cell under the mouse";
    EXPECT_EQ(platform.clipboard(), u"oak\r\n");
    EXPECT_EQ(choose(u"&Undo"), ",oak,,");
    EXPECT_EQ(choose(u"&Delete row"), ",,");
    EXPECT_EQ(choose(u"&Undo"), ",oak,,");
    EXPECT_EQ(choose(u"&Insert row"), ",,oak,,");
    put(u"AllowGridEdit", false);
    asked.clear();
    platform.pressKey(key::menu);
    ASSERT_EQ(asked.size(), lines.size()) << "the menu key, at the current cell";
    std::string enabled;
    for (const MenuItem& item : asked)
        enabled += item.enabled && !item.caption.empty() ? toUtf8(item.caption) + "; " : "";
    EXPECT_EQ(enabled, "&Copy\tCtrl+C; &Fit column\tCtrl++; ");
    const auto discard = [](std::span<Value> arguments) { arguments[0] = int16_t{0}; };
    const std::pair<const char*, std::function<void(std::span<Value>)>> hosts[] = {
        {"MouseDown", discard},
        {"MouseUp", discard},
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

TEST_F(GridColumnsTest, AnEditorShowsItsTextAsTheCellDoes) {
    for (const int32_t dotsPerInch : {96, 144, 192}) {
        for (const double size : {6.0, 8.25, 11.0, 20.0, 36.0}) {
            const Dpi dpi(dotsPerInch);
            platform.appearance().setDpi(dpi);
            place(GridEdit::memberTable());
            control->setSize(dpi.toTwips(900), dpi.toTwips(500));
            put(u"Font", std::make_shared<SharedFont>(FontDescription{u"Tahoma", size}));
            makeColumns(1);
            for (const auto& [col, text] :
                 {std::pair(textCol, u"probe"), {dateCol, u"Mon 2 Mar 2026"}, {numberCol, u"-7"}}) {
                SCOPED_TRACE(testing::Message() << dotsPerInch << " " << size << " " << col);
                for (int32_t other = 0; other < allCols; ++other)
                    call(u"ColWidth", {other, other == col ? 4000.0 : 300.0});
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
                    EXPECT_NEAR(editor.rect.top, (cell.rect.top + cell.rect.bottom - line) / 2.0, 1);
                    call(u"BoxHide");
                    if (col == dateCol) continue;  // its icon stands before the text
                    EXPECT_EQ(editor.style.colour, cell.style.colour);
                    EXPECT_EQ(editor.rect.left, cell.rect.left);
                    if (col == textCol) EXPECT_EQ(editor.rect.right, cell.rect.right);
                }
            }
        }
    }
}

TEST_F(GridColumnsTest, InARightToLeftContainerAllIsMirrored) {
    constexpr PixelRect area{0, 0, 400, 150};
    std::vector<DrawnItem> pictures[2];
    PixelRect editors[2];
    for (const bool mirrored : {false, true}) {
        host.readsRightToLeft = mirrored;
        place(GridEdit::memberTable());
        makeColumns(30);
        for (int32_t col = 0; col < allCols; ++col) set(1, col, u"a");
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
        EXPECT_EQ(after(mirrored ? key::right : key::left).current(), std::pair(1, 1))
            << "arrows go where they point";
        click(there({border + 3 * colWidth + 20, border + 5}));
        EXPECT_EQ(call(u"BarHeaderColumn"), Value(3));
        goTo(1, 0);
        pictures[mirrored] = drawn();
        call(u"BoxShow");
        const auto* const editor = surface().childAt(there(at(1, 0)));
        ASSERT_TRUE(editor);
        editors[mirrored] = editor->bounds();
        call(u"BoxHide");
        // By dragging the first column's border away from the reading edge it becomes wider.
        drag(there({border + colWidth, border + 5}), there({border + colWidth + 20, border + 5}));
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
    // While it is asked, no editor opens.
    onEvent("ChangeEdited", [this] { call(u"BoxShow"); });
    call(u"BoxHide");
    host.on.clear();
    EXPECT_FALSE(isOpen());
    // One that checks what was typed sends the person back.
    onEvent("ChangePost", [this] { call(u"GridSetFocus", {0, 1}); });
    typeInto(1, 0, u"bad");
    EXPECT_EQ(after(key::tab).current(), std::pair(1, 0));
    host.on.clear();
    platform.type(u"good");
    EXPECT_EQ(after(key::escape).read(1, 0), "good");
}

}  // namespace
}  // namespace obk::test
