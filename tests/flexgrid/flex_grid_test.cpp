#include "flexgrid/flex_grid.h"

#include "base/attempt.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "support/flex_grid_monkey.h"
#include "support/from_environment.h"
#include "support/quiet_surface_owner.h"
#include "widgets/in_one_line.h"
#include "widgets/surface.h"
#include "widgets/text_box.h"

#include <gtest/gtest.h>

#include <random>

namespace obk::test {
namespace {

using Kind = MouseEvent::Kind;
using headless::DrawnItem;

// 300 x 200 pixels, 1000 rows of 18 pixels and 10 columns of 64: both scroll bars, of 17 pixels, show.
class FlexGridTest : public testing::Test, protected QuietSurfaceOwner {
protected:
    FlexGridTest() {
        root.move({{0}, {0}, {4500}, {3000}});
        grid.move({{0}, {0}, {4500}, {3000}});
        grid.SetRows(1000);
        grid.SetCols(10);
        EXPECT_TRUE(surface.open({SurfacePlacement::Kind::control, 1000, {0, 0, 300, 200}}));
        peer().paint();
    }
    void surfaceChanged() override { root.placed(); }

    headless::HeadlessSurface& peer() { return *platform.surface(surface.window()); }
    void mouse(Kind kind, PixelPoint at, int16_t shift = 0) {
        platform.mouse(surface.window(), {kind, button::left, shift, at});
    }
    // The steps of a person answer what was told meanwhile.
    std::string drag(PixelPoint from, PixelPoint to, int16_t shift = 0) {
        mouse(Kind::down, from, shift);
        if (to != from) mouse(Kind::move, to, shift);
        mouse(Kind::up, to, shift);
        return take();
    }
    std::string press(PixelPoint at, int16_t shift = 0) { return drag(at, at, shift); }
    std::string pressTwice(PixelPoint at) {
        mouse(Kind::doubleClick, at);
        mouse(Kind::up, at);
        return take();
    }
    std::string typed(int16_t code, int16_t shift = 0) {
        platform.pressKey(code, shift);
        return take();
    }
    Cursor cursorAt(PixelPoint at) {
        mouse(Kind::move, at);
        return peer().cursor();
    }
    // How far the cells are scrolled after a turn.
    std::pair<int64_t, int64_t> wheel(int32_t delta, bool horizontal = false, int16_t shift = 0) {
        platform.wheel(surface.window(), {delta, horizontal, shift, {50, 50}});
        return {grid.view().offset().x, grid.view().offset().y};
    }
    void pass(int milliseconds) { platform.advance(std::chrono::milliseconds(milliseconds)); }
    void note(Event<>& event, const std::string& name) {
        connections.push_back(event.connect([this, name] { journal.push_back(name); }));
    }
    std::string take() { return inOneLine(std::exchange(journal, {})); }

    headless::HeadlessPlatform platform;
    Container root{platform, [] { return std::make_shared<int>(0); }};
    Surface surface{root, *this};
    FlexGrid grid{root};
    std::vector<std::string> journal;
    std::vector<Connection> connections;
};

TEST_F(FlexGridTest, TheFrameOfTheCurrentCellCoversNoneOfItsText) {
    grid.Select({3, 1}, {3, 1});
    grid.setText({3, 1}, u"gjpqy");
    for (const bool coloured : {false, true}) {
        if (coloured) grid.setAttribute<&CellStyle::backColour>({3, 1}, OleColour(Rgb::of(0, 120, 215)));
        grid.takeFocus();
        root.invalidate();
        const auto items = peer().paint().items();
        const auto text = std::ranges::find(items, Text(u"gjpqy"), &DrawnItem::text);
        ASSERT_NE(text, items.end());
        const int32_t height = platform.appearance().metrics(text->style.font, Dpi(96)).height();
        PixelRect letters = text->rect;
        letters.top += (letters.height() - height) / 2;
        letters.bottom = letters.top + height;
        const auto covers = [&](const DrawnItem& item) { return !item.rect.intersected(letters).empty(); };
        EXPECT_TRUE(std::none_of(std::next(text), items.end(), covers));
    }
}

TEST_F(FlexGridTest, KeysMoveTheCurrentCellAndShowIt) {
    using Row = std::tuple<int16_t, int16_t, CellAddress, CellAddress, int32_t>;
    grid.takeFocus();
    // Ten rows show whole and one in part.
    for (const auto& [code, state, from, to, topRow] :
         {Row{key::down, 0, {0, 0}, {1, 0}, 0}, Row{key::down, 0, {9, 0}, {10, 0}, 1},
          Row{key::up, 0, {0, 3}, {0, 3}, 0}, Row{key::right, 0, {0, 9}, {0, 9}, 0},
          Row{key::left, 0, {5, 1}, {5, 0}, 0}, Row{key::home, 0, {5, 9}, {5, 0}, 0},
          Row{key::end, 0, {5, 0}, {5, 9}, 0}, Row{key::pageDown, 0, {0, 2}, {10, 2}, 1},
          Row{key::pageUp, 0, {500, 2}, {490, 2}, 490}, Row{key::pageUp, 0, {3, 2}, {0, 2}, 0},
          Row{key::home, shift::control, {700, 9}, {0, 0}, 0},
          Row{key::end, shift::control, {0, 0}, {999, 9}, 990},
          Row{key::down, shift::control, {0, 4}, {999, 4}, 990},
          Row{key::up, shift::control, {999, 4}, {0, 4}, 0},
          Row{key::right, shift::control, {2, 4}, {2, 9}, 0},
          Row{key::pageDown, shift::control, {1, 1}, {999, 1}, 990}}) {
        SCOPED_TRACE(testing::Message() << code << " from " << from.row << ", " << from.col);
        grid.Select(from, from);
        grid.show(from);
        typed(code, state);
        EXPECT_EQ(grid.current(), to);
        EXPECT_EQ(grid.corner(), to);
        EXPECT_EQ(grid.TopRow(), topRow);
        grid.Select(from, from);
        typed(code, static_cast<int16_t>(state | shift::shift));
        EXPECT_EQ(grid.current(), from) << "Shift extends";
        EXPECT_EQ(grid.corner(), to);
    }
}

TEST_F(FlexGridTest, KeysPassOverWhatIsHidden) {
    grid.takeFocus();
    for (const int32_t row : {0, 3, 4, 999}) grid.SetRowHeight(row, 0);
    for (const int32_t col : {1, 9}) grid.SetColWidth(col, 0);
    const std::tuple<int16_t, CellAddress, CellAddress> rows[] = {
        {key::down, {2, 0}, {5, 0}},  {key::up, {5, 0}, {2, 0}},   {key::up, {1, 0}, {1, 0}},
        {key::right, {2, 0}, {2, 2}}, {key::left, {2, 2}, {2, 0}}, {key::end, {2, 0}, {2, 8}},
    };
    for (const auto& [key, from, to] : rows) {
        grid.Select(from, from);
        platform.pressKey(key);
        EXPECT_EQ(grid.current(), to) << key;
    }
    platform.pressKey(key::end, shift::control);
    EXPECT_EQ(grid.current(), (CellAddress{998, 8}));
    for (int32_t row = 0; row < 1000; ++row) grid.SetRowHeight(row, 0);
    platform.pressKey(key::down);
    EXPECT_EQ(grid.current(), (CellAddress{998, 8}));
}

TEST_F(FlexGridTest, ListenersMayTakeKeysAndCells) {
    grid.takeFocus();
    bool leaves = true, takes = true;
    connections.push_back(grid.leavingCell.connect([&](bool& may) {
        journal.push_back("leaving");
        may = leaves;
    }));
    note(grid.cellEntered, "entered");
    note(grid.selectionMoved, "selection");
    connections.push_back(grid.keyWentDown.connect([&](KeyEvent& event) {
        journal.push_back("key " + std::to_string(event.code));
        if (takes) event.code = 0;
    }));
    EXPECT_EQ(typed(key::down), "key 40");
    EXPECT_EQ(grid.Row(), 0);
    takes = false;
    EXPECT_EQ(typed(key::down), "key 40, leaving, entered, selection");
    EXPECT_EQ(typed(key::down, shift::shift), "key 40, selection");
    leaves = false;
    EXPECT_EQ(typed(key::down), "key 40, leaving");
    EXPECT_EQ(grid.Row(), 1);
    leaves = true;
    grid.SetRow(7);
    grid.SetTopRow(4);
    EXPECT_EQ(take(), "") << "what the host does is no news to it";
    // The rows are gone by the time the current cell should move.
    connections.push_back(grid.leavingCell.connect([this](bool&) { grid.SetRows(0); }));
    EXPECT_EQ(typed(key::down), "key 40, leaving");
    EXPECT_EQ(grid.Row(), -1);
}

TEST_F(FlexGridTest, AListenerThatFailsStopsNoStepAfterIt) {
    const auto fails = [](auto&&...) { throw StatementFailed("a listener's own"); };
    const auto fail = [&](auto&... events) { (connections.push_back(events.connect(fails)), ...); };
    fail(grid.mousePressed, grid.mouseMoved, grid.mouseReleased, grid.keyWentDown, grid.leavingCell,
         grid.cellEntered, grid.selectionMoved, grid.disturbed, grid.scrolled, grid.laidOut,
         grid.columnResized);
    note(grid.clicked, "click");
    EXPECT_EQ(press({70, 20}), "click");
    EXPECT_EQ(grid.current(), (CellAddress{1, 1}));
    drag({62, 30}, {92, 30});
    EXPECT_EQ(grid.ColWidth(0), 94 * 15);
    platform.pressKey(key::pageDown);
    EXPECT_EQ(grid.current(), (CellAddress{11, 1}));
    EXPECT_EQ(grid.TopRow(), 2) << "the cell is shown";
    grid.SetRedraw(false);
    EXPECT_TRUE(grid.AddItem(u"x", 0));
}

TEST_F(FlexGridTest, PressesSelectAndClick) {
    note(grid.clicked, "click");
    note(grid.doubleClicked, "double");
    note(grid.cellEntered, "entered");
    grid.SetTopRow(100);
    EXPECT_EQ(press({70, 20}), "entered, click");
    EXPECT_EQ(grid.current(), (CellAddress{101, 1}));
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(press({150, 60}, shift::shift), "click");
    EXPECT_EQ(grid.selection(), (CellRange{101, 1, 103, 2}));
    EXPECT_EQ(pressTwice({150, 60}), "double");
    EXPECT_EQ((CellAddress{grid.MouseRow(), grid.MouseCol()}), (CellAddress{103, 2}));
    EXPECT_EQ(pressTwice({70, 5}), "entered, click") << "the first press was elsewhere";
    mouse(Kind::move, {150, 190});
    EXPECT_EQ(grid.MouseRow(), -1) << "on the scroll bar";
    grid.SetRows(2);
    EXPECT_EQ(press({70, 100}), "") << "below the last row";
    EXPECT_EQ(grid.MouseRow(), -1);
    grid.setEnabled(false);
    press({10, 5});
    EXPECT_EQ(grid.current(), (CellAddress{1, 1})) << "brought inside, not pressed";
}

TEST_F(FlexGridTest, DraggingSelectsAndScrollsAtTheEdges) {
    grid.SetTopRow(100);
    mouse(Kind::down, {70, 20});
    mouse(Kind::move, {140, 70});
    EXPECT_EQ(grid.selection(), (CellRange{101, 1, 103, 2}));
    const auto stay = [this](PixelPoint at, int milliseconds) {
        mouse(Kind::move, at);
        pass(milliseconds);
        return grid.TopRow();
    };
    EXPECT_EQ(stay({140, 190}, 500), 110);
    EXPECT_EQ(grid.corner().row, 120) << "the row at the edge, in part";
    EXPECT_EQ(stay({140, 100}, 500), 110) << "inside nothing scrolls";
    EXPECT_EQ(stay({140, -1000}, 1000), 0) << "farther away it is faster";
    EXPECT_EQ(grid.selection(), (CellRange{0, 1, 101, 2}));
    stay({500, 5}, 2000);
    EXPECT_EQ(grid.corner(), (CellAddress{0, 9}));
    mouse(Kind::up, {500, 5});
    pass(1000);
    EXPECT_EQ(grid.current(), (CellAddress{101, 1}));
    EXPECT_EQ(platform.capture(), 0u);
}

TEST_F(FlexGridTest, BordersAreDraggedAndFitTheirColumn) {
    std::vector<int32_t> resized;
    connections.push_back(grid.columnResized.connect([&](int32_t col) { resized.push_back(col); }));
    EXPECT_EQ(cursorAt({66, 30}), Cursor::sizeColumn) << "from the right too";
    EXPECT_EQ(cursorAt({70, 30}), Cursor::arrow);
    mouse(Kind::down, {62, 30});
    mouse(Kind::move, {92, 30});
    EXPECT_EQ(grid.ColWidth(0), 94 * 15);
    mouse(Kind::move, {-200, 30});
    EXPECT_EQ(grid.ColWidth(0), 8 * 15) << "something of it stays";
    mouse(Kind::up, {-200, 30});
    EXPECT_EQ(grid.current(), (CellAddress{0, 0})) << "no cell was pressed";
    EXPECT_EQ(resized, (std::vector<int32_t>{0, 0}));
    EXPECT_EQ(cursorAt({5, 30}), Cursor::arrow) << "to press on";

    // All rows are measured, how many there may be: ten units of six pixels (half of 11 and 1).
    grid.change([](GridModel& model) {
        model.setRows(RowSequence::mostRows);
        model.setText({3, 0}, u"01234567");
        model.setText({RowSequence::mostRows - 900, 0}, u"0123456789");
    });
    mouse(Kind::doubleClick, {7, 30});
    EXPECT_EQ(grid.ColWidth(0), (60 + 2 * 2) * 15);
    grid.SetAllowUserResizing(false);
    mouse(Kind::doubleClick, {66, 30});
    EXPECT_EQ(resized.size(), 3u);
}

TEST_F(FlexGridTest, TheWheelScrollsByLinesAndFineOnesByPixels) {
    using Offset = std::pair<int64_t, int64_t>;
    EXPECT_EQ(wheel(-120), Offset(0, 3 * 18));
    EXPECT_EQ(wheel(240), Offset(0, 0));
    for (int count = 1; count < 12; ++count) wheel(-10);
    EXPECT_EQ(wheel(-10), Offset(0, 3 * 18)) << "a notch in small steps goes as far";
    EXPECT_EQ(wheel(-10), Offset(0, 3 * 18 + 4));
    EXPECT_EQ(wheel(120, true), Offset(3 * 32, 3 * 18 + 4));
    EXPECT_EQ(grid.cellPlace({12, 2}), (TwipsRect{{32 * 15}, {(12 * 18 - 58) * 15}, {960}, {270}}));
    EXPECT_EQ(wheel(120, false, shift::shift), Offset(0, 3 * 18 + 4));
    grid.SetRows(5);
    EXPECT_EQ(wheel(-120), Offset(0, 0));
    EXPECT_FALSE(grid.wheel({-120, false, 0, {50, 50}})) << "the host may scroll instead";
    EXPECT_FALSE(grid.wheel({-120, true, shift::control, {50, 50}}));
}

TEST_F(FlexGridTest, ScrollBarsReachEveryRow) {
    drag({290, 20}, {290, 500});
    EXPECT_EQ(grid.TopRow(), 990);
    EXPECT_EQ(grid.view().rowAt(180), -1) << "the last row shows whole, and nothing is below it";
    press({290, 8});
    press({290, 30});
    EXPECT_EQ(grid.TopRow(), 990 - 1 - 10);
    // One that is higher than the view is gone through.
    grid.SetRowHeight(0, 60000);
    grid.SetTopRow(0);
    press({290, 175});
    EXPECT_EQ(grid.view().offset().y, 18);
    grid.SetRows(1);
    grid.SetTopRow(0);
    drag({290, 20}, {290, 500});
    EXPECT_EQ(grid.view().offset().y, 4000 - 183);
}

TEST_F(FlexGridTest, CopiesTheSelectionForOtherPrograms) {
    grid.takeFocus();
    grid.change([](GridModel& model) {
        model.setText({1, 1}, u"a");
        model.setText({1, 2}, u"b\tc");
        model.setText({2, 1}, u"say \"x\"\r\ny");
    });
    grid.Select({2, 2}, {1, 1});
    platform.pressKey('C', shift::control);
    EXPECT_EQ(platform.clipboard(), u"a\t\"b\tc\"\r\n\"say \"\"x\"\"\r\ny\"\t\r\n");
    grid.SetRow(1);
    platform.pressKey(key::insert, shift::control);
    EXPECT_EQ(platform.clipboard(), u"\"b\tc\"\r\n");
}

TEST_F(FlexGridTest, ADragThatBeginsOnSeveralSelectedCellsCarriesTheirTexts) {
    std::vector<std::string> carried;
    platform.answerDrag([&](TextView text) {
        carried.push_back(toUtf8(text));
        return drop_effect::copy;
    });
    note(grid.clicked, "click");
    note(grid.cellEntered, "entered");
    grid.change([](GridModel& model) {
        model.setText({1, 1}, u"a");
        model.setText({2, 2}, u"b");
    });
    grid.Select({1, 1}, {2, 2});
    EXPECT_EQ(drag({70, 20}, {150, 80}), "") << "no click";
    EXPECT_EQ(carried, std::vector<std::string>{"a\t\r\n\tb\r\n"});
    EXPECT_EQ(grid.selection(), (CellRange{1, 1, 2, 2}));
    mouse(Kind::move, {10, 10});
    EXPECT_EQ(grid.selection(), (CellRange{1, 1, 2, 2})) << "over with it";
    // A hand that trembles presses.
    EXPECT_EQ(drag({150, 40}, {152, 41}), "entered, click");
    EXPECT_EQ(grid.selection(), (CellRange{2, 2, 2, 2}));
    // One cell, other cells, and with Shift: a selection is made.
    drag({150, 40}, {70, 20});
    EXPECT_EQ(grid.selection(), (CellRange{1, 1, 2, 2}));
    drag({70, 20}, {150, 80}, shift::shift);
    EXPECT_EQ(grid.selection(), (CellRange{2, 2, 4, 2}));
    drag({70, 90}, {10, 90});
    EXPECT_EQ(grid.selection(), (CellRange{5, 0, 5, 1}));
    // Nobody sees what is selected.
    grid.SetHighLight(0);
    drag({10, 90}, {70, 90});
    EXPECT_EQ(carried.size(), 1u);
}

TEST_F(FlexGridTest, OnlyWhatChangesIsPaintedAnew) {
    // The cells that a change makes the window paint anew. The frame reaches a pixel out of its cell.
    constexpr PixelRect cells{0, 0, 283, 183};
    const auto anew = [&](const auto& change) {
        change();
        const PixelRect invalid = peer().invalid();
        peer().paint();
        return invalid.empty() ? PixelRect{} : invalid.intersected(cells);
    };
    grid.Select({2, 1}, {2, 1});
    peer().paint();
    EXPECT_EQ(anew([&] { grid.setText({2, 1}, u"x"); }), (PixelRect{63, 35, 128, 54}));
    EXPECT_EQ(anew([&] { grid.change([](GridModel&) {}); }), cells);
    EXPECT_EQ(anew([&] { grid.SetCol(2); }), (PixelRect{63, 35, 192, 54})) << "both current cells";
    EXPECT_EQ(anew([&] { grid.AddItem(u"y", 4); }), (PixelRect{0, 71, 283, 183}));
    EXPECT_EQ(anew([&] { grid.AddItem(u"y", 400); }), PixelRect()) << "out of sight";
    EXPECT_EQ(anew([&] { grid.SetColWidth(3, 975); }), (PixelRect{191, 0, 283, 183}));
    EXPECT_EQ(anew([&] { grid.SetTopRow(1); }), (PixelRect{0, 165, 283, 183})) << "the rest is moved";
    EXPECT_EQ(anew([&] {
                  grid.SetRedraw(false);
                  grid.setText({2, 1}, u"z");
                  grid.SetRow(9);
                  grid.SetTopRow(3);
                  grid.setPicture({4, 1}, nullptr, CellAlignment::leftTop);
              }),
              PixelRect());
    EXPECT_EQ(anew([&] { grid.SetRedraw(true); }), cells);
}

TEST(FlexGridMonkey, WalksWithoutHarmAndPaintsBitByBitWhatIsThere) {
    for (uint32_t seed = 1; seed <= 2; ++seed) {
        std::mt19937 random(seed);
        FlexGridMonkey monkey(diceOf(random));
        for (int step = 0; step < 1000; ++step) {
            const char* const broken = monkey.step();
            ASSERT_EQ(broken, nullptr) << broken << ": seed " << seed << ", step " << step;
        }
    }
}

TEST_F(FlexGridTest, PaintingCostsWhatShows) {
    const auto drawn = [this] { return std::move(peer().paint()).items().size(); };
    const size_t usual = drawn();
    grid.SetRows(INT32_MAX);
    grid.SetTopRow(INT32_MAX / 2);
    peer().invalidate({0, 0, 300, 200});
    EXPECT_LE(drawn(), usual + 2);
    // All but a few rows in sight are hidden.
    grid.SetRows(20000);
    for (int32_t row = 0; row < grid.Rows(); ++row) grid.SetRowHeight(row, row % 1999 == 0 ? 270 : 0);
    grid.SetTopRow(0);
    peer().invalidate({0, 0, 300, 200});
    EXPECT_LE(drawn(), usual + 2);
    EXPECT_EQ(grid.view().rowAt(20), 1999);
}

TEST_F(FlexGridTest, CellsLookAsTheyWereTold) {
    const auto item = [this](PixelPoint at, DrawnItem::Kind kind) -> std::optional<DrawnItem> {
        peer().invalidate({0, 0, 300, 200});
        std::optional<DrawnItem> found;
        for (const DrawnItem& drawn : std::move(peer().paint()).items()) {
            if (drawn.kind == kind && drawn.rect.contains(at)) found = drawn;
        }
        return found;
    };
    const auto fill = [&](PixelPoint at) { return item(at, DrawnItem::Kind::fill)->colour; };
    const auto look = [&](PixelPoint at) {
        return std::pair(item(at, DrawnItem::Kind::text)->colour, fill(at));
    };
    constexpr Rgb black{0}, red{255}, blue = Rgb::of(0, 0, 255), white = Rgb::of(255, 255, 255),
                                      chosen = Rgb::of(0, 120, 215);
    grid.setText({1, 1}, u"text");
    grid.setAttribute<&CellStyle::backColour>({1, 1}, OleColour(Rgb::of(255, 0, 0)));
    grid.setAttribute<&CellStyle::foreColour>({1, 1}, OleColour(Rgb::of(0, 0, 255)));
    grid.Select({5, 5}, {5, 5});
    EXPECT_EQ(look({70, 24}), std::pair(blue, red));
    EXPECT_EQ(fill({127, 24}), Rgb::of(208, 208, 208));
    platform.appearance().setSystemColour(SystemColour::buttonShadow, Rgb::of(90, 90, 96));
    EXPECT_EQ(fill({127, 24}), Rgb::of(173, 173, 176));

    // Selected cells, but not the current one.
    grid.Select({1, 0}, {1, 1});
    EXPECT_EQ(look({70, 24}), std::pair(white, chosen));
    EXPECT_EQ(fill({20, 24}), white);
    grid.SetHighLight(0);
    EXPECT_EQ(fill({70, 24}), red);

    platform.appearance().setHighContrast(true);
    EXPECT_EQ(look({70, 24}), std::pair(black, white));
    platform.appearance().setHighContrast(false);

    // A check mark is drawn, whatever fonts there are.
    grid.setText({2, 2}, u"a");
    grid.setAttribute<&CellStyle::fontName>({2, 2}, std::make_shared<const Text>(u"Webdings"));
    EXPECT_FALSE(item({138, 45}, DrawnItem::Kind::text));
    EXPECT_TRUE(item({138, 45}, DrawnItem::Kind::polygon));
    grid.setText({2, 2}, u"b");
    EXPECT_TRUE(item({138, 45}, DrawnItem::Kind::text));
    // A text stands beside its picture.
    const auto picture = std::make_shared<SharedPicture>(PixelSize{16, 16}, std::vector<uint32_t>(256));
    grid.setPicture({2, 2}, picture, CellAlignment::leftTop);
    EXPECT_EQ(item({130, 45}, DrawnItem::Kind::picture)->rect, (PixelRect{128, 36, 144, 52}));
    EXPECT_EQ(item({150, 45}, DrawnItem::Kind::text)->rect.left, 128 + 16 + 2);
    grid.setPicture({2, 2}, picture, CellAlignment::rightTop);
    EXPECT_EQ(item({180, 45}, DrawnItem::Kind::picture)->rect, (PixelRect{175, 36, 191, 52}));
}

TEST_F(FlexGridTest, TheKeyboardComesBackFromAFieldThatGoes) {
    TextBox field(root);
    field.move({{0}, {0}, {900}, {270}});
    surface.close();
    surface.open({SurfacePlacement::Kind::control, 1000, {0, 0, 300, 200}});
    grid.takeFocus();
    EXPECT_TRUE(field.takeFocus());
    typed(key::down);
    EXPECT_EQ(grid.Row(), 0) << "the field's keys are its own";
    field.setVisible(false);
    typed(key::down);
    EXPECT_EQ(grid.Row(), 1);
    platform.setFocus(0);
    grid.setEnabled(false);
    platform.setFocus(surface.window());
    EXPECT_FALSE(grid.hasFocus()) << "disabled, it loses it for good";
}

}  // namespace
}  // namespace obk::test
