// The editable grid as a host uses it: colouring through its members against the least that it could cost,
// and a frame of it, which must not cost more the more rows there are.
#include "grid/grid_edit.h"
#include "grid_data.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"

namespace obk {
namespace {

// On a platform of its own, which it must not outlive.
struct PlacedGrid {
    headless::HeadlessPlatform platform;
    std::shared_ptr<Control> control = GridEdit::memberTable().create(platform);
    GridEdit& edit = static_cast<GridEdit&>(*control);
    ~PlacedGrid() { control->deactivate(); }
};

std::unique_ptr<PlacedGrid> filled(const Data& data, int32_t rows) {
    auto grid = std::make_unique<PlacedGrid>();
    grid->edit.GridRedraw(false);
    grid->edit.RowsSet(0);
    grid->edit.ColsSet(cols);
    for (int32_t row = 0; row < rows; ++row)
        grid->edit.RowAddQuick(data.items[static_cast<size_t>(row) % data.items.size()], row);
    grid->edit.GridRedraw(true);
    return grid;
}

constexpr int32_t colouredRows = 100000;
constexpr uint32_t band = 0xFFFF, ground = 0x80000005;

double colourPlainly() {
    const size_t count = size_t{colouredRows} * cols;
    std::unordered_map<uint32_t, uint32_t> styles{{band, 1}, {ground, 2}};
    return measure([&] { return std::vector<uint32_t>(count); },
                   [&](std::vector<uint32_t>& cells) {
                       for (size_t cell = 0; cell < count; ++cell)
                           cells.at(cell) = styles.find(cell / cols % 2 == 0 ? band : ground)->second;
                   });
}

template <typename Colour>
void colourThroughTheControl(benchmark::State& state, std::optional<double> wanted, Colour&& colour) {
    const double ours = measure([] { return filled(dataOf(colouredRows), colouredRows); },
                                [&](std::unique_ptr<PlacedGrid>& grid) { colour(grid->edit); });
    report(state, ours, colourPlainly(), wanted);
}

void setEveryCellsColour(benchmark::State& state) {
    colourThroughTheControl(state, 10, [](GridEdit& edit) {
        edit.GridRedraw(false);
        for (int32_t row = 0; row < colouredRows; ++row) {
            for (int32_t col = 0; col < cols; ++col)
                edit.CellColorSetx(OleColour(row % 2 == 0 ? band : ground), row, col);
        }
    });
}
BENCHMARK(setEveryCellsColour)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

void colourAlternateRows(benchmark::State& state) {
    colourThroughTheControl(state, std::nullopt, [](GridEdit& edit) {
        int32_t colour = band;
        edit.RowsRefreshColors(colour);
    });
}
BENCHMARK(colourAlternateRows)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

// The median of 200 frames of 1280 x 800 pixels, each after a jump to a random row.
double frameOf(int32_t rows) {
    constexpr size_t frames = 200;
    const auto grid = filled(dataOf(1000), rows);
    grid->control->activate(1, {0, 0, 1280, 800});
    headless::HeadlessSurface& surface =
        *grid->platform.surface(static_cast<NativeWindow>(grid->edit.hWnd()));
    surface.paint();
    std::mt19937 random(7);
    std::vector<double> times;
    for (size_t frame = 0; frame < frames; ++frame) {
        const double start = processorTime();
        grid->edit.TopRowSet(static_cast<int32_t>(random() % static_cast<uint32_t>(rows)));
        surface.paint();
        times.push_back(processorTime() - start);
    }
    grid->control->deactivate();
    std::nth_element(times.begin(), times.begin() + frames / 2, times.end());
    return times[frames / 2];
}

// Against a frame of 1,000 rows.
void paintFrame(benchmark::State& state) {
    const double plain = frameOf(1000);
    report(state, frameOf(static_cast<int32_t>(state.range(0))), plain);
}
BENCHMARK(paintFrame)
    ->Arg(1000)
    ->Arg(100000)
    ->Arg(1000000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// A press on the caption of the number column, and a host that answers it, against the model's own sort; in
// turns, so that both meet the same machine.
void sortByACaption(benchmark::State& state) {
    constexpr int32_t rows = 1000000, col = 5, usualWidth = 64;
    const Data& data = dataOf(100000);
    std::array<double, 5> ours{}, plain{};
    for (size_t run = 0; run < ours.size(); ++run) {
        auto grid = filled(data, rows);
        grid->control->activate(1, {0, 0, 1280, 800});
        const Connection answered = grid->edit.SortClick.connect([&grid] { grid->edit.BarHeaderSort(); });
        const auto window = static_cast<NativeWindow>(grid->edit.hWnd());
        double start = processorTime();
        for (const auto kind : {MouseEvent::Kind::down, MouseEvent::Kind::up})
            grid->platform.mouse(window, {kind, button::left, 0, {col * usualWidth + 20, 8}});
        ours[run] = processorTime() - start;
        grid->control->deactivate();
        grid.reset();

        GridModel model(0, cols, Dpi(96));
        for (int32_t row = 0; row < rows; ++row)
            model.addItem(data.items[static_cast<size_t>(row) % data.items.size()], row);
        start = processorTime();
        model.sort(col, SortDirection::ascending, 0, rows - 1);
        plain[run] = processorTime() - start;
    }
    report(state, median(ours), median(plain));
}
BENCHMARK(sortByACaption)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

// 10,000 cells of the clipboard and the one frame that shows them, against the same texts put into a model.
constexpr int32_t pastedRows = 1000, pastedCols = 10;

std::unique_ptr<PlacedGrid> gridToPasteInto() {
    Text text;
    for (int32_t row = 0; row < pastedRows; ++row) {
        for (int32_t col = 0; col < pastedCols; ++col)
            text +=
                u"pasted " + decimalText(row * pastedCols + col) + (col + 1 < pastedCols ? u"\t" : u"\r\n");
    }
    auto grid = filled(dataOf(1000), pastedRows);
    grid->control->activate(1, {0, 0, 1280, 800});
    grid->platform.setClipboard(text);
    grid->edit.GridFocusShow();
    grid->edit.RowSetFocus(0);
    grid->edit.ColSetFocus(0);
    grid->platform.surface(static_cast<NativeWindow>(grid->edit.hWnd()))->paint();
    return grid;
}

// A key with Ctrl, and the frame that shows what it has done.
void command(PlacedGrid& grid, int16_t key) {
    grid.platform.pressKey(key, shift::control);
    grid.platform.surface(static_cast<NativeWindow>(grid.edit.hWnd()))->paint();
}

double pasteTime() {
    return measure(gridToPasteInto, [](std::unique_ptr<PlacedGrid>& grid) { command(*grid, 'V'); });
}

void pasteCells(benchmark::State& state) {
    const double plain = measure(
        [&] { return std::make_unique<GridModel>(pastedRows, cols, Dpi(96)); },
        [&](std::unique_ptr<GridModel>& model) {
            for (int32_t cell = 0; cell < pastedRows * pastedCols; ++cell)
                model->setText({cell / pastedCols, cell % pastedCols}, u"pasted " + decimalText(cell));
        });
    report(state, pasteTime(), plain);
}
BENCHMARK(pasteCells)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

// Taking it back, against the paste itself.
void undoPaste(benchmark::State& state) {
    const double undo = measure(
        [] {
            auto grid = gridToPasteInto();
            command(*grid, 'V');
            return grid;
        },
        [](std::unique_ptr<PlacedGrid>& grid) { command(*grid, 'Z'); });
    report(state, undo, pasteTime(), 1.0);
}
BENCHMARK(undoPaste)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace obk
