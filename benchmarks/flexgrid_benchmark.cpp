// The flexible grid's model against the least that its work could cost: plain loops over the same data, in
// the same run. "ratio" is ours against the plain loop, each the median of five runs after a warm-up.
#include "measured_grid.h"

#include <malloc.h>

namespace obk {
namespace {

// The texts one after the other, with where each ends.
struct Arena {
    std::vector<char16_t> units;
    std::vector<uint32_t> ends;
};

void fillRows(benchmark::State& state) {
    const Data& data = dataOf(static_cast<int32_t>(state.range(0)));
    const double ours = measure(emptyGrid, [&](GridPointer& grid) { addAll(*grid, data); });
    const double plain =
        measure([] { return Arena(); },
                [&](Arena& arena) {
                    arena.units.reserve(data.units);
                    arena.ends.reserve(data.cells.size());
                    for (const Text& item : data.items) {
                        for (size_t from = 0; from <= item.size();) {
                            const size_t end = std::min(item.find(u'\t', from), item.size());
                            arena.units.insert(arena.units.end(), item.begin() + static_cast<ptrdiff_t>(from),
                                               item.begin() + static_cast<ptrdiff_t>(end));
                            arena.ends.push_back(static_cast<uint32_t>(arena.units.size()));
                            from = end + 1;
                        }
                    }
                });
    report(state, ours, plain);
}
BENCHMARK(fillRows)->Arg(100000)->Arg(1000000)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

// Against the texts' UTF-16 bytes and eight for each cell, in what the allocator has handed out.
void memoryOfCells(benchmark::State& state) {
    const Data& data = dataOf(100000);
    const size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
    const GridPointer grid = filledGrid(data);
    const size_t after = mallinfo2().uordblks + mallinfo2().hblkhd;
    for (auto _ : state) benchmark::DoNotOptimize(*grid);
    state.counters["ratio"] =
        static_cast<double>(after - before) / static_cast<double>(data.units * 2 + data.cells.size() * 8);
    state.counters["wanted"] = 1.25;
}
BENCHMARK(memoryOfCells)->Iterations(1);

std::vector<uint32_t> randomCells(const Data& data) {
    std::mt19937 random(7);
    std::vector<uint32_t> cells(1000000);
    for (uint32_t& cell : cells) cell = static_cast<uint32_t>(random() % data.cells.size());
    return cells;
}

CellAddress addressOf(uint32_t cell) {
    return {static_cast<int32_t>(cell / cols), static_cast<int32_t>(cell % cols)};
}

void readRandomCells(benchmark::State& state) {
    const Data& data = dataOf(100000);
    const GridPointer grid = filledGrid(data);
    const std::vector<Text> flat(data.cells.begin(), data.cells.end());
    const std::vector<uint32_t> cells = randomCells(data);
    const auto nothing = [] { return 0; };
    // A text of its own each time, as hosts are given them.
    const double ours = measure(nothing, [&](int) {
        for (const uint32_t cell : cells) {
            const Text text(grid->text(addressOf(cell)));
            benchmark::DoNotOptimize(text.data());
        }
    });
    const double plain = measure(nothing, [&](int) {
        for (const uint32_t cell : cells) {
            Text text(flat[cell]);
            benchmark::DoNotOptimize(text);
        }
    });
    report(state, ours, plain, 3);
}
BENCHMARK(readRandomCells)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

void writeRandomCells(benchmark::State& state) {
    const Data& data = dataOf(100000);
    const GridPointer grid = filledGrid(data);
    std::vector<Text> flat(data.cells.begin(), data.cells.end());
    const std::vector<uint32_t> cells = randomCells(data);
    const auto nothing = [] { return 0; };
    const double ours = measure(nothing, [&](int) {
        uint32_t from = 0;
        for (const uint32_t cell : cells) grid->setText(addressOf(cell), data.cells[from++]);
    });
    const double plain = measure(nothing, [&](int) {
        uint32_t from = 0;
        for (const uint32_t cell : cells) flat[cell] = data.cells[from++];
    });
    report(state, ours, plain, 3);
}
BENCHMARK(writeRandomCells)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

template <typename Key>
double sortPlainly(const std::vector<std::pair<Key, uint32_t>>& keys) {
    return measure([&] { return keys; },
                   [](auto& sorted) {
                       std::stable_sort(
                           sorted.begin(), sorted.end(),
                           [](const auto& left, const auto& right) { return left.first < right.first; });
                   });
}

void sortRows(benchmark::State& state, int32_t col) {
    const Data& data = dataOf(static_cast<int32_t>(state.range(0)));
    const double ours =
        measure([&] { return filledGrid(data); },
                [col](GridPointer& grid) { grid->sort(col, SortDirection::ascending, 0, grid->rows() - 1); });
    std::vector<std::pair<double, uint32_t>> numbers;
    std::vector<std::pair<Text, uint32_t>> names;
    for (uint32_t row = 0; row < data.items.size(); ++row) {
        const TextView text = data.cells[row * size_t{cols} + static_cast<size_t>(col)];
        if (col == 5)
            numbers.emplace_back(std::stod(toUtf8(text)), row);
        else
            names.emplace_back(Text(text), row);
    }
    report(state, ours, col == 5 ? sortPlainly(numbers) : sortPlainly(names), 2.5);
}
BENCHMARK_CAPTURE(sortRows, byNumber, 5)
    ->Arg(100000)
    ->Arg(1000000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sortRows, byName, 1)
    ->Arg(100000)
    ->Arg(1000000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void insertAndRemoveAtTheTop(benchmark::State& state) {
    constexpr int32_t count = 10000;
    const Data& data = dataOf(100000);
    const double ours = measure([&] { return filledGrid(data); },
                                [&](GridPointer& grid) {
                                    for (size_t row = 0; row < count; ++row)
                                        grid->addItem(data.items[row], 0);
                                    for (int32_t row = 0; row < count; ++row) grid->removeItem(0);
                                });
    const double plain = measure([] { return std::vector<uint64_t>(100000); },
                                 [](std::vector<uint64_t>& handles) {
                                     for (uint64_t row = 0; row < count; ++row)
                                         handles.insert(handles.begin(), row);
                                     for (int32_t row = 0; row < count; ++row) handles.erase(handles.begin());
                                 });
    report(state, ours, plain);
}
BENCHMARK(insertAndRemoveAtTheTop)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

void colourEveryCell(benchmark::State& state) {
    const Data& data = dataOf(100000);
    const double ours = measure([&] { return filledGrid(data); },
                                [](GridPointer& grid) {
                                    for (CellAddress cell; cell.row < grid->rows(); ++cell.row) {
                                        const OleColour colour(cell.row % 2 == 0 ? 0xFFFFu : 0x80000005u);
                                        for (cell.col = 0; cell.col < cols; ++cell.col)
                                            grid->setAttribute<&CellStyle::backColour>(cell, colour);
                                    }
                                });
    const size_t count = data.cells.size();
    std::unordered_map<uint32_t, uint32_t> styles{{0xFFFFu, 1}, {0x80000005u, 2}};
    const double plain =
        measure([&] { return std::vector<uint32_t>(count); },
                [&](std::vector<uint32_t>& cells) {
                    for (size_t cell = 0; cell < count; ++cell)
                        cells.at(cell) = styles.find(cell / cols % 2 == 0 ? 0xFFFFu : 0x80000005u)->second;
                });
    report(state, ours, plain, 10);
}
BENCHMARK(colourEveryCell)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

void makeAndDestroySmallGrid(benchmark::State& state) {
    const Data& data = dataOf(100000);
    const auto nothing = [] { return 0; };
    constexpr int times = 10000;
    const double ours = measure(nothing, [&](int) {
        for (int time = 0; time < times; ++time) {
            const GridPointer grid = emptyGrid();
            for (int32_t row = 0; row < 10; ++row) grid->addItem(data.items[static_cast<size_t>(row)], row);
        }
    });
    const double plain = measure(nothing, [&](int) {
        for (int time = 0; time < times; ++time) {
            const std::vector<Text> texts(data.cells.begin(), data.cells.begin() + ptrdiff_t{10} * cols);
            benchmark::DoNotOptimize(texts.data());
        }
    });
    report(state, ours, plain);
}
BENCHMARK(makeAndDestroySmallGrid)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace obk
