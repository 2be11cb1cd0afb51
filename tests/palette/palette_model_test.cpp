#include "palette/palette_model.h"

#include "widgets/in_one_line.h"

#include <gtest/gtest.h>

namespace obk::test {
namespace {

using Told = std::vector<std::string>;
using Selection = PaletteModel::Selection;

class PaletteModelTest : public ::testing::Test {
protected:
    PaletteModelTest() {
        for (const auto& [event, what] : {std::pair(&model.buttonChanged, "button"),
                                          {&model.panelChanged, "panel"},
                                          {&model.stripChanged, "strip"}})
            connections.push_back(event->connect([this, what = what] { told.emplace_back(what); }));
        connections.push_back(model.cellsChanged.connect([this](const PixelRect& place) {
            if (!place.empty()) told.push_back("cells " + nameAt({place.left, place.top}));
            farthest = {place.right - 1, place.bottom - 1};
        }));
        use(enQUILLPalette::QP24X8);
    }
    void use(enQUILLPalette palette) {
        model.setPalette(palette, Rgb{2});  // dark red
        told.clear();
    }
    std::string nameAt(PixelPoint point) const {
        const PaletteCell* cell = model.palette().hitTest(point);
        return cell ? toUtf8(cell->Name()) : "?";
    }
    // A copy: another block ends the palette's own.
    PaletteCell cell(const std::string& name) const {
        for (const PaletteCell& each : model.palette().cells()) {
            if (toUtf8(each.Name()) == name) return each;
        }
        ADD_FAILURE() << name;
        return {};
    }
    // What each key of a walk comes to; "" on the strip.
    std::string walked(const std::vector<int16_t>& keys) {
        for (const int16_t key : keys) EXPECT_TRUE(model.walk(key)) << key;
        return model.walkCell() ? toUtf8(model.walkCell()->Name()) : "";
    }
    Told take() { return std::exchange(told, {}); }

    PaletteModel model;
    Told told;
    PixelPoint farthest;
    std::vector<Connection> connections;
};

TEST_F(PaletteModelTest, EachCurrentColourChangesForItself) {
    use(enQUILLPalette::QP8X4X4);
    // Of the button; then the chosen, the active, the hovered and the base cell.
    const auto colours = [this] {
        const auto name = [](const PaletteCell& cell) { return toUtf8(cell.Name()); };
        return inOneLine({std::to_string(model.button().ButtonColor.value), name(model.SelectedCell()),
                          name(model.ActiveCell()), model.HoverCell() ? name(*model.HoverCell()) : "none",
                          name(model.BaseCell())});
    };
    EXPECT_EQ(colours(), "0, DARK RED, , none, RED");
    model.set(&ButtonState::ButtonColor, OleColour(Rgb{7}));
    EXPECT_EQ(colours(), "7, DARK RED, , none, RED");
    EXPECT_TRUE(model.activate(cell("GREEN")));
    EXPECT_EQ(colours(), "7, DARK RED, GREEN, none, RED");
    EXPECT_FALSE(model.activate(cell("GREEN")));
    model.hover(cell("YELLOW"));
    EXPECT_EQ(colours(), "7, DARK RED, GREEN, YELLOW, RED");
    EXPECT_EQ(model.select(cell("CYAN")), Selection::changed);
    EXPECT_EQ(colours(), "7, CYAN, GREEN, YELLOW, RED");
    model.becomeBase(cell("BLUE"));
    EXPECT_EQ(colours(), "7, CYAN, GREEN, YELLOW, BLUE");
    model.setColor(SystemColour::highlight);
    EXPECT_EQ(colours(), "2147483661, CYAN, GREEN, YELLOW, BLUE");
    EXPECT_EQ(model.SelectedCell().Color, OleColour(SystemColour::highlight));
    // A form's colour brings its shades with it; the button's colour is a value of its own there.
    model.loadSelected(SystemColour::window, Rgb::of(0, 250, 0));
    EXPECT_EQ(colours(), "2147483661, GREEN, GREEN, YELLOW, GREEN");
    EXPECT_EQ(model.SelectedCell().Color, OleColour(SystemColour::window));
}

TEST_F(PaletteModelTest, AChoiceTellsWhetherItIsAnother) {
    model.select(cell("LIME"));
    EXPECT_EQ(model.select(cell("LIME")), Selection::again) << "nothing was active";
    model.activate(cell("LIME"));
    EXPECT_EQ(take(), Told{"panel"});
    EXPECT_EQ(model.select(cell("LIME")), Selection::unchanged);
    model.activate(cell("PINK"));
    EXPECT_EQ(model.select(model.SelectedCell()), Selection::again);
    EXPECT_EQ(take(), Told{});
    // Colours count, not swatches: what a host sets to a swatch's colour is that swatch's choice already.
    model.setColor(cell("PINK").Color);
    EXPECT_EQ(model.select(cell("PINK")), Selection::unchanged);
    EXPECT_EQ(toUtf8(model.SelectedCell().Name()), "LIME");
}

TEST_F(PaletteModelTest, OnlyTheHueOfABaseCellDecidesWhetherItsShadesAreBuilt) {
    use(enQUILLPalette::QP8X4X4);
    EXPECT_EQ(model.palette().shadeCells().size(), 16u);
    model.becomeBase(cell("WHITE"));
    EXPECT_EQ(take(), Told{}) << "hue 0, as red";
    model.becomeBase(cell("BLUE"));
    EXPECT_EQ(take(), Told{"cells BARLEY BLUE"});
    EXPECT_EQ(nameAt(farthest), "DARK BLUE") << "all of the block";
    const PaletteCell shade = model.palette().shadeCells()[0];
    model.becomeBase(cell("WHITE"));
    EXPECT_EQ(nameAt(farthest), "BLACK");
    take();
    model.becomeBase(shade);
    EXPECT_EQ(take(), Told{}) << "a shade is nobody's base";
    use(enQUILLPalette::QP8X8);
    model.becomeBase(cell("BLUE"));
    EXPECT_EQ(take(), Told{});
    EXPECT_TRUE(model.palette().shadeCells().empty());
    EXPECT_EQ(toUtf8(model.BaseCell().Name()), "WHITE") << "a flat palette has no base";
}

TEST_F(PaletteModelTest, TheFrameTellsOfWhereItWasAndWhereItIs) {
    model.hover(cell("LIME"));
    EXPECT_EQ(take(), Told{"cells LIME"});
    model.hover(cell("LIME"));
    EXPECT_EQ(take(), Told{});
    model.hover(cell("PINK"));
    EXPECT_EQ(take(), (Told{"cells LIME", "cells PINK"}));
    model.setStripHot(true);
    model.setStripHot(true);
    EXPECT_EQ(take(), Told{"strip"});
    EXPECT_TRUE(model.walk(key::home));
    EXPECT_EQ(take(), (Told{"strip", "cells PINK", "cells PASTEL RED"}));
    model.endWalk();
    EXPECT_EQ(take(), Told{"cells PASTEL RED"});
    EXPECT_FALSE(model.HoverCell());
    EXPECT_FALSE(model.walking());
}

TEST_F(PaletteModelTest, AWalkBeginsAtTheChosenSwatchAndGoesAlongRowsAndColumns) {
    for (const int16_t other : {key::left, key::up, key::down, key::pageUp, key::pageDown, key::tab})
        EXPECT_FALSE(model.walk(other)) << "a walk begins with Right, Home or End";
    EXPECT_EQ(walked({key::right}), "EARTH RED");
    EXPECT_FALSE(model.walk(key::tab));
    EXPECT_EQ(walked({key::right}), "EARTH COPPER");
    EXPECT_EQ(walked({key::up}), "DARK COPPER");
    EXPECT_EQ(walked({key::left, key::left}), "DARK RED") << "no further";
    EXPECT_EQ(walked({key::pageUp, key::up}), "PASTEL RED") << "no further";
    EXPECT_EQ(walked({key::pageDown}), "EARTH RED");
    EXPECT_EQ(walked({key::end}), "BLACK");
    EXPECT_EQ(walked({key::down}), "");
    EXPECT_TRUE(model.stripHot());
    EXPECT_FALSE(model.HoverCell());
    EXPECT_EQ(walked({key::left, key::right, key::down}), "");
    EXPECT_EQ(walked({key::up}), "BLACK");
    EXPECT_FALSE(model.stripHot());
    EXPECT_EQ(walked({key::pageDown, key::pageUp}), "BLACK");
    EXPECT_EQ(walked({key::home}), "PASTEL RED");
    // A colour of no swatch is nowhere: the walk begins at the first.
    model.endWalk();
    model.setColor(Rgb::of(1, 2, 3));
    EXPECT_EQ(walked({key::right}), "PASTEL RED");
    // From base colours to the shades beside them.
    use(enQUILLPalette::QP8X4X4);
    EXPECT_FALSE(model.walking()) << "another palette ends it";
    EXPECT_EQ(walked({key::home, key::right, key::right}), "BARLEY RED");
    EXPECT_EQ(walked({key::end, key::down}), "");
}

TEST_F(PaletteModelTest, AScaleHoldsForEveryPalette) {
    model.setScale(Dpi(168));
    EXPECT_EQ(model.SelectedCell(), cell("EARTH RED"));
    EXPECT_EQ(walked({key::right}), "EARTH RED");
    use(enQUILLPalette::QP24X10);
    EXPECT_EQ(model.palette().cells().front().rect.left, 11);  // 10.5 pixels, rounded
    for (const PaletteCell& each : model.palette().cells()) {
        EXPECT_EQ(each.rect.width(), 16);
        EXPECT_EQ(each.rect.height(), 16);
    }
}

}  // namespace
}  // namespace obk::test
