#include "grid_edit_fixture.h"

namespace obk::test {
namespace {

class HeaderBarTest : public GridEditTest {
protected:
    void SetUp() override {
        GridEditTest::SetUp();
        show(3, 3);
    }
    // On the bar, by how far right.
    static PixelPoint onBar(int32_t x) { return {x, border + 5}; }
    void click(int32_t x, Kind first = Kind::down) { GridEditTest::click(onBar(x), first); }
    void sortOnClick() {
        onEvent("SortClick", [this] { call(u"BarHeaderSort"); });
    }
    // In pixels, as the place where a column ends on the control.
    int32_t width(int32_t col) {
        call(u"ColSetFocus", {col});
        return number(u"CelWidth") / 15;
    }
    int32_t rightOf(int32_t col) {
        const int32_t own = width(col);
        return border + number(u"CellLeft") / 15 + own;
    }
    // The lines of the mark near a column's right edge, from the top: where each begins and ends, counted
    // from that edge.
    std::string mark(int32_t col) {
        const int32_t right = rightOf(col);
        control->root().invalidate();
        const headless::RecordingCanvas canvas = surface().paint();
        std::string lines;
        for (int32_t y = border; y < border + bar - 1; ++y) {
            std::vector<int32_t> dark;
            for (int32_t x = -15; x < -2; ++x) {
                if (canvas.colourAt({right + x, y}) == Rgb()) dark.push_back(x);
            }
            if (!dark.empty())
                lines += std::to_string(dark.front()) + ".." + std::to_string(dark.back()) + " ";
        }
        return lines;
    }
};

constexpr char ascending[] = "-13..-7 -12..-8 -11..-9 -10..-10 ",
               descending[] = "-10..-10 -11..-9 -12..-8 -13..-7 ";

TEST_F(HeaderBarTest, AClickAsksTheHostToSortAndTheMarkPointsItsWay) {
    size(0, 3);
    for (const char16_t* row : {u"8\tc", u"10\ta", u"9\tb"}) call(u"RowAddQuick", {Text(row), 0});
    EXPECT_EQ(mark(0), "");
    sortOnClick();
    const int32_t first = border + 10, second = border + colWidth + 10;
    host.take();
    click(first);
    EXPECT_EQ(events(), "ChangeEdited, SortClick, ChangeEdited");
    EXPECT_EQ(column(0) + mark(0), std::string("10,9,8") + descending);
    click(first, Kind::doubleClick);
    EXPECT_EQ(column(0) + mark(0), std::string("8,9,10") + ascending);
    click(second);
    EXPECT_EQ(number(u"ColCurrent"), 1);
    EXPECT_EQ(column(1) + mark(0) + mark(1), std::string("a,b,c") + ascending)
        << "sorted as the last one was";
    call(u"ColWidth", {1, 1500.0});
    EXPECT_EQ(mark(1), ascending) << "it follows its column";
    click(second);
    click(first);
    EXPECT_EQ(column(0), "10,9,8");
    call(u"ColWidth", {1, 960.0});
    // No column begins before its edge, and none stands right of the last.
    for (const int32_t x : {border, border + colWidth, border + 3 * colWidth + 30}) {
        click(x);
        call(u"GridRedraw", {false});
        surface().paint();
        EXPECT_EQ(number(u"BarHeaderColumn"), -1) << x;
        EXPECT_EQ(number(u"ColCurrent"), 2) << "the search has gone through all";
        EXPECT_FALSE(surface().invalid().empty()) << "drawing is resumed";
    }
    EXPECT_EQ(column(0), "10,9,8");
    call(u"ColumnVisible", {0, 0, false});
    EXPECT_EQ(mark(1) + mark(2), "");
}

TEST_F(HeaderBarTest, SortingGoesByTheCurrentColumnAndMovesTheMarkThere) {
    for (const int32_t col : {0, 1}) {
        for (int32_t row = 0; row < 3; ++row) set(row, col, decimalText(row + col).c_str());
    }
    const auto sorted = [this](int32_t current, TextView member, const std::vector<Value>& arguments = {}) {
        call(u"ColSetFocus", {current});
        call(member, arguments);
        return column(current) + mark(number(u"ColCurrent"));
    };
    const std::string up = std::string("0,1,2") + ascending;
    EXPECT_EQ(sorted(0, u"GridColSort", {0}), std::string("2,1,0") + descending);
    EXPECT_EQ(sorted(0, u"GridColSort", {2}), up);
    EXPECT_EQ(sorted(0, u"GridColSort", {3}), up) << "there is no such column";
    EXPECT_EQ(sorted(1, u"GridColSort", {7}), std::string("1,2,3") + ascending) << "but the mark moves";
    EXPECT_EQ(sorted(0, u"GridColSortInitialDate"), up) << "there is no fifth column";
    call(u"ColsSet", {5});
    for (int32_t row = 0; row < 3; ++row) set(row, 4, decimalText(row).c_str());
    EXPECT_EQ(sorted(0, u"GridColSortInitialDate"), std::string("2,1,0") + descending);
    EXPECT_EQ(number(u"ColCurrent"), 4);
}

TEST_F(HeaderBarTest, ABorderIsDraggedInTheBarAndIsNoClickThen) {
    const auto draggedTo = [this](int32_t from, int32_t to) {
        mouse(Kind::down, onBar(from));
        for (const int32_t x : {(from + to) / 2, to}) mouse(Kind::move, onBar(x));
        mouse(Kind::up, onBar(to));
        return width(0);
    };
    EXPECT_EQ(draggedTo(border + colWidth, border + colWidth + 30), colWidth + 30);
    EXPECT_EQ(draggedTo(border + colWidth + 28, border + colWidth - 12), colWidth - 10)
        << "the border keeps its distance from the mouse";
    EXPECT_EQ(draggedTo(border + colWidth - 10, border - 100), 8) << "something is left to press on";
    EXPECT_EQ(events(), "");
    call(u"BarHeaderCaptionSet", {1, Text(u"A caption wider than its column")});
    set(0, 2, u"Wide enough to be seen in full");
    for (const int32_t col : {1, 2}) {
        click(rightOf(col), Kind::doubleClick);
        EXPECT_GT(width(col), 100) << col;
    }
    EXPECT_EQ(events(), "");
    set(1, 0, u"b");
    set(2, 0, u"c");
    sortOnClick();
    for (const int32_t beside : {-2, 0, 2}) {
        const PixelPoint pressed = onBar(rightOf(0) + beside);
        host.take();
        // A window system may tell of a move to where the mouse is.
        drag(pressed, pressed);
        EXPECT_EQ(events(), "ChangeEdited, SortClick, ChangeEdited") << "it was not dragged";
        EXPECT_EQ(call(u"BarHeaderColumn"), Value(-1)) << "but is none on a caption";
        EXPECT_EQ(column(0), ",b,c");
    }
}

TEST_F(HeaderBarTest, KeysChangeColumnsAndPressCaptions) {
    call(u"GridFocusShow");
    call(u"ColSetFocus", {1});
    platform.pressKey(key::right, shift::alt);
    EXPECT_EQ(width(1), colWidth + 8);
    press({key::left, key::left}, shift::alt);
    EXPECT_EQ(width(1), colWidth - 8);
    size(3000, 3);
    set(2000, 1, u"A text far below all that shows, and the longest one");
    call(u"RowSetFocus", {0});
    platform.pressKey(key::add, shift::control);
    EXPECT_GT(width(1), 200) << "all rows count";
    sortOnClick();
    EXPECT_EQ(after(key::up, shift::alt).read(2999, 1).substr(0, 6), "A text");
}

TEST_F(HeaderBarTest, TheCurrentRecordStaysCurrentAndInSightWhenRowsAreSorted) {
    size(100, 3);
    for (int32_t row = 0; row < 100; ++row) set(row, 0, decimalText(row).c_str());
    goTo(3, 0);
    EXPECT_EQ(after(u"GridColSort", {0}).current(), std::pair(96, 0));
    EXPECT_EQ(read(96, 0), "3");
    call(u"GridFocusShow");
    platform.pressKey('C', shift::control);
    EXPECT_EQ(platform.clipboard(), u"3\r\n") << "and the only one that is selected";
    EXPECT_GT(number(u"TopRowRead"), 80);
    EXPECT_EQ(after(u"GridColSort", {0}).current(), std::pair(3, 0));
    EXPECT_LE(number(u"TopRowRead"), 3);
}

TEST_F(HeaderBarTest, WhatIsSelectedIsReadInEveryColour) {
    size(3, 1);
    set(1, 0, u"probe");
    call(u"GridFocusShow");
    platform.pressKey('A', shift::control);
    const auto brightness = [](Rgb colour) {
        return 299 * colour.red() + 587 * colour.green() + 114 * colour.blue();
    };
    for (int shade = 0; shade < 9; ++shade) {
        const Rgb ground =
            Rgb::of(static_cast<uint8_t>(shade % 3 * 127), static_cast<uint8_t>(shade / 3 * 127), 128);
        call(u"GridColr", {OleColour(ground)});
        EXPECT_GT(std::abs(brightness(drawnText(u"probe").style.colour) - brightness(ground)), 90000)
            << shade;
    }
}

TEST_F(HeaderBarTest, AClickIsAPressAndItsReleaseOnTheBar) {
    for (const int32_t beyond : {-50, bar + 50}) {
        mouse(Kind::down, onBar(border + 10));
        mouse(Kind::up, {border + 10, beyond});
        EXPECT_EQ(events(), "") << beyond;
    }
    // The release may be over another caption; where it was pressed is what counts.
    drag(onBar(border + colWidth + 10), onBar(border + 10));
    EXPECT_EQ(events(), "ChangeEdited, SortClick");
    EXPECT_EQ(call(u"BarHeaderColumn"), Value(1));
    host.take();
    platform.click(control->window(), onBar(border + 10), button::right);
    EXPECT_EQ(events(), "") << "another button only leaves where it was pressed";
    EXPECT_EQ(call(u"BarHeaderColumn"), Value(0));
}

TEST_F(HeaderBarTest, TheCaptionBelowTheMouseStandsOut) {
    const auto ground = [this](int32_t col) { return colourAt({border + col * colWidth + 20, border + 3}); };
    const PixelPoint second = onBar(border + colWidth + 10);
    const Rgb plain = ground(0);
    mouse(Kind::move, second, 0);
    const Rgb hovered = ground(1);
    EXPECT_NE(hovered, plain);
    EXPECT_EQ(ground(0), plain);
    mouse(Kind::down, second);
    EXPECT_NE(ground(1), hovered);
    EXPECT_NE(ground(1), plain);
    mouse(Kind::up, second);
    mouse(Kind::leave, {second.x, -1}, 0);
    EXPECT_EQ(ground(1), plain);
}

}  // namespace
}  // namespace obk::test
