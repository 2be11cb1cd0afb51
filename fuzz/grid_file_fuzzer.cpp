// Text files of grids, out of raw bytes, of what files are made of, and of grids: they load as the simplest
// reader has it, however they come in pieces, into no more than they warrant; and what was loaded is saved
// and loads again.
#include "fuzz_values.h"
#include "grid/plain_file.h"

#include <algorithm>
#include <ctime>
#include <limits>
#include <utility>
#include <vector>

namespace obk::fuzz {
namespace {

using test::PlainTexts;

constexpr int32_t colsBefore = 3;  // of a grid that loads

struct Loaded {
    int32_t cols = 0;
    Text caption;
    PlainTexts texts;

    friend bool operator==(const Loaded&, const Loaded&) = default;
};

class GridFile : test::GridFiles {
public:
    explicit GridFile(FuzzedDataProvider& input) : input_(input) {}

    void run() {
        const unsigned checks = input_.ConsumeIntegral<uint8_t>();
        for (int32_t col = 0; col < 8; ++col) types.set(col, (checks >> col & 1) != 0 ? 3 : 0);
        const auto longestRead = input_.ConsumeIntegralInRange<size_t>(1, 16);
        switch (input_.ConsumeIntegralInRange(0, 3)) {
            case 0:
                files.put(path, input_.ConsumeRemainingBytesAsString());
                break;
            case 1:
                save(someGrid());
                break;
            default:
                files.put(path, someFields());
        }
        const std::clock_t start = std::clock();
        Loaded loaded = load(longestRead);
        // A quotation mark that no file can hold is gone after the first time, and what the caption loses is
        // its own affair.
        for (int time = 0; time < 2; ++time) {
            save(loaded);
            Loaded again = load(std::numeric_limits<size_t>::max());
            require(time == 0 || again.texts == loaded.texts, "what was saved has the same texts");
            loaded = std::move(again);
        }
        require(std::clock() - start < 5 * CLOCKS_PER_SEC, "no small file takes long");
    }

private:
    Loaded someGrid() {
        Loaded grid{input_.ConsumeBool() ? input_.ConsumeIntegralInRange(1, 14)
                                         : input_.ConsumeIntegralInRange(90, 110),
                    textFrom(input_),
                    {}};
        while (input_.ConsumeBool() && grid.texts.size() < 20) {
            grid.texts.emplace_back(static_cast<size_t>(grid.cols));
            // Most cells are empty, as in grids.
            for (int left = input_.ConsumeIntegralInRange(0, 14); left > 0; --left)
                grid.texts.back()[input_.ConsumeIntegralInRange<size_t>(0, grid.texts.back().size() - 1)] =
                    textFrom(input_);
        }
        return grid;
    }

    std::string someFields() {
        static constexpr const char* numbers[] = {"2",          "12",  "1", "120",    "0",   "1,000", "-1",
                                                  "4000000000", "400", "",  "Orders", "1e2", " 7 ",   "\"12"};
        static constexpr const char* ends[] = {",", "\r\n", "\n", "\r", "", "x,", " \r\n"};
        static constexpr size_t pieceSize = 65536;  // that is read and written at once
        std::string bytes = input_.PickValueInArray(numbers);
        bytes += input_.ConsumeBool() ? "|x" : "";
        if (input_.ConsumeBool()) bytes = '"' + bytes + '"';
        bytes += input_.PickValueInArray(ends);
        // None where the last row is filled up with it hundreds of times.
        int mostLong = bytes.find("0|") == std::string::npos ? 2 : 0;
        while (input_.remaining_bytes() > 0) {
            bytes += std::string(input_.ConsumeIntegralInRange<size_t>(0, 2), ' ');
            std::string field = input_.ConsumeRandomLengthString(12);
            if (mostLong > 0 && input_.ConsumeIntegralInRange(0, 15) == 7) {
                --mostLong;
                field += std::string(input_.ConsumeIntegralInRange(pieceSize - 16, pieceSize + 16), 'z');
            }
            bytes += input_.ConsumeBool() ? '"' + field + '"' : field;
            bytes += input_.PickValueInArray(ends);
        }
        return bytes;
    }

    void save(const Loaded& grid) {
        require(GridFiles::save(*test::gridOf(grid.texts, grid.cols), grid.caption), "a grid can be saved");
        require(files.bytes(path) == test::plainBytes(grid.texts, grid.cols, grid.caption),
                "a file has a line for each cell");
    }

    Loaded load(size_t longestRead) {
        GridModel grid(0, colsBefore, Dpi(96));
        files.setLongestRead(longestRead);
        const Text caption = GridFiles::load(grid);
        Loaded loaded{grid.cols(), caption, test::textsOf(grid)};
        require(loaded == plainlyLoaded(grid.cols()), "a file loads as the simplest reader has it");
        return loaded;
    }

    Loaded plainlyLoaded(int32_t cols) {
        constexpr size_t cut = 3;
        const std::vector<Text> fields = test::plainFields(files.bytes(path).value());
        Loaded loaded{cols, {}, test::plainRows(fields, static_cast<size_t>(cols))};
        if (!fields.empty()) loaded.caption = fields[0].substr(std::min(cut, fields[0].size()));
        for (auto& row : loaded.texts) {
            for (int32_t col = 0; col < cols; ++col) {
                Text& text = row[static_cast<size_t>(col)];
                if (types.type(col) == ColumnType::checkBox) text = Text(2, u' ').append(trimmed(text));
            }
        }
        return loaded;
    }

    FuzzedDataProvider& input_;
};

}  // namespace
}  // namespace obk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    obk::fuzz::GridFile(input).run();
    return 0;
}
