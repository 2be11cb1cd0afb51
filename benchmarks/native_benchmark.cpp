// What can be measured without a window: palettes, number formatting, a key press on its way to a new text.
#include <benchmark/benchmark.h>

#include "framework/number_format.h"
#include "palette/colour_palette.h"
#include "platform/headless/headless_platform.h"
#include "updown/up_down_text_box.h"

namespace obk {
namespace {

void buildLargestFlatPalette(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(ColourPalette(enQUILLPalette::QP24X10));
}
BENCHMARK(buildLargestFlatPalette);

void buildLargestShadePaletteWithItsBlock(benchmark::State& state) {
    for (auto _ : state) {
        ColourPalette palette(enQUILLPalette::QP32X8X6);
        palette.buildShades(palette.baseCells().front());
        benchmark::DoNotOptimize(palette);
    }
}
BENCHMARK(buildLargestShadePaletteWithItsBlock);

void formatWithTwoPlaces(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(fixedText(1.005, 2));
}
BENCHMARK(formatWithTwoPlaces);

void stepByKey(benchmark::State& state) {
    headless::HeadlessPlatform platform;
    const auto control = UpDownTextBox::memberTable().create(platform);
    auto& field = static_cast<UpDownTextBox&>(*control);
    field.SetMax(1000000000);
    field.SetInterval(1);
    control->activate(1, {0, 0, 81, 21});
    control->focus();
    for (auto _ : state) platform.pressKey(key::up);
    control->deactivate();
}
BENCHMARK(stepByKey);

}  // namespace
}  // namespace obk
