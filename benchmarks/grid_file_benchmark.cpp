// The grid's text file against the least that its work could cost: a buffered write of the same bytes, and
// splitting and widening them into one piece of memory.
#include "grid/grid_file_rows.h"
#include "measured_grid.h"

#include <cstring>
#include <string>

namespace obk {
namespace {

constexpr int32_t rows = 100000;
constexpr size_t bufferSize = 65536;

// One file, whose memory is there beforehand.
class File : public FileSystem {
public:
    explicit File(std::string bytes = {}) : bytes_(std::move(bytes)) { bytes_.reserve(64'000'000); }

    std::unique_ptr<InputFile> openForReading(TextView) override { return std::make_unique<Reading>(*this); }
    std::unique_ptr<OutputFile> openForWriting(TextView) override {
        bytes_.clear();
        return std::make_unique<Writing>(*this);
    }
    const CodePage& codePage() override { return CodePage::windows1252(); }

    const std::string& bytes() const { return bytes_; }
    void append(std::string_view bytes) { bytes_.append(bytes); }

private:
    class Reading : public InputFile {
    public:
        explicit Reading(const File& file) : file_(file) {}
        size_t read(std::span<char> into) override {
            const size_t count = file_.bytes_.copy(into.data(), into.size(), at_);
            at_ += count;
            return count;
        }

    private:
        const File& file_;
        size_t at_ = 0;
    };
    class Writing : public OutputFile {
    public:
        explicit Writing(File& file) : file_(file) {}
        bool write(std::string_view bytes) override {
            file_.append(bytes);
            return true;
        }
        bool commit() override { return true; }

    private:
        File& file_;
    };

    std::string bytes_;
};

class StillClock : public Clock {
public:
    int32_t tickCount() override { return 0; }
    std::chrono::year_month_day today() override { return {}; }
    DateForms dateForms() override { return {}; }
};

void save(const GridModel& grid, File& file) {
    StillClock clock;
    WaitCursor waitCursor(clock, [](bool) {});
    GridFileWriter writer(file, u"", waitCursor);
    writer.writeHeader(grid.cols(), u"Orders");
    writeRows(grid, writer);
    writer.close();
}

void saveRows(benchmark::State& state) {
    const GridPointer grid = filledGrid(dataOf(rows));
    const auto emptyFile = [] { return File(); };
    const double ours = measure(emptyFile, [&](File& file) { save(*grid, file); });

    File saved;
    save(*grid, saved);
    std::vector<std::string_view> lines;
    for (std::string_view rest = saved.bytes(); !rest.empty(); rest.remove_prefix(lines.back().size()))
        lines.push_back(rest.substr(0, rest.find('\n') + 1));
    const double plain = measure(emptyFile, [&](File& file) {
        std::vector<char> buffer(bufferSize);
        size_t used = 0;
        for (const std::string_view line : lines) {
            if (used + line.size() > bufferSize) {
                file.append({buffer.data(), used});
                used = 0;
            }
            std::memcpy(buffer.data() + used, line.data(), line.size());
            used += line.size();
        }
        file.append({buffer.data(), used});
    });
    report(state, ours, plain, 2);
}
BENCHMARK(saveRows)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

void loadRows(benchmark::State& state) {
    File file;
    save(*filledGrid(dataOf(rows)), file);
    const ColumnTypes types;
    StillClock clock;
    const double ours = measure(emptyGrid, [&](GridPointer& grid) {
        WaitCursor waitCursor(clock, [](bool) {});
        GridFileReader reader(file, u"", waitCursor);
        grid->setCols(*reader.header().cols);
        readRows(*grid, reader, types);
    });

    struct Arena {
        std::vector<char16_t> units;
        std::vector<uint32_t> ends;
    };
    const double plain = measure([] { return Arena(); },
                                 [&](Arena& arena) {
                                     const Data& data = dataOf(rows);
                                     arena.units.reserve(data.units);
                                     arena.ends.reserve(data.cells.size());
                                     std::string_view rest = file.bytes();
                                     while (!rest.empty()) {
                                         const size_t end = rest.find('"', 1);
                                         const auto* text =
                                             reinterpret_cast<const unsigned char*>(rest.data());
                                         arena.units.insert(arena.units.end(), text + 1, text + end);
                                         arena.ends.push_back(static_cast<uint32_t>(arena.units.size()));
                                         rest.remove_prefix(std::min(end + 3, rest.size()));
                                     }
                                 });
    report(state, ours, plain, 3);
}
BENCHMARK(loadRows)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace obk
