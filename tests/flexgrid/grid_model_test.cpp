#include "flexgrid/grid_model.h"

#include "base/letter_case.h"
#include "framework/value.h"
#include "support/failing_memory.h"
#include "support/from_environment.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace obk {
namespace {

// A second grid model, as simple as can be: what GridModel is compared with.
struct PlainCell {
    Text text;
    CellStyle style;
};

struct PlainRow {
    std::vector<PlainCell> cells;
    int32_t height = -1;
};

// -1, 0 or 1: the generic order, worked out anew for each pair.
int genericOrder(TextView left, TextView right) {
    const auto kind = [](TextView text) {
        if (numberFromText(text)) return 1;
        return text.empty() || text.front() < u'0' ? 0 : 2;
    };
    const auto ordered = [](const auto& one, const auto& other) {
        return one < other ? -1 : one > other ? 1 : 0;
    };
    if (kind(left) != kind(right)) return ordered(kind(left), kind(right));
    if (kind(left) == 1) return ordered(*numberFromText(left), *numberFromText(right));
    Text one(left), other(right);
    for (Text* text : {&one, &other}) {
        for (char16_t& unit : *text) unit = upperSimple(unit);
    }
    return ordered(one, other);
}

// Vectors of vectors, every position summed up from the start, every order found by inserting. It is told
// only what GridModel has not refused.
struct PlainGrid {
    PlainGrid(int32_t rowCount, int32_t cols, Dpi scale)
        : dpi(scale), widths(static_cast<size_t>(cols), 960) {
        setRows(rowCount);
    }

    int32_t cols() const { return static_cast<int32_t>(widths.size()); }
    PlainRow emptyRow() const { return {std::vector<PlainCell>(widths.size()), -1}; }
    PlainRow& row(int32_t at) { return rows[static_cast<size_t>(at)]; }
    PlainCell& cell(CellAddress at) { return row(at.row).cells[static_cast<size_t>(at.col)]; }
    int32_t pixels(int32_t twips) const {
        return twips == 0 ? 0 : std::max(1, dpi.toPixels(Twips{static_cast<double>(twips)}));
    }
    int32_t height(int32_t at) { return row(at).height < 0 ? defaultHeight : row(at).height; }
    int64_t left(int32_t col) const {
        int64_t left = 0;
        for (int32_t at = 0; at < col; ++at) left += pixels(widths[static_cast<size_t>(at)]);
        return left;
    }

    void setRows(int32_t count) { rows.resize(static_cast<size_t>(count), emptyRow()); }
    void setCols(int32_t count) {
        widths.resize(static_cast<size_t>(count), 960);
        for (PlainRow& row : rows) row.cells.resize(widths.size());
    }
    void addItem(const Text& item, int32_t at) {
        PlainRow row = emptyRow();
        size_t col = 0;
        for (const char16_t unit : item) {
            if (unit == u'\t')
                ++col;
            else if (col < row.cells.size())
                row.cells[col].text.push_back(unit);
        }
        rows.insert(rows.begin() + at, row);
    }
    void removeItem(int32_t at) { rows.erase(rows.begin() + at); }
    void clear() {
        for (PlainRow& row : rows) row.cells.assign(widths.size(), {});
    }
    void sort(int32_t col, SortDirection direction, int32_t first, int32_t last) {
        for (int32_t at = first + 1; at <= last; ++at) {
            for (int32_t place = at; place > first; --place) {
                const int order = genericOrder(cell({place - 1, col}).text, cell({place, col}).text);
                if (direction == SortDirection::ascending ? order <= 0 : order >= 0) break;
                std::swap(row(place - 1), row(place));
            }
        }
    }
    void setText(CellAddress at, const Text& text) { cell(at).text = text; }
    void setStyle(CellAddress at, const CellStyle& style) { cell(at).style = style; }
    template <auto Attribute, typename Setting>
    void setAttribute(CellAddress at, const Setting& setting) {
        cell(at).style.*Attribute = setting;
    }
    void setRowHeight(int32_t at, int32_t twips) { row(at).height = twips; }
    void setColWidth(int32_t col, int32_t twips) { widths[static_cast<size_t>(col)] = twips; }
    void setDefaultRowHeight(int32_t twips) { defaultHeight = twips; }

    Dpi dpi;
    std::vector<int32_t> widths;
    std::vector<PlainRow> rows;
    int32_t defaultHeight = GridModel::defaultRowHeight;
};

constexpr Dpi dpi(120);

struct Random {
    int32_t below(int32_t limit) { return static_cast<int32_t>(engine() % static_cast<uint64_t>(limit)); }
    bool oneIn(int32_t chances) { return below(chances) == 0; }
    Text text() {
        static const Text known[] = {u"",         u"1",  u"-1",  u"2.50", u"10",   u"1,000",
                                     u"1e3",      u"#1", u"abc", u"ABD",  u"Abc ", u"12ab",
                                     u"\xE9tude", u" ",  u"a",   u"&H10"};
        if (oneIn(2)) return known[below(std::size(known))];
        const int32_t length = oneIn(40) ? 150 + below(150) : below(24);
        Text text(static_cast<size_t>(length), u' ');
        for (char16_t& unit : text) unit = static_cast<char16_t>(u' ' + 1 + below(400));
        return text;
    }
    CellStyle style() {
        CellStyle style;
        if (oneIn(4)) return style;
        style.backColour = OleColour(static_cast<uint32_t>(below(3)));
        if (oneIn(3)) style.bold = oneIn(2);
        if (oneIn(5)) style.fontName = std::make_shared<Text>(u"webdings");
        if (oneIn(5)) style.fontSize = 12.0f;
        if (oneIn(5)) style.underline = oneIn(2);
        if (oneIn(5)) style.pictureAlignment = static_cast<CellAlignment>(below(3));
        return style;
    }

    std::mt19937_64 engine;
};

// A grid and the simple one that it is compared with.
struct TwoGrids {
    // Changes both alike. Whether the grid has taken it.
    template <typename Change>
    bool both(const Change& change) {
        if (!change(grid)) return false;
        change(plain);
        return true;
    }
    void expectSame(CellAddress at) {
        // Setting by setting, whatever the styles themselves hold to be equal.
        const auto settings = [](const CellStyle& of) {
            return std::tuple_cat(
                std::tie(of.backColour, of.foreColour, of.fontSize, of.bold, of.italic, of.underline,
                         of.strikeThrough, of.alignment, of.picture, of.pictureAlignment),
                std::tuple(of.fontName ? *of.fontName : Text()));
        };
        ASSERT_EQ(grid.text(at), plain.cell(at).text) << at.row << ", " << at.col;
        ASSERT_TRUE(settings(*grid.style(at)) == settings(plain.cell(at).style)) << at.row << ", " << at.col;
    }
    void expectSame() {
        ASSERT_EQ(grid.rows(), static_cast<int32_t>(plain.rows.size()));
        ASSERT_EQ(grid.cols(), plain.cols());
        const RowSequence& list = grid.rowList();
        int64_t top = 0;
        for (int32_t row = 0; row < grid.rows(); ++row) {
            for (int32_t col = 0; col < grid.cols(); ++col) ASSERT_NO_FATAL_FAILURE(expectSame({row, col}));
            ASSERT_EQ(list.height(row), plain.height(row)) << row;
            ASSERT_EQ(list.top(row), top) << row;
            const int64_t next = top + plain.pixels(plain.height(row));
            for (const int64_t y : {top, next - 1}) {
                if (next > top) ASSERT_EQ(list.rowAt(y), row);
            }
            top = next;
        }
        ASSERT_EQ(list.top(grid.rows()), top);
        ASSERT_EQ(list.rowAt(top), grid.rows());
        for (int32_t col = 0; col <= grid.cols(); ++col) ASSERT_EQ(grid.columns().left(col), plain.left(col));
    }
    void step(Random& random, int32_t mostRows);

    GridModel grid{3, 5, dpi};
    PlainGrid plain{3, 5, dpi};
};

// One random step on both; what is refused is out of range for sure.
void TwoGrids::step(Random& random, int32_t mostRows) {
    const int32_t rows = grid.rows(), cols = grid.cols();
    const CellAddress cell{rows == 0 ? 0 : random.below(rows), random.below(cols)};
    switch (random.below(100)) {
        case 0:
            ASSERT_TRUE(both([count = random.below(mostRows)](auto& of) { return of.setRows(count); }));
            break;
        case 1:
            ASSERT_TRUE(both([count = 1 + random.below(14)](auto& of) { return of.setCols(count); }));
            break;
        case 2:
            if (!random.oneIn(10)) break;
            grid.clear();
            plain.clear();
            break;
        case 3: {
            if (rows == 0 || !random.oneIn(4)) break;
            const int32_t first = random.below(rows), last = first + random.below(rows - first);
            const auto direction = random.oneIn(2) ? SortDirection::ascending : SortDirection::descending;
            ASSERT_TRUE(both([&](auto& of) { return of.sort(cell.col, direction, first, last); }));
            break;
        }
        case 4: {
            const int32_t twips = random.oneIn(4) ? 0 : random.below(600);
            ASSERT_EQ(both([&](auto& of) { return of.setRowHeight(cell.row, twips); }), rows > 0);
            break;
        }
        case 5:
            ASSERT_TRUE(
                both([&, twips = random.below(3000)](auto& of) { return of.setColWidth(cell.col, twips); }));
            break;
        case 6:
            if (!random.oneIn(10)) break;
            ASSERT_TRUE(
                both([twips = 1 + random.below(500)](auto& of) { return of.setDefaultRowHeight(twips); }));
            break;
        case 7:
            if (!random.oneIn(10)) break;
            plain.dpi = Dpi(random.oneIn(2) ? 96 : 168);
            grid.setDpi(plain.dpi);
            break;
        default:
            break;
    }
    if (grid.rows() != rows || grid.cols() != cols) return;
    if (random.oneIn(3)) {
        Text item;
        for (int32_t count = random.below(16); count > 0; --count) item += random.text() + u"\t";
        const int32_t at = random.oneIn(3) ? rows : random.oneIn(3) ? 0 : random.below(rows + 1);
        ASSERT_TRUE(both([&](auto& of) { return of.addItem(item, at); }));
    } else if (rows > 0 && random.oneIn(rows > mostRows ? 2 : 4)) {
        ASSERT_TRUE(both([&](auto& of) { return of.removeItem(cell.row); }));
        return;
    } else if (rows > 0 && random.oneIn(6)) {
        // One colour for cell after cell, then one attribute after another, as hosts set them.
        const OleColour colour(static_cast<uint32_t>(random.below(3)));
        const bool bold = random.oneIn(2), sized = random.oneIn(2);
        const float size = random.oneIn(2) ? 8.25f : 12.0f;
        for (int32_t at = cell.col; at < cols; ++at) {
            ASSERT_TRUE(both([&](auto& of) {
                return of.template setAttribute<&CellStyle::foreColour>({cell.row, at}, colour);
            }));
        }
        ASSERT_TRUE(both([&](auto& of) { return of.template setAttribute<&CellStyle::bold>(cell, bold); }));
        if (sized) {
            ASSERT_TRUE(
                both([&](auto& of) { return of.template setAttribute<&CellStyle::fontSize>(cell, size); }));
        }
    } else if (rows > 0 && random.oneIn(3)) {
        ASSERT_TRUE(both([&, style = random.style()](auto& of) { return of.setStyle(cell, style); }));
    } else if (rows > 0) {
        ASSERT_TRUE(both([&, text = random.text()](auto& of) { return of.setText(cell, text); }));
    }
    if (rows > 0) expectSame(cell);
}

// Grids of few rows meet every edge often, those of thousands have many blocks of rows. A walk is the same
// whenever its seed is: OBK_GRID_TIMES=20 walks each of them twenty times as far.
class RandomOperations : public ::testing::TestWithParam<std::tuple<int, int, int>> {};

TEST_P(RandomOperations, KeepAGridLikeASimpleOne) {
    const auto [seed, mostRows, steps] = GetParam();
    Random random{std::mt19937_64(static_cast<uint64_t>(seed))};
    TwoGrids grids;
    const int32_t most = steps * test::fromEnvironment("OBK_GRID_TIMES", 1);
    for (int32_t count = 0; count < most; ++count) {
        ASSERT_NO_FATAL_FAILURE(grids.step(random, mostRows)) << "step " << count;
        if (count % (mostRows * 40) != 0 && count + 1 != most) continue;
        ASSERT_NO_FATAL_FAILURE(grids.expectSame()) << "step " << count;
    }
    // No style outlives the cells that had it.
    ASSERT_TRUE(grids.grid.setRows(0));
    EXPECT_EQ(grids.grid.styleCount(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomOperations,
                         ::testing::Values(std::tuple(1, 4, 60000), std::tuple(2, 12, 80000),
                                           std::tuple(3, 60, 60000), std::tuple(4, 1500, 15000),
                                           std::tuple(5, 4000, 10000)));

TEST(GridModel, RefusesWhatIsOutOfRangeAndChangesNothing) {
    GridModel grid(2, 3, dpi);
    ASSERT_TRUE(grid.setText({1, 2}, u"kept"));
    CellStyle style;
    style.bold = true;
    for (const CellAddress outside :
         {CellAddress{-1, 0}, {2, 0}, {0, -1}, {0, 3}, {INT32_MAX, INT32_MAX}, {INT32_MIN, 0}}) {
        EXPECT_FALSE(grid.setText(outside, u"x"));
        EXPECT_FALSE(grid.setStyle(outside, style));
        EXPECT_FALSE(grid.setAttribute<&CellStyle::bold>(outside, true));
        EXPECT_EQ(grid.text(outside), u"");
        EXPECT_FALSE(grid.style(outside));
    }
    for (const int32_t row : {-1, 2, INT32_MAX}) {
        EXPECT_FALSE(grid.addItem(u"x", row == 2 ? 3 : row));
        EXPECT_FALSE(grid.removeItem(row));
        EXPECT_FALSE(grid.setRowHeight(row, 100));
    }
    for (const int32_t twips : {-1, GridModel::greatestLength + 1}) {
        EXPECT_FALSE(grid.setRowHeight(0, twips));
        EXPECT_FALSE(grid.setColWidth(0, twips));
        EXPECT_FALSE(grid.setDefaultRowHeight(twips));
    }
    EXPECT_FALSE(grid.setDefaultRowHeight(0));
    for (const int32_t col : {-1, 3}) {
        EXPECT_FALSE(grid.setColWidth(col, 100));
        EXPECT_FALSE(grid.setColAlignment(col, CellAlignment::leftTop));
        EXPECT_FALSE(grid.sort(col, SortDirection::ascending, 0, 1));
    }
    for (const auto& [first, last] : {std::pair(-1, 1), {0, 2}, {1, 0}})
        EXPECT_FALSE(grid.sort(0, SortDirection::ascending, first, last));
    EXPECT_FALSE(grid.setRows(-1));
    for (const int32_t count : {0, -1, GridModel::mostCols + 1}) EXPECT_FALSE(grid.setCols(count));
    for (const float size : {0.0f, -1.0f, 8193.0f, std::numeric_limits<float>::quiet_NaN()}) {
        CellStyle font;
        font.fontSize = size;
        EXPECT_FALSE(grid.setStyle({0, 0}, font));
        EXPECT_FALSE(grid.setAttribute<&CellStyle::fontSize>({0, 0}, size));
    }
    style.fontName = std::make_shared<Text>();
    EXPECT_FALSE(grid.setStyle({0, 0}, style));
    EXPECT_EQ(grid.rows(), 2);
    EXPECT_EQ(grid.cols(), 3);
    EXPECT_EQ(grid.text({1, 2}), u"kept");
    EXPECT_EQ(grid.styleCount(), 0u);
}

TEST(GridModel, TakesMoreRowsThanMemoryCouldFill) {
    GridModel grid(0, 3, dpi);
    ASSERT_TRUE(grid.setRows(INT32_MAX));
    EXPECT_FALSE(grid.addItem(u"one too many", 5));
    ASSERT_TRUE(grid.setText({2000000000, 1}, u"far"));
    ASSERT_TRUE(grid.setRowHeight(1000000000, 480));
    ASSERT_TRUE(grid.removeItem(0));
    EXPECT_EQ(grid.text({1999999999, 1}), u"far");
    EXPECT_EQ(grid.rowList().top(1999999999), int64_t{1999999999} * 20 + 20);
    EXPECT_EQ(grid.rowList().rowAt(int64_t{1999999999} * 20 + 20), 1999999999);
    ASSERT_TRUE(grid.setRows(1));
}

TEST(GridModel, CopiesACellIntoAnother) {
    const Text lengths[] = {u"", u"short", Text(PackedRow::longestInline, u'i'), Text(5000, u'a')};
    for (const Text& first : lengths) {
        for (const Text& second : lengths) {
            GridModel grid(1, 4, dpi);
            ASSERT_TRUE(grid.setText({0, 1}, first));
            ASSERT_TRUE(grid.setText({0, 2}, second));
            ASSERT_TRUE(grid.setText({0, 1}, grid.text({0, 2})));
            ASSERT_TRUE(grid.setText({0, 3}, grid.text({0, 1})));
            EXPECT_EQ(grid.text({0, 1}), second);
            EXPECT_EQ(grid.text({0, 3}), second);
            // A part of a cell's own text, which goes while it is read.
            ASSERT_TRUE(grid.setText({0, 3}, grid.text({0, 3}).substr(second.size() / 2)));
            EXPECT_EQ(grid.text({0, 3}), second.substr(second.size() / 2));
            ASSERT_TRUE(grid.addItem(grid.text({0, 2}), 0));
            EXPECT_EQ(grid.text({0, 0}), second);
        }
    }
}

TEST(GridModel, KeepsALongTextOfManyCellsOnce) {
    const Text longText(1 << 20, u'x');
    const std::vector<TextView> texts(GridModel::mostCols, longText);
    GridModel grid(0, GridModel::mostCols, dpi);
    ASSERT_TRUE(grid.addTexts(texts, 0));
    EXPECT_EQ(grid.text({0, 0}).data(), grid.text({0, 10000}).data());
    ASSERT_TRUE(grid.setText({0, 0}, u"other"));
    ASSERT_TRUE(grid.setText({0, 10000}, Text(300, u'y')));
    EXPECT_EQ(grid.text({0, 9999}), longText);
    ASSERT_TRUE(grid.setCols(2));
    EXPECT_EQ(grid.text({0, 1}), longText);
}

TEST(GridModel, FillsAWideRowCellByCellAndAtOnce) {
    GridModel grid(1, GridModel::mostCols, dpi);
    Text item;
    for (int32_t col = 0; col < grid.cols(); ++col) {
        ASSERT_TRUE(grid.setText({0, col}, decimalText(col)));
        item += decimalText(col) + u"\t";
    }
    ASSERT_TRUE(grid.addItem(item + u"beyond", 1));
    for (int32_t col = 0; col < grid.cols(); ++col) {
        for (const int32_t row : {0, 1}) ASSERT_EQ(grid.text({row, col}), decimalText(col));
    }
}

// The same change again and again, and back, until nothing is left of the styles.
TEST(GridModel, TakesAttributesBackFromCellAfterCell) {
    GridModel grid(1, 4, dpi);
    const PictureRef picture = std::make_shared<SharedPicture>();
    for (int32_t col = 0; col < 4; ++col)
        ASSERT_TRUE(grid.setAttribute<&CellStyle::picture>({0, col}, picture));
    EXPECT_EQ(grid.styleCount(), 1u);
    for (int32_t col = 0; col < 4; ++col) {
        ASSERT_TRUE(grid.setAttribute<&CellStyle::picture>({0, col}, PictureRef()));
        EXPECT_EQ(grid.style({0, col})->picture, nullptr);
    }
    EXPECT_EQ(grid.styleCount(), 0u);
    ASSERT_TRUE(grid.setAttribute<&CellStyle::picture>({0, 0}, picture));
    EXPECT_EQ(grid.style({0, 0})->picture, picture);
    // The style that the latest change led to is gone with its only cell.
    ASSERT_TRUE(grid.setStyle({0, 0}, {}));
    ASSERT_TRUE(grid.setAttribute<&CellStyle::picture>({0, 0}, picture));
    EXPECT_EQ(grid.styleCount(), 1u);
}

TEST(GridModel, AlignsByCellThenColumnThenContent) {
    GridModel grid(0, 3, dpi);
    ASSERT_TRUE(grid.addItem(u"word\t1,234.50\t7", 0));
    EXPECT_EQ(grid.alignment({0, 0}), CellAlignment::leftCentre);
    EXPECT_EQ(grid.alignment({0, 1}), CellAlignment::rightCentre);
    ASSERT_TRUE(grid.setColAlignment(2, CellAlignment::centreTop));
    EXPECT_EQ(grid.alignment({0, 2}), CellAlignment::centreTop);
    ASSERT_TRUE(grid.setAttribute<&CellStyle::alignment>({0, 2}, CellAlignment::general));
    EXPECT_EQ(grid.alignment({0, 2}), CellAlignment::rightCentre);
}

// Every way in which a grid changes, with the memory ending at each of its allocations.
TEST(GridModel, StaysWholeWhenMemoryEnds) {
    TwoGrids grids;
    Random random{std::mt19937_64(7)};
    for (int count = 0; count < 6000; ++count) ASSERT_NO_FATAL_FAILURE(grids.step(random, 1100));
    // Some rows that nobody has touched, and full blocks, so that both have to be parted.
    for (const int32_t rows : {900, 2000})
        ASSERT_TRUE(grids.both([&](auto& of) { return of.setRows(rows); }));
    const Text longText(1000, u'l');
    const Text item = u"a\t" + longText + u"\tc";
    CellStyle style;
    style.fontName = std::make_shared<Text>(u"a name that needs memory of its own");
    int index = 0;
    const auto check = [&](const auto& change) {
        SCOPED_TRACE("change " + std::to_string(++index));
        test::failAtEveryAllocation([&] { change(grids.grid); }, [&] { grids.expectSame(); });
        change(grids.plain);
        grids.expectSame();
    };
    check([&](auto& of) { of.addItem(item, 400); });
    check([&](auto& of) { of.addItem(item, 1500); });
    check([&](auto& of) { of.addItem(u"end", 2002); });
    check([&](auto& of) { of.setText({10, 0}, longText); });
    check([&](auto& of) { of.setText({1800, 0}, u"x"); });
    check([&](auto& of) { of.setText({11, 1}, Text(150, u'w')); });
    check([&](auto& of) { of.setStyle({12, 0}, style); });
    check([&](auto& of) { of.setStyle({1100, 0}, style); });
    check([&](auto& of) { of.setRowHeight(1700, 0); });
    check([&](auto& of) { of.setCols(40); });
    check([&](auto& of) { of.setRows(2500); });
    check([&](auto& of) { of.sort(0, SortDirection::descending, 100, 2400); });
    check([&](auto& of) { of.removeItem(0); });
    check([&](auto& of) { of.clear(); });
}

}  // namespace
}  // namespace obk
