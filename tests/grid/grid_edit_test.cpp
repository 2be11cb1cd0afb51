#include "grid_edit_fixture.h"

#include <algorithm>

namespace obk::test {
namespace {

TEST_F(GridEditTest, ReadingACellLeavesTheCurrentOneAndWritingMovesIt) {
    size(5, 4);
    set(2, 3, u"oak");
    EXPECT_EQ(current(), std::pair(2, 3));
    EXPECT_EQ(read(4, 0), "");
    EXPECT_EQ(current(), std::pair(2, 3));
    // A step that is out of range does nothing, the others do.
    EXPECT_EQ(read(9, 3), "oak");
    set(-1, 1, u"elm");
    EXPECT_EQ(current(), std::pair(2, 1));
    EXPECT_EQ(read(2, 1), "elm");
    set(0, 4, u"ash");
    EXPECT_EQ(read(0, 1), "ash");
    EXPECT_EQ(current(), std::pair(0, 1));
    call(u"RowSetFocus", {5});
    call(u"ColSetFocus", {3});
    EXPECT_EQ(current(), std::pair(0, 3));
    call(u"CellChkSet", {1, 1, Text(u"TRUE")});
    EXPECT_EQ(read(1, 1), "a");
    call(u"CellChkSet", {1, 1, Text(u"yes")});
    EXPECT_EQ(read(1, 1), "");
    call(u"ColSetFocus", {3});
    call(u"RowsSet", {0});
    EXPECT_EQ(current(), std::pair(-1, 3));
    set(0, 0, u"lost");
    EXPECT_EQ(read(0, 0), "");
}

TEST_F(GridEditTest, ReadingKeepsWhatAPersonHasSelected) {
    size(5, 4);
    show();
    grid().focus();
    platform.pressKey(key::down, shift::shift);
    platform.pressKey(key::right, shift::shift);
    read(4, 3);
    call(u"GridSave", {Text(u"selected.txt"), Text()});
    platform.pressKey('C', shift::control);
    EXPECT_EQ(platform.clipboard(), u"\t\r\n\t\r\n");
}

TEST_F(GridEditTest, TheColourReadIsTheGridsAndTheColourSetTheCells) {
    size(5, 4);
    call(u"CellColorSetx", {red, 2, 3});
    EXPECT_EQ(current(), std::pair(2, 3));
    EXPECT_EQ(call(u"CellColorReadx", {2, 3}), Value(window));
    call(u"CellColorReadx", {1, 0});
    EXPECT_EQ(current(), std::pair(1, 0));
    show();
    EXPECT_EQ(colourAt(at(2, 3)), Rgb::of(255, 0, 0));
    EXPECT_EQ(colourAt(at(3, 3)), Rgb::of(255, 255, 255));
}

TEST_F(GridEditTest, FontsAreSetStepByStepAndABadStepIsSkipped) {
    size(3, 3);
    set(1, 1, u"probe");
    show();
    const auto look = [this] {
        const DrawnItem item = drawnText(u"probe");
        const FontDescription& font = item.style.font;
        return std::tuple(font.name, font.size, font.weight, font.strikethrough, item.colour);
    };
    const Rgb grey = Rgb::of(160, 160, 160);
    for (const TextView member : {u"CellFontSet", u"CellFormatSet"}) {
        call(member, {1, 1, Text(u"Courier"), Text(u"12.5"), true, true, red});
        EXPECT_EQ(look(), std::tuple(Text(u"Courier"), 12.5, 700, true, Rgb::of(255, 0, 0)));
        // Neither name nor size; all else is as in a call that leaves it out.
        call(member, {1, 1, Text(), Text(u"large"), {}, {}, {}});
        EXPECT_EQ(look(), std::tuple(Text(u"Courier"), 12.5, 400, false, grey));
    }
    call(u"CellEnabledSet", {1, 1, true, window});
    EXPECT_EQ(look(), std::tuple(Text(u"Courier"), 12.5, 400, true, Rgb::of(255, 255, 255)));
    call(u"CellEnabledSet", {1, 1, {}, {}});
    EXPECT_EQ(look(), std::tuple(Text(u"Courier"), 12.5, 400, false, grey));
}

TEST_F(GridEditTest, ARowIsAddedBetweenTheClosingOfTheEditorAndTheNews) {
    set(0, 0, u"probe");
    show();
    std::vector<std::string> steps;
    for (const char* event : {"ChangeEdited", "Change"}) {
        onEvent(event, [&, event] {
            steps.push_back(event + (":" + column(1)) + (gridShows() ? " shown" : " hidden"));
        });
    }
    call(u"RowAdd", {Text(u"probe\tx\ty\tz"), 1});
    EXPECT_EQ(host.takeEvents(), (Journal{"ChangeEdited", "Change"}));
    EXPECT_EQ(steps, (std::vector<std::string>{"ChangeEdited:, hidden", "Change:,x, hidden"}));
    EXPECT_TRUE(gridShows());
    EXPECT_EQ(number(u"RowCurrent"), 1);
    call(u"RowAdd", {Text(u"nowhere"), 7});
    EXPECT_EQ(column(1), ",x,");
    EXPECT_EQ(host.takeEvents(), (Journal{"ChangeEdited", "Change"})) << "the other steps are done";
    call(u"GridHide");
    call(u"RowAddQuick", {Text(u"last\tquick"), 3});
    EXPECT_EQ(host.take(), Journal{});
    EXPECT_EQ(column(1), ",x,,quick");
    EXPECT_EQ(number(u"RowCurrent"), 3);
    EXPECT_TRUE(gridShows());
}

TEST_F(GridEditTest, TheLastRowAndColumnAreEmptiedAndStay) {
    size(2, 2);
    set(0, 0, u"first");
    set(1, 0, u"probe");
    show();
    call(u"RowDel", {0});
    EXPECT_EQ(host.takeEvents(), (Journal{"ChangeEdited", "Change"}));
    EXPECT_EQ(column(0), "probe");
    call(u"ColDel");
    EXPECT_EQ(host.takeEvents(), Journal{"ChangeEdited"});
    EXPECT_EQ(number(u"ColsCurrent"), 1);
    EXPECT_EQ(column(0), "probe");
    EXPECT_TRUE(gridShows());
    call(u"ColDel");
    EXPECT_EQ(number(u"ColsCurrent"), 1);
    EXPECT_EQ(column(0), "");
    set(0, 0, u"probe");
    host.take();
    call(u"RowDel", {5});
    EXPECT_EQ(host.takeEvents(), (Journal{"ChangeEdited", "Change"}));
    EXPECT_EQ(column(0), "");
    EXPECT_EQ(number(u"RowsCurrent"), 1);
    set(0, 0, u"probe");
    EXPECT_FALSE(gridShows()) << "a reset grid is hidden";
    call(u"GridShow");
    EXPECT_TRUE(gridShows());
    call(u"RowsSet", {0});
    host.take();
    call(u"RowDel", {0});
    EXPECT_EQ(host.takeEvents(), (Journal{"ChangeEdited", "Change"}));
    EXPECT_EQ(number(u"RowsCurrent"), 0);
}

TEST_F(GridEditTest, AResetLeavesOneEmptyHiddenRow) {
    size(9, 4);
    set(3, 2, u"probe");
    show();
    call(u"GridReset");
    EXPECT_EQ(host.take(), Journal{});
    EXPECT_EQ(number(u"RowsCurrent"), 1);
    EXPECT_EQ(number(u"ColsCurrent"), 4);
    EXPECT_EQ(current(), std::pair(0, 0));
    set(0, 0, u"probe");
    EXPECT_FALSE(gridShows());
    call(u"GridShow");
    call(u"GridClear");
    EXPECT_EQ(number(u"RowsCurrent"), 1);
    EXPECT_EQ(column(0), "");
}

TEST_F(GridEditTest, ColumnsHaveWidthsThatCanBeUsed) {
    size(2, 3);
    show();
    const auto width = [this](int32_t col) {
        call(u"ColSetFocus", {col});
        EXPECT_EQ(call(u"CelWidth"), call(u"CellCurrentWidth"));
        return number(u"CellCurrentWidth");
    };
    for (const double wanted : {3000.0, 200.0, 2e6}) {
        host.take();
        call(u"ColWidth", {1, wanted});
        EXPECT_EQ(host.take(), Journal{"ChangeEdited"});
        EXPECT_EQ(width(1), 3000) << wanted;
    }
    // 200 twips are not whole pixels.
    call(u"ColWidth", {1, 200.4});
    EXPECT_EQ(width(1), 195);
    call(u"ColumnVisible", {1, 750, true});
    EXPECT_EQ(width(1), 750);
    call(u"ColumnVisible", {1, 750, false});
    EXPECT_EQ(width(1), 0);
    host.take();
    call(u"ColAdd", {150.0});
    EXPECT_EQ(host.take(), Journal{"ChangeEdited"});
    EXPECT_EQ(number(u"ColsCurrent"), 4);
    EXPECT_EQ(width(3), 150);
    call(u"ColsSet", {10001});
    call(u"ColAdd", {300.0});
    EXPECT_EQ(number(u"ColsCurrent"), 10001);
    for (const int32_t count : {10002, 0, -1}) call(u"ColsSet", {count});
    EXPECT_EQ(number(u"ColsCurrent"), 10001);
}

TEST_F(GridEditTest, TheFirstNineColumnsStandToTheLeftOnceTheirNumberIsSet) {
    show();
    set(0, 0, u"4711");
    EXPECT_EQ(drawnText(u"4711").style.horizontal, HorizontalAlignment::right)
        << "as numbers do by themselves";
    call(u"ColsSet", {12});
    set(0, 0, u"4711");
    EXPECT_EQ(drawnText(u"4711").style.horizontal, HorizontalAlignment::left);
    for (int32_t col = 1; col < 8; ++col) call(u"ColumnVisible", {col, 0, false});
    set(0, 8, u"8");
    set(0, 9, u"9");
    EXPECT_EQ(drawnText(u"8").style.horizontal, HorizontalAlignment::left);
    EXPECT_EQ(drawnText(u"9").style.horizontal, HorizontalAlignment::right);
}

TEST_F(GridEditTest, ColumnTypesAreKeptAsTheyAreGiven) {
    EXPECT_EQ(call(u"ColTypeRead", {7}), Value(Text(u"0")));
    call(u"ColTypeSet", {2, -17});
    call(u"ColAdd", {300.0});
    call(u"ColDel");
    EXPECT_EQ(call(u"ColTypeRead", {2}), Value(Text(u"-17"))) << "types are the columns' numbers'";
    EXPECT_EQ(call(u"IsEven", {-3}), Value(false));
    EXPECT_EQ(call(u"IsEven", {0}), Value(true));
}

TEST_F(GridEditTest, EverySecondRowIsColouredAndTheDrawingWaits) {
    size(5, 2);
    show();
    call(u"CellColorSetx", {red, 1, 1});
    surface().paint();
    std::vector<Value> colour{static_cast<int32_t>(Rgb::of(0, 255, 0).value)};
    call(u"RowsRefreshColors", colour);
    EXPECT_TRUE(surface().invalid().empty()) << "nothing is drawn before the host says so";
    EXPECT_EQ(current(), std::pair(4, 1));
    call(u"GridRedraw", {true});
    for (int32_t row = 0; row < 5; ++row) {
        for (int32_t col = 0; col < 2; ++col)
            EXPECT_EQ(colourAt(at(row, col)), row % 2 == 0 ? Rgb::of(0, 255, 0) : Rgb::of(255, 255, 255))
                << row << ", " << col;
    }
}

TEST_F(GridEditTest, BorderAndCaptionBarMoveTheGrid) {
    size(5, 3);
    show();
    EXPECT_EQ(firstRowAt(), border + bar);
    put(u"BorderStyle", 0);
    EXPECT_EQ(firstRowAt(), bar);
    put(u"BorderStyle", 7);
    EXPECT_EQ(text(u"BorderStyle"), "0");
    put(u"BarHeader", false);
    EXPECT_EQ(firstRowAt(), 0);
    put(u"BorderStyle", 1);
    EXPECT_EQ(firstRowAt(), border);
    put(u"BarHeader", true);
    const auto larger =
        std::make_shared<SharedFont>(FontDescription{u"Tahoma", 18, 400, 0, false, false, false});
    put(u"Font", larger);
    EXPECT_EQ(firstRowAt(), border + 36);
    host.take();
    FontDescription back = larger->description();
    back.size = 8.25;
    larger->setDescription(back);
    EXPECT_EQ(firstRowAt(), border + bar);
    EXPECT_EQ(host.take().front(), "changed Font");
    call(u"RowSetFocus", {2});
    call(u"ColSetFocus", {1});
    EXPECT_EQ(number(u"CellCurrentTop"), 2 * rowHeight * 15);
    EXPECT_EQ(number(u"CellCurrentLeft"), colWidth * 15);
    EXPECT_EQ(call(u"CellLeft"), call(u"CellCurrentLeft"));
    EXPECT_EQ(number(u"CellCurrentHeight"), rowHeight * 15);
}

TEST_F(GridEditTest, LoadingPressesTheFirstCellInSilence) {
    size(50, 3);
    activate({0, 0, 400, 200});
    call(u"TopRowSet", {20});
    set(40, 2, u"x");
    EXPECT_EQ(number(u"TopRowRead"), 20);
    host.take();
    int closed = 0;
    const Connection connection = grid().ChangeEdited.connect([&] { ++closed; });
    MemoryBag bag;
    bag.write(u"BarHeaderVal", false);
    bag.write(u"BorderStyle", int16_t{0});
    control->load(bag);
    EXPECT_EQ(current(), std::pair(20, 0));
    EXPECT_EQ(closed, 1) << "an open editor closes";
    EXPECT_EQ(host.take(), Journal{});
    EXPECT_FALSE(control->hasFocus());
    EXPECT_EQ(number(u"CellCurrentTop"), 0);
}

TEST_F(GridEditTest, AClickTellsWhatHappenedInItsOrder) {
    size(5, 3);
    put(u"AllowGridEdit", false);
    show();
    click(at(1, 0));
    EXPECT_EQ(host.take(), (Journal{"focus in", "MouseDown 1 0 150 405", "ChangeEdited", "CellSelected",
                                    "NewRowSelected", "SelChange", "MouseUp 1 0 150 405", "Click"}));
    click(at(1, 2));
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseDown 1 0 2070 405", "ChangeEdited", "CellSelected",
                                          "SelChange", "MouseUp 1 0 2070 405", "Click"}));
    click(at(1, 2), Kind::doubleClick);
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseDown 1 0 2070 405", "DblClick", "MouseUp 1 0 2070 405"}));
    platform.mouse(control->window(), {Kind::move, 0, shift::control, at(3, 1)});
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseMove 0 2 1110 945"}));
    EXPECT_EQ(number(u"MouseRow"), 3);
    EXPECT_EQ(number(u"MouseCol"), 1);
    EXPECT_EQ(current(), std::pair(1, 2));
}

TEST_F(GridEditTest, KeysGoToTheHostFirst) {
    size(5, 3);
    put(u"AllowGridEdit", false);
    show();
    call(u"GridFocusShow");
    EXPECT_EQ(host.take(), (Journal{"focus in"}));
    platform.pressKey(key::down);
    EXPECT_EQ(host.takeEvents(), (Journal{"KeyDown 40 0", "ChangeEdited", "CellSelected", "NewRowSelected",
                                          "SelChange", "KeyUp 40 0"}));
    platform.pressKey(key::right, shift::shift);
    EXPECT_EQ(host.takeEvents(), (Journal{"KeyDown 39 1", "SelChange", "KeyUp 39 1"}));
    host.on["KeyDown"] = [](std::span<Value> arguments) { arguments[0] = int16_t{0}; };
    platform.pressKey(key::down);
    EXPECT_EQ(current(), std::pair(1, 0));
    host.on.clear();
    host.take();
    platform.type(u"x");
    EXPECT_EQ(host.takeEvents(), (Journal{"KeyDown 88 0", "KeyPress 120", "KeyUp 88 0"}));
}

TEST_F(GridEditTest, WhatIsDroppedOnTheCellsIsTheHosts) {
    size(5, 3);
    show();
    const auto data = std::make_shared<OpaqueObject>();
    const auto drop = [&](PixelPoint to, int32_t allowed) {
        return platform.drop(control->window(), {data, allowed, button::left, shift::control, to});
    };
    ObjectRef given;
    int32_t row = -1, answer = drop_effect::none;
    host.on["OLEDragDrop"] = [&](std::span<Value> arguments) {
        given = std::get<ObjectRef>(arguments[0]);
        row = number(u"MouseRow");
        if (answer != drop_effect::none) arguments[1] = answer;
    };
    constexpr int32_t any = drop_effect::copy | drop_effect::move;
    EXPECT_EQ(drop(at(2, 1), any), drop_effect::copy) << "nothing is moved unless the host says so";
    EXPECT_EQ(given, data);
    EXPECT_EQ(row, 2);
    EXPECT_EQ(host.takeEvents(), (Journal{"OLEDragDrop ? 3 1 2 1110 675"}));
    answer = drop_effect::move;
    EXPECT_EQ(drop(at(2, 1), any), drop_effect::move);
    EXPECT_EQ(drop(at(2, 1), drop_effect::copy | drop_effect::link), drop_effect::none);
    host.take();
    EXPECT_EQ(drop({50, 5}, any), drop_effect::none) << "captions take nothing";
    call(u"GridHide");
    EXPECT_EQ(drop(at(2, 1), any), drop_effect::none);
    EXPECT_EQ(host.take(), Journal{});
}

TEST_F(GridEditTest, FileAndCaptionGoThereAndBack) {
    size(3, 12);
    set(0, 0, u"oak, 160 \u00D7 80");
    set(2, 11, u"a");
    call(u"ColSetFocus", {4});
    call(u"RowSetFocus", {1});
    host.take();
    onEvent("ChangeEdited", [this] { set(2, 7, u""); });
    call(u"GridSave", {Text(u"orders.txt"), Text(u"Orders")});
    host.on.clear();
    EXPECT_EQ(host.take(), Journal{"ChangeEdited"});
    EXPECT_EQ(current(), std::pair(1, 4));

    place(GridEdit::memberTable());
    call(u"ColSetFocus", {1});
    host.take();
    EXPECT_EQ(call(u"GridLoad", {Text(u"orders.txt")}), Value(Text(u"Orders")));
    EXPECT_EQ(host.take(), Journal{"ChangeEdited"});
    EXPECT_EQ(number(u"RowsCurrent"), 3);
    EXPECT_EQ(number(u"ColsCurrent"), 12);
    EXPECT_EQ(current(), std::pair(0, 0));
    EXPECT_EQ(read(0, 0), "oak, 160 \xC3\x97 80");
    EXPECT_EQ(platform.windowCount(), 0u) << "a script needs no window";
}

TEST_F(GridEditTest, ShowsThatAFileTakesLongerThanASecond) {
    size(3000, 12);
    using std::chrono::milliseconds;
    for (const auto& [pace, signs] : {std::pair(milliseconds(1), std::vector<bool>()),
                                      std::pair(milliseconds(400), std::vector{true, false, true, false})}) {
        platform.clock().setPace(pace);
        call(u"GridSave", {Text(u"orders.txt"), Text()});
        call(u"GridLoad", {Text(u"orders.txt")});
        EXPECT_EQ(platform.waitCursors(), signs);
    }
}

TEST_F(GridEditTest, CheckColumnsComeBackAsCheckMarksAndDoNotGrow) {
    size(1, 3);
    call(u"ColTypeSet", {2, 3});
    call(u"CellChkSet", {0, 2, Text(u"1")});
    for (int round = 0; round < 2; ++round) {
        call(u"GridSave", {Text(u"checks.txt"), Text()});
        call(u"GridLoad", {Text(u"checks.txt")});
        EXPECT_EQ(read(0, 2), "  a");
    }
    const auto marks = [this] {
        const auto items = drawn();
        return std::count_if(items.begin(), items.end(), [](const DrawnItem& item) {
            return item.kind == DrawnItem::Kind::polygon && item.rect.width() >= 8;  // no scroll bar's arrow
        });
    };
    show();
    EXPECT_EQ(marks(), 1);
    EXPECT_TRUE(drawnText(u"  a").text.empty()) << "a mark, not a letter";
    call(u"CellTextSet", {0, 2, Text()});
    EXPECT_EQ(marks(), 0);
    call(u"GridClear");
    call(u"CellTextSet", {0, 2, Text(u"a")});
    EXPECT_EQ(marks(), 1) << "what a host has written as a letter, too";
    EXPECT_EQ(read(0, 2), "a");
}

TEST_F(GridEditTest, FilesThatCannotBeOpenedChangeWhatIsSaid) {
    size(2, 2);
    set(1, 1, u"probe");
    show();
    platform.files().put(u"refused.txt", "old");
    platform.files().refuse(u"refused.txt");
    call(u"GridRedraw", {false});
    for (const TextView file : {u"refused.txt", u""}) call(u"GridSave", {Text(file), Text(u"x")});
    EXPECT_EQ(platform.files().bytes(u"refused.txt"), "old");
    EXPECT_EQ(platform.files().count(), 1u) << "nor is anything left beside it";
    EXPECT_TRUE(gridShows()) << "drawing is resumed";
    EXPECT_EQ(current(), std::pair(1, 1));
    platform.files().put(u"empty.txt", "");
    for (const TextView file : {u"missing.txt", u"empty.txt"}) {
        size(2, 2);
        call(u"GridShow");
        EXPECT_EQ(call(u"GridLoad", {Text(file)}), Value(Text())) << toUtf8(file);
        EXPECT_EQ(number(u"RowsCurrent"), 0);
        EXPECT_EQ(number(u"ColsCurrent"), 2);
        EXPECT_EQ(number(u"RowCurrent"), -1);
        call(u"RowsSet", {1});
        set(0, 0, u"probe");
        EXPECT_FALSE(gridShows()) << toUtf8(file);
    }
    platform.files().put(u"half.txt", "\"2|Half\"\r\n\"probe\"\r\n\"b\"\r\n\"c\"\r\n");
    call(u"GridLoad", {Text(u"half.txt")});
    EXPECT_TRUE(gridShows());
    EXPECT_EQ(column(0), "probe,c");
    EXPECT_EQ(column(1), "b,c");
}

TEST_F(GridEditTest, CaptionsStandOverTheirColumns) {
    size(3, 3);
    show();
    call(u"BarHeaderCaptionSet", {1, Text(u"Article")});
    call(u"BarHeaderCaptionSet", {9, Text(u"Later")});
    EXPECT_EQ(call(u"BarHeaderCaptionRead", {1}), Value(Text(u"Article")));
    EXPECT_EQ(call(u"BarHeaderCaptionRead", {9}), Value(Text(u"Later")));
    for (const int32_t none : {0, -1, 10001, INT32_MAX}) {
        if (none != 0) call(u"BarHeaderCaptionSet", {none, Text(u"x")});
        EXPECT_EQ(call(u"BarHeaderCaptionRead", {none}), Value(Text())) << none;
    }
    const PixelRect before = drawnText(u"Article").rect;
    EXPECT_GE(before.left, border + colWidth);
    EXPECT_LT(before.bottom, border + bar);
    call(u"ColWidth", {0, 1500.0});
    EXPECT_EQ(drawnText(u"Article").rect.left, before.left + 100 - colWidth);
    std::vector<Value> blue{OleColour(Rgb::of(0, 0, 255))}, white{OleColour(Rgb::of(255, 255, 255))};
    call(u"barCol", blue);
    call(u"BarColText", white);
    EXPECT_EQ(get(u"BarHeaderColorRefresh"), blue[0]);
    EXPECT_EQ(colourAt({10, 5}), Rgb::of(0, 0, 255));
    EXPECT_EQ(drawnText(u"Article").colour, Rgb::of(255, 255, 255));
    call(u"ColumnVisible", {1, 0, false});
    EXPECT_TRUE(drawnText(u"Article").text.empty());
}

TEST_F(GridEditTest, AClickOnTheCaptionBarAsksTheHostToSort) {
    size(3, 3);
    const char16_t* const rows[] = {u"9\tb", u"10\ta", u"8\tc"};
    for (const char16_t* row : rows) call(u"RowAddQuick", {Text(row), 0});
    call(u"RowsSet", {3});
    show();
    onEvent("SortClick", [this] { call(u"BarHeaderSort"); });
    const PixelPoint first{border + 10, border + 5}, second{border + colWidth + 10, border + 5};
    click(first);
    EXPECT_EQ(host.takeEvents(), (Journal{"ChangeEdited", "SortClick", "ChangeEdited"}));
    EXPECT_EQ(column(0), "10,9,8");
    click(first, Kind::doubleClick);
    EXPECT_EQ(column(0), "8,9,10");
    click(first);
    EXPECT_EQ(column(0), "10,9,8");
    click(second);
    EXPECT_EQ(column(1), "c,b,a") << "another column is sorted as the last one was";
    EXPECT_EQ(number(u"ColCurrent"), 1);
    click(second);
    click(first);
    EXPECT_EQ(column(0), "8,9,10");
    // No column begins before its edge, and none stands right of the last.
    for (const int32_t x : {border, border + colWidth, border + 3 * colWidth + 30}) {
        click({x, border + 5});
        call(u"GridRedraw", {false});
        surface().paint();
        EXPECT_EQ(number(u"BarHeaderColumn"), -1) << x;
        EXPECT_EQ(number(u"ColCurrent"), 2) << "the search has gone through all";
        EXPECT_FALSE(surface().invalid().empty()) << "drawing is resumed";
    }
    EXPECT_EQ(column(0), "8,9,10");
}

TEST_F(GridEditTest, SortingGoesByTheCurrentColumn) {
    size(3, 3);
    const char16_t* const rows[] = {u"x\tb", u"y\ta", u"z\tc"};
    for (const char16_t* row : rows) call(u"RowAddQuick", {Text(row), 0});
    call(u"RowsSet", {3});
    call(u"ColSetFocus", {0});
    call(u"GridColSort", {3});
    EXPECT_EQ(column(0), "z,y,x") << "there is no such column";
    call(u"GridColSort", {2});
    call(u"GridColSort", {2});
    EXPECT_EQ(column(0), "x,y,z");
    call(u"GridColSortInitialDate");
    EXPECT_EQ(column(0), "x,y,z") << "there is no fifth column";
    call(u"ColsSet", {5});
    for (int32_t row = 0; row < 3; ++row) call(u"CellTextSet", {row, 4, toText(Value(row)).value()});
    call(u"GridColSortInitialDate");
    EXPECT_EQ(column(4), "2,1,0");
}

TEST_F(GridEditTest, TheHostsOwnFieldsTellNobody) {
    put(u"mstrDragInfo", Text(u"order 7"));
    put(u"blnPUBSHOWALARM", true);
    put(u"MousePosn", 5);
    EXPECT_EQ(host.take(), Journal{});
    EXPECT_EQ(text(u"mstrDragInfo"), "order 7");
    MemoryBag bag;
    control->save(bag);
    EXPECT_TRUE(bag.entries().empty());
    call(u"Change");
    call(u"ChangePost");
    call(u"GridChange");
    EXPECT_EQ(host.take(), (Journal{"Change", "ChangePost"}));
}

TEST_F(GridEditTest, EverythingThatClosesAnEditorSaysSoOnce) {
    size(3, 3);
    const std::pair<const char16_t*, std::vector<Value>> members[] = {
        {u"BoxHide", {}},
        {u"RowAdd", {Text(u"x"), 0}},
        {u"RowDel", {0}},
        {u"ColAdd", {300.0}},
        {u"ColDel", {}},
        {u"ColWidth", {0, 300.0}},
        {u"GridSetFocus", {1, 1}},
        {u"GridSave", {Text(u"f"), Text()}},
        {u"GridLoad", {Text(u"f")}},
        {u"BarHeaderColumn", {}},
        {u"BarHeaderSort", {}},
    };
    // Whatever a host does about it, it is not told of itself.
    onEvent("ChangeEdited", [this] { call(u"GridSetFocus", {0, 0}); });
    for (const auto& [member, arguments] : members) {
        host.take();
        call(member, arguments);
        Journal told = host.take();
        EXPECT_EQ(told.front(), "ChangeEdited") << toUtf8(member);
        EXPECT_EQ(std::count(told.begin(), told.end(), "ChangeEdited"), 1) << toUtf8(member);
    }
    host.on.clear();
    host.take();
    call(u"GridSetFocus", {2, 1});
    EXPECT_EQ(current(), std::pair(1, 2)) << "the column comes first";
}

}  // namespace
}  // namespace obk::test
