#include "grid_edit_fixture.h"

#include <algorithm>

namespace obk::test {
namespace {

TEST_F(GridEditTest, ReadingACellLeavesTheCurrentOneAndWritingMovesIt) {
    size(5, 4);
    set(2, 3, u"oak");
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
    goTo(5, 3);
    EXPECT_EQ(current(), std::pair(0, 3));
    EXPECT_EQ(after(u"CellChkSet", {1, 1, Text(u"TRUE")}).read(1, 1), "a");
    EXPECT_EQ(after(u"RowsSet", {0}).current(), std::pair(-1, 1));
    set(0, 0, u"lost");
    EXPECT_EQ(read(0, 0), "");
}

TEST_F(GridEditTest, ReadingKeepsWhatAPersonHasSelected) {
    show(5, 4);
    grid().focus();
    press({key::down, key::right}, shift::shift);
    read(4, 3);
    call(u"GridSave", {Text(u"selected.txt"), Text()});
    platform.pressKey('C', shift::control);
    EXPECT_EQ(platform.clipboard(), u"\t\r\n\t\r\n");
}

TEST_F(GridEditTest, TheColourReadIsTheGridsAndTheColourSetTheCells) {
    show(5, 4);
    EXPECT_EQ(after(u"CellColorSetx", {red, 2, 3}).current(), std::pair(2, 3));
    EXPECT_EQ(call(u"CellColorReadx", {2, 3}), Value(window));
    EXPECT_EQ(after(u"CellColorReadx", {1, 0}).current(), std::pair(1, 0));
    EXPECT_EQ(colourAt(at(2, 3)), Rgb::of(255, 0, 0));
    EXPECT_EQ(colourAt(at(3, 3)), Rgb::of(255, 255, 255));
}

TEST_F(GridEditTest, FontsAreSetStepByStepAndABadStepIsSkipped) {
    show(3, 3);
    set(1, 1, u"probe");
    const auto look = [this](TextView member, const std::vector<Value>& arguments) {
        call(member, arguments);
        const DrawnItem item = drawnText(u"probe");
        const FontDescription& font = item.style.font;
        EXPECT_EQ(font.name, u"Courier");
        EXPECT_EQ(font.size, 12.5);
        return std::tuple(font.weight, font.strikethrough, item.colour);
    };
    const std::tuple plain(400, false, Rgb::of(160, 160, 160));
    for (const TextView member : {u"CellFontSet", u"CellFormatSet"}) {
        EXPECT_EQ(look(member, {1, 1, Text(u"Courier"), Text(u"12.5"), true, true, red}),
                  std::tuple(700, true, Rgb::of(255, 0, 0)));
        // Neither name nor size; all else is as in a call that leaves it out.
        EXPECT_EQ(look(member, {1, 1, Text(), Text(u"large"), {}, {}, {}}), plain);
    }
    EXPECT_EQ(look(u"CellEnabledSet", {1, 1, true, window}), std::tuple(400, true, Rgb::of(255, 255, 255)));
    EXPECT_EQ(look(u"CellEnabledSet", {1, 1, {}, {}}), plain);
}

TEST_F(GridEditTest, ARowIsAddedBetweenTheClosingOfTheEditorAndTheNews) {
    set(0, 0, u"probe");
    show();
    std::string steps;
    for (const char* event : {"ChangeEdited", "Change"})
        onEvent(event,
                [&, event] { steps += event + (":" + column(1)) + (gridShows() ? " shown " : " hidden "); });
    EXPECT_EQ(after(u"RowAdd", {Text(u"probe\tx\ty\tz"), 1}).events(), "ChangeEdited, Change");
    EXPECT_EQ(steps, "ChangeEdited:, hidden Change:,x, hidden ");
    EXPECT_TRUE(gridShows());
    EXPECT_EQ(number(u"RowCurrent"), 1);
    EXPECT_EQ(after(u"RowAdd", {Text(u"nowhere"), 7}).events(), "ChangeEdited, Change")
        << "the other steps are done";
    EXPECT_EQ(column(1), ",x,");
    call(u"GridHide");
    EXPECT_EQ(after(u"RowAddQuick", {Text(u"last\tquick"), 3}).told(), "");
    EXPECT_EQ(column(1), ",x,,quick");
    EXPECT_EQ(number(u"RowCurrent"), 3);
    EXPECT_TRUE(gridShows());
}

TEST_F(GridEditTest, TheLastRowAndColumnAreEmptiedAndStay) {
    show(2, 2);
    set(0, 0, u"first");
    set(1, 0, u"probe");
    EXPECT_EQ(after(u"RowDel", {0}).events(), "ChangeEdited, Change");
    EXPECT_EQ(column(0), "probe");
    EXPECT_EQ(after(u"ColDel").events(), "ChangeEdited");
    EXPECT_EQ(number(u"ColsCurrent"), 1);
    EXPECT_EQ(column(0), "probe");
    EXPECT_TRUE(gridShows());
    EXPECT_EQ(after(u"ColDel").number(u"ColsCurrent"), 1);
    EXPECT_EQ(column(0), "");
    set(0, 0, u"probe");
    EXPECT_EQ(after(u"RowDel", {5}).events(), "ChangeEdited, Change");
    EXPECT_EQ(number(u"RowsCurrent"), 1);
    EXPECT_EQ(column(0), "");
    set(0, 0, u"probe");
    EXPECT_FALSE(gridShows());
    call(u"GridShow");
    EXPECT_TRUE(gridShows());
    call(u"RowsSet", {0});
    EXPECT_EQ(after(u"RowDel", {0}).events(), "ChangeEdited, Change");
    EXPECT_EQ(number(u"RowsCurrent"), 0);
}

TEST_F(GridEditTest, AResetLeavesOneEmptyHiddenRow) {
    show(9, 4);
    set(3, 2, u"probe");
    EXPECT_EQ(after(u"GridReset").told(), "");
    EXPECT_EQ(column(0), "");
    EXPECT_EQ(extent(), std::pair(1, 4));
    EXPECT_EQ(current(), std::pair(0, 0));
    set(0, 0, u"probe");
    EXPECT_FALSE(gridShows());
    EXPECT_EQ(after(u"GridClear").column(0), "");
}

TEST_F(GridEditTest, ColumnsHaveWidthsThatCanBeUsed) {
    show(2, 3);
    const auto width = [this](int32_t col) {
        call(u"ColSetFocus", {col});
        EXPECT_EQ(call(u"CelWidth"), call(u"CellCurrentWidth"));
        return number(u"CellCurrentWidth");
    };
    for (const double wanted : {3000.0, 200.0, 2e6}) {
        EXPECT_EQ(after(u"ColWidth", {1, wanted}).told(), "ChangeEdited");
        EXPECT_EQ(width(1), 3000) << wanted;
    }
    // 200 twips are not whole pixels.
    call(u"ColWidth", {1, 200.4});
    EXPECT_EQ(width(1), 195);
    for (const bool visible : {true, false}) {
        call(u"ColumnVisible", {1, 750, visible});
        EXPECT_EQ(width(1), visible ? 750 : 0);
    }
    EXPECT_EQ(after(u"ColAdd", {150.0}).told(), "ChangeEdited");
    EXPECT_EQ(number(u"ColsCurrent"), 4);
    EXPECT_EQ(width(3), 150);
    call(u"ColsSet", {10001});
    call(u"ColAdd", {300.0});
    for (const int32_t count : {10001, 10002, 0, -1})
        EXPECT_EQ(after(u"ColsSet", {count}).number(u"ColsCurrent"), 10001) << count;
}

TEST_F(GridEditTest, TheFirstNineColumnsStandToTheLeftOnceTheirNumberIsSet) {
    const auto side = [this](int32_t col) {
        set(0, col, u"4711");
        const HorizontalAlignment alignment = drawnText(u"4711").style.horizontal;
        set(0, col, u"");
        return alignment;
    };
    show();
    EXPECT_EQ(side(0), HorizontalAlignment::right) << "as numbers do by themselves";
    call(u"ColsSet", {12});
    EXPECT_EQ(side(0), HorizontalAlignment::left);
    for (int32_t col = 1; col < 8; ++col) call(u"ColumnVisible", {col, 0, false});
    EXPECT_EQ(side(8), HorizontalAlignment::left);
    EXPECT_EQ(side(9), HorizontalAlignment::right);
}

TEST_F(GridEditTest, ColumnTypesAreKeptAsTheyAreGivenUpToTenThousand) {
    EXPECT_EQ(call(u"ColTypeRead", {7}), Value(Text(u"0")));
    for (const auto& [col, code] : {std::pair(0, 6), {10000, 3}, {2, -17}, {4, INT32_MIN}, {5, INT32_MAX}}) {
        call(u"ColTypeSet", {col, code});
        EXPECT_EQ(call(u"ColTypeRead", {col}), Value(decimalText(code)));
    }
    for (const int32_t col : {-1, 10001, INT32_MIN, INT32_MAX}) {
        call(u"ColTypeSet", {col, 1});
        EXPECT_EQ(call(u"ColTypeRead", {col}), Value(Text())) << col;
    }
    call(u"ColAdd", {300.0});
    call(u"ColDel");
    EXPECT_EQ(call(u"ColTypeRead", {2}), Value(Text(u"-17"))) << "types are the columns' numbers'";
    EXPECT_EQ(call(u"IsEven", {-3}), Value(false));
    EXPECT_EQ(call(u"IsEven", {0}), Value(true));
}

TEST_F(GridEditTest, EverySecondRowIsColouredAndTheDrawingWaits) {
    show(5, 2);
    call(u"CellColorSetx", {red, 1, 1});
    surface().paint();
    const Rgb green = Rgb::of(0, 255, 0), white = Rgb::of(255, 255, 255);
    call(u"RowsRefreshColors", {static_cast<int32_t>(green.value)});
    EXPECT_TRUE(surface().invalid().empty()) << "nothing is drawn before the host says so";
    EXPECT_EQ(current(), std::pair(4, 1));
    call(u"GridRedraw", {true});
    for (int32_t row = 0; row < 5; ++row) {
        for (int32_t col = 0; col < 2; ++col)
            EXPECT_EQ(colourAt(at(row, col)), row % 2 == 0 ? green : white) << row << ", " << col;
    }
}

TEST_F(GridEditTest, BorderAndCaptionBarMoveTheGrid) {
    show(5, 3);
    const auto firstRow = [this](int32_t style, bool header) {
        put(u"BorderStyle", style);
        put(u"BarHeader", header);
        return firstRowAt();
    };
    EXPECT_EQ(firstRow(0, true), bar);
    EXPECT_EQ(firstRow(7, false), 0);
    EXPECT_EQ(text(u"BorderStyle"), "0");
    EXPECT_EQ(firstRow(1, false), border);
    EXPECT_EQ(firstRow(1, true), border + bar);
    const auto font = std::make_shared<SharedFont>(FontDescription{u"Tahoma", 18});
    put(u"Font", font);
    EXPECT_EQ(firstRowAt(), border + 36);
    host.take();
    font->setDescription({u"Tahoma", 8.25});
    EXPECT_EQ(firstRowAt(), border + bar);
    EXPECT_EQ(host.take().front(), "changed Font");
    goTo(2, 1);
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
    EXPECT_EQ(told(), "");
    EXPECT_FALSE(control->hasFocus());
    EXPECT_EQ(number(u"CellCurrentTop"), 0);
}

TEST_F(GridEditTest, ClicksAndKeysTellWhatHappenedInItsOrder) {
    put(u"AllowGridEdit", false);
    show(5, 3);
    click(at(1, 2));
    EXPECT_EQ(told(),
              "focus in, MouseDown 1 0 2070 405, ChangeEdited, CellSelected, NewRowSelected, "
              "SelChange, MouseUp 1 0 2070 405, Click");
    click(at(1, 2), Kind::doubleClick);
    EXPECT_EQ(events(), "MouseDown 1 0 2070 405, DblClick, MouseUp 1 0 2070 405");
    mouse(Kind::move, at(3, 1), 0, shift::control);
    EXPECT_EQ(events(), "MouseMove 0 2 1110 945");
    EXPECT_EQ(number(u"MouseRow"), 3);
    EXPECT_EQ(number(u"MouseCol"), 1);
    EXPECT_EQ(after(key::up).events(),
              "KeyDown 38 0, ChangeEdited, CellSelected, NewRowSelected, SelChange, KeyUp 38 0");
    EXPECT_EQ(after(key::left).events(), "KeyDown 37 0, ChangeEdited, CellSelected, SelChange, KeyUp 37 0");
    EXPECT_EQ(after(key::left, shift::shift).events(), "KeyDown 37 1, SelChange, KeyUp 37 1");
    host.on["KeyDown"] = [](std::span<Value> arguments) { arguments[0] = int16_t{0}; };
    EXPECT_EQ(after(key::down).current(), std::pair(0, 1)) << "keys go to the host first";
    host.on.clear();
    host.take();
    platform.type(u"x");
    EXPECT_EQ(events(), "KeyDown 88 0, KeyPress 120, KeyUp 88 0");
}

TEST_F(GridEditTest, WhatIsDroppedOnTheCellsIsTheHosts) {
    show(5, 3);
    const auto data = std::make_shared<OpaqueObject>();
    const auto drop = [&](PixelPoint to, int32_t allowed = drop_effect::copy | drop_effect::move) {
        return platform.drop(control->window(), {data, allowed, button::left, shift::control, to});
    };
    int32_t answer = drop_effect::none;
    host.on["OLEDragDrop"] = [&](std::span<Value> arguments) {
        EXPECT_EQ(std::get<ObjectRef>(arguments[0]), data);
        EXPECT_EQ(number(u"MouseRow"), 2);
        if (answer != drop_effect::none) arguments[1] = answer;
    };
    EXPECT_EQ(drop(at(2, 1)), drop_effect::copy) << "nothing is moved unless the host says so";
    EXPECT_EQ(events(), "OLEDragDrop ? 3 1 2 1110 675");
    answer = drop_effect::move;
    EXPECT_EQ(drop(at(2, 1)), drop_effect::move);
    EXPECT_EQ(drop(at(2, 1), drop_effect::copy | drop_effect::link), drop_effect::none);
    host.take();
    EXPECT_EQ(drop({50, 5}), drop_effect::none) << "captions take nothing";
    call(u"GridHide");
    EXPECT_EQ(drop(at(2, 1)), drop_effect::none);
    EXPECT_EQ(told(), "");
}

TEST_F(GridEditTest, FileAndCaptionGoThereAndBack) {
    size(3, 12);
    set(0, 0, u"oak, 160 \u00D7 80");
    goTo(1, 4);
    onEvent("ChangeEdited", [this] { set(2, 7, u""); });
    EXPECT_EQ(after(u"GridSave", {Text(u"orders.txt"), Text(u"Orders")}).told(), "ChangeEdited");
    host.on.clear();
    EXPECT_EQ(current(), std::pair(1, 4));

    place(GridEdit::memberTable());
    call(u"ColSetFocus", {1});
    EXPECT_EQ(call(u"GridLoad", {Text(u"orders.txt")}), Value(Text(u"Orders")));
    EXPECT_EQ(extent(), std::pair(3, 12));
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

TEST_F(GridEditTest, ChecksAreMarksWhetherTheyAreWrittenOrLoaded) {
    const auto marks = [this] {
        const auto items = drawn();
        return std::count_if(items.begin(), items.end(), [](const DrawnItem& item) {
            return item.kind == DrawnItem::Kind::polygon && item.rect.width() >= 8;  // no scroll bar's arrow
        });
    };
    size(1, 3);
    call(u"ColTypeSet", {2, 3});
    call(u"CellChkSet", {0, 2, Text(u"1")});
    call(u"GridSave", {Text(u"checks.txt"), Text()});
    EXPECT_EQ(after(u"GridLoad", {Text(u"checks.txt")}).read(0, 2), "  a");
    show();
    EXPECT_EQ(marks(), 1);
    EXPECT_TRUE(drawnText(u"  a").text.empty()) << "a mark, not a letter";
    set(0, 2, u"");
    EXPECT_EQ(marks(), 0);
    call(u"GridClear");
    set(0, 2, u" a");
    EXPECT_EQ(marks(), 1) << "what a host has written as a letter, too";
    EXPECT_TRUE(drawnText(u" a").text.empty());
    call(u"ColTypeSet", {2, 0});
    EXPECT_FALSE(drawnText(u" a").text.empty());
}

TEST_F(GridEditTest, FilesThatCannotBeOpenedChangeWhatIsSaid) {
    show(2, 2);
    set(1, 1, u"probe");
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
        SCOPED_TRACE(toUtf8(file));
        size(2, 2);
        call(u"GridShow");
        EXPECT_EQ(call(u"GridLoad", {Text(file)}), Value(Text()));
        EXPECT_EQ(extent(), std::pair(0, 2));
        EXPECT_EQ(number(u"RowCurrent"), -1);
        call(u"RowsSet", {1});
        set(0, 0, u"probe");
        EXPECT_FALSE(gridShows());
    }
    platform.files().put(u"half.txt", "\"2|Half\"\r\n\"probe\"\r\n\"b\"\r\n\"c\"\r\n");
    call(u"GridLoad", {Text(u"half.txt")});
    EXPECT_TRUE(gridShows());
    EXPECT_EQ(column(0) + " " + column(1), "probe,c b,c");
}

TEST_F(GridEditTest, CaptionsStandOverTheirColumns) {
    show(3, 3);
    for (const auto& [col, caption] : {std::pair(1, u"Article"), {9, u"Later"}}) {
        call(u"BarHeaderCaptionSet", {col, Text(caption)});
        EXPECT_EQ(call(u"BarHeaderCaptionRead", {col}), Value(Text(caption)));
    }
    for (const int32_t none : {0, -1, 10001, INT32_MAX}) {
        if (none != 0) call(u"BarHeaderCaptionSet", {none, Text(u"x")});
        EXPECT_EQ(call(u"BarHeaderCaptionRead", {none}), Value(Text())) << none;
    }
    const PixelRect before = drawnText(u"Article").rect;
    EXPECT_GE(before.left, border + colWidth);
    EXPECT_LT(before.bottom, border + bar);
    call(u"ColWidth", {0, 1500.0});
    EXPECT_EQ(drawnText(u"Article").rect.left, before.left + 100 - colWidth);
    const Rgb blue = Rgb::of(0, 0, 255), white = Rgb::of(255, 255, 255);
    call(u"barCol", {OleColour(blue)});
    call(u"BarColText", {OleColour(white)});
    EXPECT_EQ(get(u"BarHeaderColorRefresh"), Value(OleColour(blue)));
    EXPECT_EQ(colourAt({10, 5}), blue);
    EXPECT_EQ(drawnText(u"Article").colour, white);
    call(u"ColumnVisible", {1, 0, false});
    EXPECT_TRUE(drawnText(u"Article").text.empty());
}

TEST_F(GridEditTest, TheHostsOwnFieldsTellNobody) {
    put(u"mstrDragInfo", Text(u"order 7"));
    put(u"blnPUBSHOWALARM", true);
    put(u"MousePosn", 5);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(text(u"mstrDragInfo"), "order 7");
    MemoryBag bag;
    control->save(bag);
    EXPECT_TRUE(bag.entries().empty());
    for (const TextView member : {u"Change", u"ChangePost", u"GridChange"}) call(member);
    EXPECT_EQ(told(), "Change, ChangePost");
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
        // At the start and nowhere after it.
        EXPECT_EQ(after(member, arguments).told().rfind("ChangeEdited"), 0u) << toUtf8(member);
    }
    host.on.clear();
    EXPECT_EQ(after(u"GridSetFocus", {2, 1}).current(), std::pair(1, 2)) << "the column comes first";
}

}  // namespace
}  // namespace obk::test
