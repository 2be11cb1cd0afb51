#include "base/attempt.h"
#include "grid/grid_file_rows.h"
#include "grid/plain_file.h"
#include "platform/headless/headless_machine.h"
#include "platform/headless/memory_file_system.h"
#include "support/failing_memory.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace obk {
namespace {

using headless::ManualClock;
using headless::MemoryFileSystem;
using test::PlainTexts;

const TextView path = u"orders.txt";

class GridFileTest : public testing::Test {
protected:
    bool save(const GridModel& grid, TextView caption, TextView to = path) {
        WaitCursor waitCursor(clock, noteShown());
        GridFileWriter file(files, to, waitCursor);
        file.writeHeader(grid.cols(), caption);
        writeRows(grid, file);
        return file.close();
    }
    // What is there of a file goes into the grid, whose rows go first.
    Text load(GridModel& grid) {
        grid.setRows(0);
        WaitCursor waitCursor(clock, noteShown());
        GridFileReader file(files, path, waitCursor);
        const GridFileHeader header = file.header();
        if (header.cols) grid.setCols(*header.cols);
        readRows(grid, file, types);
        return header.caption;
    }
    std::function<void(bool)> noteShown() {
        return [this](bool shown) { signs.push_back(shown); };
    }

    MemoryFileSystem files;
    ManualClock clock;
    ColumnTypes types;
    std::vector<bool> signs;
};

std::unique_ptr<GridModel> gridOf(const PlainTexts& cells, int32_t cols) {
    auto grid = std::make_unique<GridModel>(0, cols, Dpi(96));
    for (const auto& row : cells) grid->addTexts(std::vector<TextView>(row.begin(), row.end()), grid->rows());
    return grid;
}

PlainTexts textsOf(const GridModel& grid) {
    PlainTexts rows(static_cast<size_t>(grid.rows()));
    for (CellAddress cell; cell.row < grid.rows(); ++cell.row) {
        for (cell.col = 0; cell.col < grid.cols(); ++cell.col)
            rows[static_cast<size_t>(cell.row)].emplace_back(grid.text(cell));
    }
    return rows;
}

class Random {
public:
    explicit Random(uint32_t seed) : engine_(seed) {}

    size_t below(size_t limit) { return engine_() % limit; }
    Text text() {
        static const Text parts[] = {u"a",    u"Müller",      u" ",      u",",    u"\r\n", u"\n",
                                     u"\r",   u"\"",          u"12|",    u"€",    u"\x80", u"\x81",
                                     u"漢",   u"\t",          u"Ž…",     u"x, y", u"  ",   u"Šś",
                                     u"\x1A", Text(1, u'\0'), u"\xD83D", u"😀"};
        Text text;
        for (size_t left = below(3) == 0 ? 0 : below(5); left > 0; --left)
            text += parts[below(std::size(parts))];
        if (below(3000) == 0) text += Text(300 + below(200'000), u'z');
        return text;
    }

private:
    std::mt19937 engine_;
};

TEST_F(GridFileTest, EveryGridBecomesTheSameBytesAndTheSameCells) {
    Random random(41);
    for (int run = 0; run < 10'000; ++run) {
        SCOPED_TRACE(run);
        const size_t cols = random.below(50) == 0 ? 90 + random.below(30) : 1 + random.below(13);
        PlainTexts cells(random.below(5), std::vector<Text>(cols));
        for (auto& row : cells) {
            for (Text& text : row) text = random.text();
        }
        const Text caption = random.text();
        const std::string expected = test::plainBytes(cells, static_cast<int32_t>(cols), caption);
        ASSERT_TRUE(save(*gridOf(cells, static_cast<int32_t>(cols)), caption));
        ASSERT_EQ(files.bytes(path), expected);

        files.setLongestRead(run % 3 == 0 ? 1 + random.below(9) : 1'000'000);
        GridModel grid(2, static_cast<int32_t>(cols), Dpi(96));
        const Text loaded = load(grid);
        const std::vector<Text> fields = test::plainFields(expected);
        ASSERT_EQ(loaded, fields[0].substr(std::min<size_t>(3, fields[0].size())));
        ASSERT_EQ(textsOf(grid), test::plainRows(fields, cols));
    }
}

// The cut of three characters fits two digits only.
TEST_F(GridFileTest, TheCaptionLosesThreeCharactersHoweverLongTheNumberIs) {
    const struct {
        const char* line;
        int32_t cols;
        const char16_t* caption;
    } rows[] = {{"\"12|Orders\"", 12, u"Orders"},
                {"\"5|Orders\"", 5, u"rders"},
                {"\"120|Orders\"", 120, u"|Orders"},
                {"\"10001|x\"", 10001, u"01|x"},
                {"\"Orders\"", 3, u"ers"},
                {"12|Orders \r\n", 12, u"Orders"},
                {"\"1,000|x\"", 1000, u"00|x"},
                {"\"twelve|x\"", 3, u"lve|x"},
                // Refused by the grid, which keeps what it has.
                {"\"0|x\"", 3, u""},
                {"\"10002|x\"", 3, u"02|x"},
                {"\"4000000000|x\"", 3, u"0000000|x"},
                {"\"12|never ends", 12, u"never ends"},
                {"\r\n\"2|x\"", 3, u""},
                {"", 3, u""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        files.put(path, row.line);
        GridModel grid(1, 3, Dpi(96));
        EXPECT_EQ(load(grid), row.caption);
        EXPECT_EQ(grid.cols(), row.cols);
    }
}

TEST_F(GridFileTest, FilesMadeByHandGiveWhatTheRuleOfFieldsSays) {
    static const std::string parts[] = {"a", "\"",   "\"",   ",",  ",",
                                        " ", "\r\n", "\r\n", "\n", "\r",
                                        "b", "\t",   "\x80", "|",  std::string(1, '\0')};
    Random random(7);
    for (int run = 0; run < 5'000; ++run) {
        std::string bytes = "\"2|x\"\r\n";
        for (size_t left = random.below(14); left > 0; --left) bytes += parts[random.below(std::size(parts))];
        SCOPED_TRACE(bytes);
        files.put(path, bytes);
        files.setLongestRead(run % 2 == 0 ? 1 : 1000);
        GridModel grid(1, 3, Dpi(96));
        load(grid);
        ASSERT_EQ(textsOf(grid), test::plainRows(test::plainFields(bytes), 2));
    }
}

TEST_F(GridFileTest, CheckColumnsShowMarksThatDoNotGrow) {
    types.set(1, 3);
    files.put(path, "\"3|x\"\r\na,a,  a\r\n,\r\n\"  b \"\r\n\"c\"\r\nd");
    GridModel grid(1, 1, Dpi(96));
    const PlainTexts once{{u"a", u"  a", u"a"}, {u"", u"  ", u"  b "}, {u"c", u"  d", u"d"}};
    for (int time = 0; time < 2; ++time) {
        load(grid);
        EXPECT_EQ(textsOf(grid), once);
        ASSERT_TRUE(save(grid, u"x"));
    }
    EXPECT_EQ(*grid.style({1, 1})->fontName, u"webdings");
    EXPECT_EQ(grid.style({1, 1})->fontSize, 12.0f);
    EXPECT_EQ(grid.style({1, 2})->fontName, nullptr);
    for (const CellAddress cell : {CellAddress{0, 0}, CellAddress{1, 1}, CellAddress{2, 2}})
        EXPECT_EQ(grid.style(cell)->alignment, CellAlignment::leftCentre);
}

TEST_F(GridFileTest, AFileThatIsCutTakesNoMoreMemoryForMoreColumns) {
    for (int32_t col = 1; col < 10001; col += 2) types.set(col, 3);
    const std::string last(1'000'000, 'x');
    files.put(path, "\"10001|x\"\r\nfirst,second,\"" + last);
    GridModel grid(1, 1, Dpi(96));
    load(grid);
    ASSERT_EQ(grid.rows(), 1);
    EXPECT_EQ(grid.text({0, 2}).size(), last.size());
    EXPECT_EQ(grid.text({0, 9999}), u"  " + Text(last.begin(), last.end()));
    EXPECT_EQ(grid.text({0, 10000}).data(), grid.text({0, 2}).data());
    EXPECT_EQ(grid.text({0, 9999}).data(), grid.text({0, 3}).data());
}

class InterruptedSaveTest : public GridFileTest {
    std::unique_ptr<GridModel> made_;

protected:
    InterruptedSaveTest()
        : made_(gridOf(PlainTexts(300, std::vector<Text>(10, Text(60, u'ö'))), 10)),
          grid(*made_),
          whole(test::plainBytes(textsOf(grid), 10, u"new")) {
        files.put(path, old);
    }

    const std::string old = "\"1|old\"\r\n\"kept\"\r\n";
    const GridModel& grid;
    const std::string whole;
};

TEST_F(InterruptedSaveTest, AFullDiskLeavesTheOldFile) {
    for (size_t room = 0; room < whole.size(); room += whole.size() / 23) {
        files.setRoom(room);
        EXPECT_FALSE(save(grid, u"new"));
        ASSERT_EQ(files.bytes(path), old);
        ASSERT_EQ(files.count(), 1u);
    }
    files.setRoom(whole.size());
    EXPECT_TRUE(save(grid, u"new"));
    EXPECT_EQ(files.bytes(path), whole);
    EXPECT_EQ(files.count(), 1u);
}

TEST_F(InterruptedSaveTest, AKilledSaveLeavesTheOldFileOrTheNewOne) {
    uint64_t kills = 0;
    for (bool saved = false; !saved; ++kills) {
        files.stopBefore(kills);
        saved = save(grid, u"new");
        files.restart();
        ASSERT_EQ(files.bytes(path), saved ? whole : old);
    }
    EXPECT_GT(kills, 4u);
}

TEST_F(InterruptedSaveTest, WhereNothingCanBeMadeBesideItTheFileIsWrittenInPlace) {
    files.refuseOthersBeside();
    EXPECT_TRUE(save(grid, u"new"));
    EXPECT_EQ(files.bytes(path), whole);
    files.setRoom(whole.size() / 2);
    EXPECT_FALSE(save(grid, u"new"));
    EXPECT_EQ(files.bytes(path), whole.substr(0, whole.size() / 2));
}

TEST_F(InterruptedSaveTest, ADeviceGetsEveryByteAndNoFileBesideIt) {
    files.addDevice(u"PRN");
    EXPECT_TRUE(save(grid, u"new", u"PRN"));
    EXPECT_EQ(files.bytes(u"PRN"), whole);
    EXPECT_EQ(files.count(), 2u);
}

TEST_F(InterruptedSaveTest, WhereMemoryEndsTheFileIsTheOldOneOrTheNewOne) {
    const PlainTexts before = textsOf(grid);
    bool saved = false;
    const int failures = test::failAtEveryAllocation([&] { saved = save(grid, u"new"); },
                                                     [&] {
                                                         ASSERT_EQ(files.bytes(path), old);
                                                         ASSERT_EQ(files.count(), 1u);
                                                     });
    EXPECT_GT(failures, 3);
    EXPECT_TRUE(saved);
    EXPECT_EQ(files.bytes(path), whole);
    EXPECT_EQ(textsOf(grid), before);
}

TEST_F(GridFileTest, WhereMemoryEndsALoadKeepsTheRowsThatItHasRead) {
    types.set(2, 3);
    PlainTexts cells(40, std::vector<Text>{u"one", Text(250, u'x'), u"  a", u""});
    ASSERT_TRUE(save(*gridOf(cells, 4), u"x"));
    GridModel grid(1, 1, Dpi(96));
    const int failures =
        test::failAtEveryAllocation([&] { load(grid); },
                                    [&] {
                                        const PlainTexts read = textsOf(grid);
                                        ASSERT_LE(read.size(), cells.size());
                                        if (!read.empty() && grid.cols() == 4) {
                                            ASSERT_TRUE(std::equal(read.begin(), read.end(), cells.begin()));
                                        }
                                        ASSERT_TRUE(grid.addItem(u"still\tgood", grid.rows()));
                                        ASSERT_EQ(grid.text({grid.rows() - 1, 0}), u"still");
                                    });
    EXPECT_GT(failures, 100);
    EXPECT_EQ(textsOf(grid), cells);
}

TEST_F(GridFileTest, LongWorkShowsThatItIsBusyAndShortWorkDoesNot) {
    // The clock moves on by a millisecond each time that it is asked.
    files.put(path, "\"1|x\"" + std::string(900, '\n'));
    files.setLongestRead(1);
    GridModel grid(1, 1, Dpi(96));
    load(grid);
    EXPECT_TRUE(signs.empty());
    clock.setTickCount(INT32_MAX - 500);
    files.put(path, "\"1|x\"" + std::string(1100, '\n'));
    load(grid);
    EXPECT_EQ(signs, (std::vector{true, false}));

    signs.clear();
    const auto large = gridOf(PlainTexts(1100, {Text(65536, u'x')}), 1);
    save(*large, u"x");
    EXPECT_EQ(signs, (std::vector{true, false}));
}

}  // namespace
}  // namespace obk
