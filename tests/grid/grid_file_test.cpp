#include "grid/plain_file.h"
#include "support/failing_memory.h"

#include <gtest/gtest.h>

#include <random>

namespace obk {
namespace {

using test::gridOf;
using test::PlainTexts;
using test::textsOf;

class GridFileTest : public testing::Test, public test::GridFiles {
protected:
    // A grid has what the simplest reader finds in the same bytes.
    void expectLoaded(const std::string& bytes, size_t cols) {
        GridModel grid(2, 3, Dpi(96));
        const Text caption = load(grid);
        const std::vector<Text> fields = test::plainFields(bytes);
        ASSERT_EQ(caption, fields[0].substr(std::min<size_t>(3, fields[0].size())));
        ASSERT_EQ(textsOf(grid), test::plainRows(fields, cols));
    }
};

struct Random : std::mt19937 {
    using std::mt19937::mt19937;
    size_t below(size_t limit) { return (*this)() % limit; }
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
        ASSERT_NO_FATAL_FAILURE(expectLoaded(expected, cols));
    }
}

// The cut of three characters fits two digits only.
TEST_F(GridFileTest, TheCaptionLosesThreeCharactersHoweverLongTheNumberIs) {
    const std::tuple<const char*, int32_t, const char16_t*> lines[] = {
        {"\"12|Orders\"", 12, u"Orders"},
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
    for (const auto& [line, cols, caption] : lines) {
        files.put(path, line);
        GridModel grid(1, 3, Dpi(96));
        EXPECT_EQ(load(grid), caption) << line;
        EXPECT_EQ(grid.cols(), cols) << line;
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
        ASSERT_NO_FATAL_FAILURE(expectLoaded(bytes, 2));
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
protected:
    InterruptedSaveTest() { files.put(path, old); }
    bool saveNew(TextView to = path) { return save(*grid, u"new", to); }
    void expectOld() {
        ASSERT_EQ(files.bytes(path), old);
        ASSERT_EQ(files.count(), 1u);
    }

    const std::string old = "\"1|old\"\r\n\"kept\"\r\n";
    const PlainTexts texts{300, std::vector<Text>(10, Text(60, u'ö'))};
    const std::unique_ptr<GridModel> grid = gridOf(texts, 10);
    const std::string whole = test::plainBytes(texts, 10, u"new");
};

TEST_F(InterruptedSaveTest, AFullDiskLeavesTheOldFile) {
    for (size_t room = 0; room < whole.size(); room += whole.size() / 23) {
        files.setRoom(room);
        EXPECT_FALSE(saveNew());
        ASSERT_NO_FATAL_FAILURE(expectOld());
    }
    files.setRoom(whole.size());
    EXPECT_TRUE(saveNew());
    EXPECT_EQ(files.bytes(path), whole);
    EXPECT_EQ(files.count(), 1u);
}

TEST_F(InterruptedSaveTest, AKilledSaveLeavesTheOldFileOrTheNewOne) {
    uint64_t kills = 0;
    for (bool saved = false; !saved; ++kills) {
        files.stopBefore(kills);
        saved = saveNew();
        files.restart();
        ASSERT_EQ(files.bytes(path), saved ? whole : old);
    }
    EXPECT_GT(kills, 4u);
}

TEST_F(InterruptedSaveTest, WhereNothingCanBeMadeBesideItAndToADeviceItIsWrittenInPlace) {
    files.addDevice(u"PRN");
    EXPECT_TRUE(saveNew(u"PRN"));
    EXPECT_EQ(files.bytes(u"PRN"), whole);
    EXPECT_EQ(files.count(), 2u);
    files.refuseOthersBeside();
    EXPECT_TRUE(saveNew());
    EXPECT_EQ(files.bytes(path), whole);
    files.setRoom(whole.size() / 2);
    EXPECT_FALSE(saveNew());
    EXPECT_EQ(files.bytes(path), whole.substr(0, whole.size() / 2));
}

TEST_F(InterruptedSaveTest, WhereMemoryEndsTheFileIsTheOldOneOrTheNewOne) {
    bool saved = false;
    EXPECT_GT(test::failAtEveryAllocation([&] { saved = saveNew(); }, [&] { expectOld(); }), 3);
    EXPECT_TRUE(saved);
    EXPECT_EQ(files.bytes(path), whole);
    EXPECT_EQ(textsOf(*grid), texts);
}

TEST_F(GridFileTest, WhereMemoryEndsALoadKeepsTheRowsThatItHasRead) {
    types.set(2, 3);
    const PlainTexts cells(40, std::vector<Text>{u"one", Text(250, u'x'), u"  a", u""});
    ASSERT_TRUE(save(*gridOf(cells, 4), u"x"));
    GridModel grid(1, 1, Dpi(96));
    const auto expectWhole = [&] {
        const PlainTexts read = textsOf(grid);
        ASSERT_LE(read.size(), cells.size());
        if (grid.cols() == 4) ASSERT_TRUE(std::equal(read.begin(), read.end(), cells.begin()));
        ASSERT_TRUE(grid.addItem(u"still\tgood", grid.rows()));
        ASSERT_EQ(grid.text({grid.rows() - 1, 0}), u"still");
    };
    EXPECT_GT(test::failAtEveryAllocation([&] { load(grid); }, expectWhole), 100);
    EXPECT_EQ(textsOf(grid), cells);
}

// The clock moves on by a millisecond each time that it is asked.
TEST_F(GridFileTest, LongWorkShowsThatItIsBusyAndShortWorkDoesNot) {
    files.setLongestRead(1);
    GridModel grid(1, 1, Dpi(96));
    for (const auto& [lines, shown] : {std::pair(900, std::vector<bool>()), {1100, {true, false}}}) {
        files.put(path, "\"1|x\"" + std::string(lines, '\n'));
        clock.setTickCount(INT32_MAX - 500);
        load(grid);
        EXPECT_EQ(signs, shown) << lines;
    }
}

}  // namespace
}  // namespace obk
