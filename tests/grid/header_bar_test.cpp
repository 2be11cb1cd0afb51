#include "grid_edit_fixture.h"

namespace obk::test {
namespace {

class HeaderBarTest : public GridEditTest {
protected:
    void SetUp() override {
        GridEditTest::SetUp();
        size(3, 3);
        show();
    }
    void mouse(Kind kind, int32_t x, int32_t y = border + 5) {
        platform.mouse(control->window(),
                       {kind, kind == Kind::move ? int16_t{0} : button::left, 0, PixelPoint{x, y}});
    }
    void click(int32_t x, Kind first = Kind::down) {
        mouse(first, x);
        mouse(Kind::up, x);
    }
    void drag(int32_t from, int32_t to) {
        mouse(Kind::down, from);
        mouse(Kind::move, (from + to) / 2);
        mouse(Kind::move, to);
        mouse(Kind::up, to);
    }
    // Where a column ends, in pixels of the control.
    int32_t rightOf(int32_t col) {
        call(u"ColSetFocus", {col});
        return border + (number(u"CellLeft") + number(u"CelWidth")) / 15;
    }
    // The lines of the mark near a column's right edge, from the top: where each begins and ends, counted
    // from that edge.
    std::string mark(int32_t col) {
        const int32_t right = rightOf(col);
        control->root().invalidate();
        const headless::RecordingCanvas canvas = surface().paint();
        const auto dark = [&](int32_t x, int32_t y) {
            return canvas.colourAt({right + x, y}) == Rgb::of(0, 0, 0);
        };
        std::string lines;
        for (int32_t y = border; y < border + bar - 1; ++y) {
            int32_t first = -15;
            while (first < -2 && !dark(first, y)) ++first;
            int32_t end = first;
            while (end < -2 && dark(end, y)) ++end;
            if (first < end) lines += std::to_string(first) + ".." + std::to_string(end) + " ";
        }
        return lines;
    }
    void onSortClick() {
        host.on["SortClick"] = [this](std::span<Value>) { call(u"BarHeaderSort"); };
    }
};

constexpr char ascending[] = "-13..-6 -12..-7 -11..-8 -10..-9 ",
               descending[] = "-10..-9 -11..-8 -12..-7 -13..-6 ";

TEST_F(HeaderBarTest, TheMarkStandsInTheSortedColumnAndPointsTheWayOfTheSort) {
    EXPECT_EQ(mark(0), "");
    onSortClick();
    click(border + 10);
    EXPECT_EQ(mark(0), descending);
    click(border + 10);
    EXPECT_EQ(mark(0), ascending);
    click(border + colWidth + 10);
    EXPECT_EQ(mark(0) + mark(1), ascending);
    call(u"ColWidth", {1, 1500.0});
    EXPECT_EQ(mark(1), ascending) << "it follows its column";
    call(u"ColumnVisible", {1, 0, false});
    EXPECT_EQ(mark(0) + mark(2), "");
    // A sort that finds no column still moves the mark to the current one.
    call(u"ColSetFocus", {2});
    call(u"GridColSort", {7});
    EXPECT_EQ(mark(2), ascending);
    call(u"ColSetFocus", {0});
    call(u"GridColSortInitialDate");
    EXPECT_EQ(mark(0), ascending);
    call(u"ColsSet", {5});
    call(u"ColSetFocus", {0});
    call(u"GridColSortInitialDate");
    EXPECT_EQ(mark(4), descending);
}

TEST_F(HeaderBarTest, ABorderIsDraggedInTheBarAndIsNoClickThen) {
    const auto width = [this](int32_t col) {
        call(u"ColSetFocus", {col});
        return number(u"CelWidth") / 15;
    };
    drag(border + colWidth, border + colWidth + 30);
    EXPECT_EQ(width(0), colWidth + 30);
    drag(border + colWidth + 28, border + colWidth - 12);
    EXPECT_EQ(width(0), colWidth - 10) << "the border keeps its distance from the mouse";
    drag(border + colWidth - 10, border - 100);
    EXPECT_EQ(width(0), 8) << "something is left to press on";
    EXPECT_EQ(host.takeEvents(), Journal{});
    call(u"BarHeaderCaptionSet", {1, Text(u"A caption wider than its column")});
    call(u"CellTextSet", {0, 2, Text(u"Wide enough to be seen in full")});
    click(rightOf(1), Kind::doubleClick);
    EXPECT_GT(width(1), 100);
    click(rightOf(2), Kind::doubleClick);
    EXPECT_GT(width(2), 100);
    EXPECT_EQ(host.takeEvents(), Journal{});
    set(1, 0, u"b");
    set(2, 0, u"c");
    onSortClick();
    for (const int32_t beside : {-2, 0, 2}) {
        const int32_t x = rightOf(0) + beside;
        host.take();
        // A window system may tell of a move to where the mouse is.
        for (const Kind kind : {Kind::down, Kind::move, Kind::up}) mouse(kind, x);
        const Journal told = host.takeEvents();
        EXPECT_EQ(std::count(told.begin(), told.end(), "SortClick"), 1) << "it was not dragged";
        EXPECT_EQ(call(u"BarHeaderColumn"), Value(-1)) << "but is none on a caption";
        EXPECT_EQ(column(0), ",b,c");
    }
}

TEST_F(HeaderBarTest, KeysChangeColumnsAndPressCaptions) {
    const auto width = [this] { return number(u"CelWidth") / 15; };
    call(u"GridFocusShow");
    call(u"ColSetFocus", {1});
    platform.pressKey(key::right, shift::alt);
    EXPECT_EQ(width(), colWidth + 8);
    platform.pressKey(key::left, shift::alt);
    platform.pressKey(key::left, shift::alt);
    EXPECT_EQ(width(), colWidth - 8);
    size(3000, 3);
    set(2000, 1, u"A text far below all that shows, and the longest one");
    call(u"RowSetFocus", {0});
    platform.pressKey(key::add, shift::control);
    EXPECT_GT(width(), 200) << "all rows count";
    onSortClick();
    platform.pressKey(key::up, shift::alt);
    EXPECT_EQ(read(2999, 1).substr(0, 6), "A text");
}

TEST_F(HeaderBarTest, TheCurrentRecordStaysCurrentAndInSightWhenRowsAreSorted) {
    size(100, 3);
    for (int32_t row = 0; row < 100; ++row) set(row, 0, toText(Value(row))->c_str());
    call(u"RowSetFocus", {3});
    call(u"ColSetFocus", {0});
    call(u"GridColSort", {0});
    EXPECT_EQ(current(), std::pair(96, 0));
    EXPECT_EQ(read(96, 0), "3");
    call(u"GridFocusShow");
    platform.pressKey('C', shift::control);
    EXPECT_EQ(platform.clipboard(), u"3\r\n") << "and the only one that is selected";
    EXPECT_GT(number(u"TopRowRead"), 80);
    call(u"GridColSort", {0});
    EXPECT_EQ(current(), std::pair(3, 0));
    EXPECT_LE(number(u"TopRowRead"), 3);
}

TEST_F(HeaderBarTest, WhatIsSelectedIsReadInEveryColour) {
    size(3, 1);
    set(1, 0, u"probe");
    call(u"GridFocusShow");
    call(u"RowSetFocus", {0});
    platform.pressKey('A', shift::control);
    for (const auto red : std::initializer_list<uint8_t>{0, 128, 255}) {
        for (const auto green : std::initializer_list<uint8_t>{0, 128, 255}) {
            call(u"GridColr", {OleColour(Rgb::of(red, green, 128))});
            const int32_t ground = 299 * red + 587 * green + 114 * 128;
            const Rgb text = drawnText(u"probe").style.colour;
            EXPECT_GT(std::abs(299 * text.red() + 587 * text.green() + 114 * text.blue() - ground), 90000)
                << int{red} << " " << int{green};
        }
    }
}

TEST_F(HeaderBarTest, AClickIsAPressAndItsReleaseOnTheBar) {
    const std::vector<int32_t> beyond{-50, bar + 50};
    for (const int32_t y : beyond) {
        mouse(Kind::down, border + 10);
        mouse(Kind::up, border + 10, y);
        EXPECT_EQ(host.takeEvents(), Journal{}) << y;
    }
    // The release may be over another caption; where it was pressed is what counts.
    mouse(Kind::down, border + colWidth + 10);
    mouse(Kind::move, border + 10);
    mouse(Kind::up, border + 10);
    EXPECT_EQ(host.takeEvents(), (Journal{"ChangeEdited", "SortClick"}));
    EXPECT_EQ(call(u"BarHeaderColumn"), Value(1));
    host.takeEvents();
    platform.click(control->window(), {border + 10, border + 5}, button::right);
    EXPECT_EQ(host.takeEvents(), Journal{}) << "another button only leaves where it was pressed";
    EXPECT_EQ(call(u"BarHeaderColumn"), Value(0));
}

TEST_F(HeaderBarTest, TheCaptionBelowTheMouseStandsOut) {
    const auto ground = [this](int32_t col) { return colourAt({border + col * colWidth + 20, border + 3}); };
    const Rgb plain = ground(0);
    mouse(Kind::move, border + colWidth + 10);
    const Rgb hovered = ground(1);
    EXPECT_NE(hovered, plain);
    EXPECT_EQ(ground(0), plain);
    mouse(Kind::down, border + colWidth + 10);
    EXPECT_NE(ground(1), hovered);
    EXPECT_NE(ground(1), plain);
    mouse(Kind::up, border + colWidth + 10);
    mouse(Kind::leave, border + colWidth + 10, -1);
    EXPECT_EQ(ground(1), plain);
}

}  // namespace
}  // namespace obk::test
