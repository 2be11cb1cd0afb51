// A grid on the headless platform, small enough to say where its cells are.
#pragma once

#include "grid/grid_edit.h"

#include "support/control_fixture.h"

namespace obk::test {

using headless::DrawnItem;
using Kind = MouseEvent::Kind;

constexpr OleColour red(Rgb::of(255, 0, 0)), window(SystemColour::window);
// At 96 DPI and in the default font: border, caption bar, one row, one column, in pixels.
constexpr int32_t border = 2, bar = 20, rowHeight = 18, colWidth = 64;

// What a host hears of an open editor that closes.
constexpr char edited[] = "ChangeEdited, Change, ChangePost";

class GridEditTest : public ControlFixture {
public:
    int32_t number(TextView member) { return std::get<int32_t>(call(member)); }
    std::string read(int32_t row, int32_t col) {
        return toUtf8(std::get<Text>(call(u"CellTextRead", {row, col})));
    }
    std::string column(int32_t col) {
        std::string texts;
        for (int32_t row = 0; row < number(u"RowsCurrent"); ++row)
            texts += (row == 0 ? "" : ",") + read(row, col);
        return texts;
    }
    std::pair<int32_t, int32_t> extent() { return {number(u"RowsCurrent"), number(u"ColsCurrent")}; }
    std::pair<int32_t, int32_t> current() { return {number(u"RowCurrent"), number(u"ColCurrent")}; }
    // What was told since the last look, in one line; the events of it.
    std::string told() { return joined(host.take()); }
    std::string events() { return joined(host.takeEvents()); }
    // What else a host has heard than of keys and of the mouse's way.
    std::string news() {
        Journal rest = host.takeEvents();
        std::erase_if(rest, [](const std::string& line) {
            return line.starts_with("Key") || line.starts_with("Mouse");
        });
        return joined(rest);
    }

protected:
    void SetUp() override {
        place(GridEdit::memberTable());
        host.take();
    }
    static std::string joined(const Journal& lines) {
        std::string line;
        for (const std::string& each : lines) line += (line.empty() ? "" : ", ") + each;
        return line;
    }
    GridEdit& grid() { return static_cast<GridEdit&>(*control); }
    void size(int32_t rows, int32_t cols) {
        call(u"RowsSet", {rows});
        call(u"ColsSet", {cols});
        host.take();
    }
    void set(int32_t row, int32_t col, const char16_t* text) { call(u"CellTextSet", {row, col, Text(text)}); }
    void goTo(int32_t row, int32_t col) {
        call(u"RowSetFocus", {row});
        call(u"ColSetFocus", {col});
    }
    // The grid as a call or a key leaves it, and what is told meanwhile.
    GridEditTest& after(TextView member, std::vector<Value> arguments = {}) {
        host.take();
        call(member, std::move(arguments));
        return *this;
    }
    GridEditTest& after(int16_t code, int16_t held = 0) {
        host.take();
        platform.pressKey(code, held);
        return *this;
    }
    void press(std::initializer_list<int16_t> codes, int16_t held = 0) {
        for (const int16_t code : codes) platform.pressKey(code, held);
    }
    void mouse(Kind kind, PixelPoint to, int16_t mouseButton = button::left, int16_t held = 0) {
        platform.mouse(control->window(), {kind, mouseButton, held, to});
    }
    void drag(PixelPoint from, PixelPoint to, int16_t held = 0) {
        mouse(Kind::down, from, button::left, held);
        mouse(Kind::move, to, button::left, held);
        mouse(Kind::up, to, button::left, held);
    }

    // In a window of 400 x 200 pixels.
    void show() {
        activate({0, 0, 400, 200});
        surface().paint();
        host.take();
    }
    void show(int32_t rows, int32_t cols) {
        size(rows, cols);
        show();
    }
    headless::HeadlessSurface& surface() { return *platform.surface(control->window()); }
    // Where the first cell begins on the control, found by pointing.
    int32_t firstRowAt() {
        for (int32_t y = 0; y < 100; ++y) {
            mouse(Kind::move, {50, y}, 0);
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
        for (const DrawnItem& item : drawn()) {
            if (item.text == text) return item;
        }
        return {};
    }
    bool gridShows() { return !drawnText(u"probe").text.empty(); }
    void onEvent(const char* name, std::function<void()> act) {
        host.on[name] = [act = std::move(act)](std::span<Value>) { act(); };
    }
};

}  // namespace obk::test
