// Text files of grids out of raw bytes: they load the same however they come in pieces, into no more than
// they warrant, and what was loaded is saved and loads again.
#include "fuzz_values.h"
#include "grid/grid_file_rows.h"
#include "platform/headless/headless_machine.h"
#include "platform/headless/memory_file_system.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace obk::fuzz {
namespace {

const TextView path = u"fuzzed";

// A file in a grid.
class Loaded {
public:
    Loaded(headless::MemoryFileSystem& files, const ColumnTypes& types) : grid(0, 3, Dpi(96)) {
        headless::ManualClock clock;
        WaitCursor waitCursor(clock, [](bool) {});
        GridFileReader file(files, path, waitCursor);
        const GridFileHeader header = file.header();
        if (header.cols) grid.setCols(*header.cols);
        readRows(grid, file, types);
        caption = header.caption;
    }
    template <typename Use>
    void eachText(Use&& use) const {
        for (CellAddress cell; cell.row < grid.rows(); ++cell.row) {
            for (cell.col = 0; cell.col < grid.cols(); ++cell.col) use(cell, grid.text(cell));
        }
    }
    bool operator==(const Loaded& other) const {
        bool same =
            caption == other.caption && grid.rows() == other.grid.rows() && grid.cols() == other.grid.cols();
        if (same)
            eachText([&](CellAddress cell, TextView text) { same = same && other.grid.text(cell) == text; });
        return same;
    }

    GridModel grid;
    Text caption;
};

void save(headless::MemoryFileSystem& files, const Loaded& loaded) {
    headless::ManualClock clock;
    WaitCursor waitCursor(clock, [](bool) {});
    GridFileWriter file(files, path, waitCursor);
    file.writeHeader(loaded.grid.cols(), loaded.caption);
    writeRows(loaded.grid, file);
    require(file.close(), "a grid can be saved");
}

void run(const uint8_t* data, size_t size) {
    if (size < 2) return;
    ColumnTypes types;
    for (int32_t col = 0; col < 8; ++col) types.set(col, (data[0] >> col & 1) != 0 ? 3 : 0);
    const size_t longestRead = 1 + data[1] % 16;
    const std::string bytes(reinterpret_cast<const char*>(data) + 2, size - 2);

    headless::MemoryFileSystem files;
    files.put(path, bytes);
    const Loaded whole(files, types);
    files.setLongestRead(longestRead);
    require(Loaded(files, types) == whole, "pieces make the same grid as the whole");

    require(static_cast<size_t>(whole.grid.rows()) <= bytes.size(), "every row takes a byte at least");
    bool quoted = false;
    whole.eachText([&](CellAddress, TextView text) {
        quoted = quoted || text.find(u'"') != TextView::npos;
        require(text.size() <= bytes.size() + 2, "no text is longer than the file and its padding");
    });
    save(files, whole);
    const Loaded again(files, types);
    if (quoted || whole.caption.find(u'"') != Text::npos) return;
    require(again.grid.rows() == whole.grid.rows() && again.grid.cols() == whole.grid.cols(),
            "what was saved has as many cells");
    whole.eachText([&](CellAddress cell, TextView text) {
        require(again.grid.text(cell) == text, "what was saved has the same texts");
    });
}

}  // namespace
}  // namespace obk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    obk::fuzz::run(data, size);
    return 0;
}
