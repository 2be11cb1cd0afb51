// A grid on the headless platform, small enough to say where its cells are.
#pragma once

#include "grid/grid_edit.h"

#include "support/control_fixture.h"

#include <algorithm>

namespace obk::test {

using headless::DrawnItem;
using Kind = MouseEvent::Kind;

constexpr OleColour red(Rgb::of(255, 0, 0)), window(SystemColour::window);
// At 96 DPI and in the default font: border, caption bar, one row, one column, in pixels.
constexpr int32_t border = 2, bar = 20, rowHeight = 18, colWidth = 64;

class GridEditTest : public ControlFixture {
protected:
    void SetUp() override {
        place(GridEdit::memberTable());
        host.take();
    }
    GridEdit& grid() { return static_cast<GridEdit&>(*control); }
    int32_t number(TextView member) { return std::get<int32_t>(call(member)); }
    void size(int32_t rows, int32_t cols) {
        call(u"RowsSet", {rows});
        call(u"ColsSet", {cols});
        host.take();
    }
    void set(int32_t row, int32_t col, const char16_t* text) { call(u"CellTextSet", {row, col, Text(text)}); }
    std::string read(int32_t row, int32_t col) {
        return toUtf8(std::get<Text>(call(u"CellTextRead", {row, col})));
    }
    std::string column(int32_t col) {
        std::string texts;
        for (int32_t row = 0; row < number(u"RowsCurrent"); ++row)
            texts += (row == 0 ? "" : ",") + read(row, col);
        return texts;
    }
    std::pair<int32_t, int32_t> current() { return {number(u"RowCurrent"), number(u"ColCurrent")}; }

    // With a window of 400 x 200 pixels.
    void show() {
        activate({0, 0, 400, 200});
        surface().paint();
        host.take();
    }
    headless::HeadlessSurface& surface() { return *platform.surface(control->window()); }
    // Where the first cell begins on the control, found by pointing.
    int32_t firstRowAt() {
        for (int32_t y = 0; y < 100; ++y) {
            platform.mouse(control->window(), {Kind::move, 0, 0, {50, y}});
            if (number(u"MouseRow") == 0) return y;
        }
        return -1;
    }
    static PixelPoint at(int32_t row, int32_t col) {
        return {border + col * colWidth + 10, border + bar + row * rowHeight + 9};
    }
    std::vector<DrawnItem> drawn() {
        control->root().invalidate();
        return surface().paint().items();
    }
    Rgb colourAt(PixelPoint point) {
        control->root().invalidate();
        return surface().paint().colourAt(point);
    }
    // The text as it is drawn; an empty item where it is not.
    DrawnItem drawnText(TextView text) {
        const auto items = drawn();
        const auto found = std::find_if(items.begin(), items.end(),
                                        [text](const DrawnItem& item) { return item.text == text; });
        return found == items.end() ? DrawnItem{} : *found;
    }
    bool gridShows() { return !drawnText(u"probe").text.empty(); }
    void onEvent(const char* name, std::function<void()> act) {
        host.on[name] = [act = std::move(act)](std::span<Value>) { act(); };
    }
};

}  // namespace obk::test
