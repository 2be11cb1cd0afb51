// Giving cells their icons against drawing those icons: what a picture of its own for each cell would cost at
// least.
#include "cellicons/cell_icons.h"
#include "grid/grid_edit.h"
#include "grid_data.h"
#include "platform/headless/headless_platform.h"

namespace obk {
namespace {

constexpr int32_t iconCells = 10000;

// One picture over white, pixel by pixel.
void blit(std::span<const uint32_t> icon, uint32_t* to) {
    for (const uint32_t pixel : icon) {
        const uint32_t white = (255 - (pixel >> 24)) * 0x010101u;
        *to++ = 0xFF000000u | ((pixel & 0xFFFFFFu) + white);
    }
}

void setIcons(benchmark::State& state) {
    std::vector<Text> names;
    std::vector<std::vector<uint32_t>> icons;
    for (int32_t index = 1; index <= cell_icons::count(); ++index) {
        names.push_back(cell_icons::key(index));
        icons.push_back(cell_icons::pixels(index, 16));
    }
    headless::HeadlessPlatform platform;
    const auto emptyGrid = [&platform] {
        auto control = GridEdit::memberTable().create(platform);
        auto& grid = static_cast<GridEdit&>(*control);
        grid.ColsSet(cols);
        grid.RowsSet(iconCells / cols + 1);
        return control;
    };
    const double ours = measure(emptyGrid, [&](std::shared_ptr<Control>& control) {
        auto& grid = static_cast<GridEdit&>(*control);
        for (int32_t cell = 0; cell < iconCells; ++cell)
            grid.CellSetIcon(cell % cols, cell / cols, names[static_cast<size_t>(cell) % names.size()]);
    });
    constexpr size_t area = size_t{16} * 16;
    const double plain = measure([] { return std::vector<uint32_t>(iconCells * area); },
                                 [&](std::vector<uint32_t>& pictures) {
                                     for (size_t cell = 0; cell < iconCells; ++cell)
                                         blit(icons[cell % icons.size()], &pictures[cell * area]);
                                 });
    report(state, ours, plain);
}
BENCHMARK(setIcons)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace obk
