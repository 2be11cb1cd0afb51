// A session with the flexible grid: what hosts call, what a person does, listeners that do the same in the
// middle of events; its texts are compared with plain vectors of texts all the way.
#include "flexgrid/flex_grid.h"
#include "fuzz_values.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "widgets/surface.h"

#include <optional>

namespace obk::fuzz {
namespace {

using headless::HeadlessPlatform;

class Session : private SurfaceOwner {
public:
    explicit Session(FuzzedDataProvider& input) : input_(input) {
        root_.move({{0}, {0}, {3000}, {1800}});
        grid_.move({{0}, {0}, {3000}, {1800}});
        const auto reenters = [this](auto&&...) { reenter(); };
        for (Event<>* event : {&grid_.clicked, &grid_.doubleClicked, &grid_.cellEntered,
                               &grid_.selectionMoved, &grid_.scrolled})
            connections_.push_back(event->connect(reenters));
        for (auto* event : {&grid_.mousePressed, &grid_.mouseMoved, &grid_.mouseReleased})
            connections_.push_back(event->connect(reenters));
        connections_.push_back(grid_.columnResized.connect(reenters));
        connections_.push_back(grid_.leavingCell.connect([this](bool& leaves) {
            reenter();
            leaves = below(8) != 0;
        }));
        connections_.push_back(grid_.keyWentDown.connect(reenters));
        learn();
    }

    void run() {
        for (int step = 0; step < 300 && input_.remaining_bytes() > 0; ++step) {
            act();
            check();
        }
    }

private:
    static constexpr int deepest = 3;
    static constexpr int32_t mostCompared = 400;  // rows

    KeyRoute preTranslate(const KeyEvent&) override { return KeyRoute::child; }
    bool offerToContainer(const KeyEvent&) override { return false; }
    void focusEntered() override {}
    void focusLeft() override {}
    void surfaceCaptureLost() override {}
    void surfaceChanged() override {
        root_.appearanceChanged();
        root_.placed();
    }
    AccessibleItem describeSurface() const override { return {}; }

    void reenter() {
        if (depth_ >= deepest) return;
        ++depth_;
        for (int left = input_.ConsumeIntegralInRange(0, 2); left > 0; --left) act();
        --depth_;
    }
    int32_t below(int32_t limit) { return input_.ConsumeIntegralInRange<int32_t>(0, limit - 1); }
    // Mostly inside, sometimes anywhere.
    int32_t row() {
        return below(12) == 0 ? input_.ConsumeIntegral<int32_t>()
                              : below(grid_.Rows() < 40 ? grid_.Rows() + 2 : 40) - 1;
    }
    int32_t col() {
        return below(12) == 0 ? input_.ConsumeIntegral<int32_t>() : below(std::min(grid_.Cols(), 12) + 2) - 1;
    }
    PixelPoint point() {
        return {input_.ConsumeIntegralInRange(-40, 240), input_.ConsumeIntegralInRange(-40, 160)};
    }
    Text item() {
        Text text = textFrom(input_);
        for (int left = below(4); left > 0; --left) text += u"\t" + textFrom(input_);
        return text;
    }

    // The texts as they are now are taken as given.
    void learn() {
        texts_.reset();
        if (grid_.Rows() > mostCompared || grid_.Cols() > 16) return;
        texts_.emplace(static_cast<size_t>(grid_.Rows()));
        for (int32_t row = 0; row < grid_.Rows(); ++row) {
            for (int32_t col = 0; col < grid_.Cols(); ++col)
                at(row).push_back(Text(grid_.model().text({row, col})));
        }
    }
    std::vector<Text>& at(int32_t row) { return (*texts_)[static_cast<size_t>(row)]; }

    void rows() {
        switch (below(6)) {
            case 0: {
                const int32_t count = below(20) == 0 ? input_.ConsumeIntegral<int32_t>() : below(60) - 1;
                if (grid_.SetRows(count)) {
                    if (texts_ && count <= mostCompared)
                        texts_->resize(static_cast<size_t>(count),
                                       std::vector<Text>(static_cast<size_t>(grid_.Cols())));
                    else
                        learn();
                }
                break;
            }
            case 1: {
                const int32_t count = below(20) == 0 ? input_.ConsumeIntegral<int32_t>() : below(15) - 1;
                // Rows without end, each with cells, would end the memory.
                if (count > 100 && grid_.Rows() > 100) break;
                if (grid_.SetCols(count)) {
                    if (texts_ && count <= 16) {
                        for (auto& texts : *texts_) texts.resize(static_cast<size_t>(count));
                    } else {
                        learn();
                    }
                }
                break;
            }
            case 2:
                if (const int32_t gone = row(); grid_.RemoveItem(gone) && texts_)
                    texts_->erase(texts_->begin() + gone);
                break;
            default: {
                const Text text = item();
                const int32_t place = below(3) == 0 ? grid_.Rows() : row();
                if (!grid_.AddItem(text, place) || !texts_) break;
                std::vector<Text> cells(1);
                for (const char16_t unit : text) {
                    if (unit == u'\t')
                        cells.emplace_back();
                    else
                        cells.back().push_back(unit);
                }
                cells.resize(static_cast<size_t>(grid_.Cols()));
                texts_->insert(texts_->begin() + place, std::move(cells));
                if (grid_.Rows() > mostCompared) texts_.reset();
                break;
            }
        }
    }
    void cell() {
        const CellAddress cell{row(), col()};
        switch (below(12)) {
            case 0:
                grid_.setAttribute<&CellStyle::backColour>(cell,
                                                           OleColour(input_.ConsumeIntegral<uint32_t>()));
                break;
            case 1:
                grid_.setAttribute<&CellStyle::foreColour>(cell, OleColour(static_cast<uint32_t>(below(3))));
                break;
            case 2:
                grid_.setAttribute<&CellStyle::fontName>(cell,
                                                         std::make_shared<const Text>(textFrom(input_)));
                break;
            case 3:
                grid_.setAttribute<&CellStyle::fontSize>(
                    cell, std::bit_cast<float>(input_.ConsumeIntegral<uint32_t>()));
                break;
            case 4:
                grid_.setAttribute<&CellStyle::bold>(cell, input_.ConsumeBool());
                grid_.setAttribute<&CellStyle::italic>(cell, input_.ConsumeBool());
                break;
            case 5:
                grid_.setAttribute<&CellStyle::alignment>(cell, static_cast<CellAlignment>(below(10)));
                break;
            case 6:
                grid_.setPicture(cell, std::get<PictureRef>(valueOf(ValueType::picture, input_)),
                                 static_cast<CellAlignment>(below(10)));
                break;
            default: {
                Text text = textFrom(input_);
                if (below(8) == 0) text.append(static_cast<size_t>(below(600)), u'x');
                if (grid_.setText(cell, text) && texts_) at(cell.row)[static_cast<size_t>(cell.col)] = text;
                break;
            }
        }
    }
    void place() {
        const int32_t twips = below(4) == 0 ? input_.ConsumeIntegral<int32_t>() : below(1500);
        switch (below(8)) {
            case 0:
                grid_.SetRow(row());
                break;
            case 1:
                grid_.SetCol(col());
                break;
            case 2:
                grid_.Select({row(), col()}, {row(), col()});
                break;
            case 3:
                grid_.SetTopRow(row());
                break;
            case 4:
                grid_.SetLeftCol(col());
                break;
            case 5:
                grid_.SetColWidth(col(), twips);
                break;
            case 6:
                grid_.SetRowHeight(row(), twips);
                break;
            default:
                grid_.scrollTo({input_.ConsumeIntegral<int64_t>() >> below(60),
                                input_.ConsumeIntegral<int64_t>() >> below(60)});
                break;
        }
    }
    void whole() {
        switch (below(7)) {
            case 0:
                grid_.Clear();
                if (texts_) {
                    for (auto& row : *texts_) row.assign(row.size(), {});
                }
                break;
            case 1:
                // Rows without end are more than a sort can take.
                if (grid_.Rows() > 100000) break;
                grid_.Sort(col(), static_cast<SortDirection>(below(2)));
                learn();
                break;
            case 2:
                grid_.SetRedraw(input_.ConsumeBool());
                break;
            case 3:
                grid_.SetHighLight(below(4) - 1);
                break;
            case 4:
                if (const FontRef font = fontFrom(input_)) grid_.SetFont(font);
                break;
            case 5:
                grid_.setEnabled(below(3) != 0);
                break;
            default:
                grid_.fitColumn(col());
                break;
        }
    }
    void window() {
        switch (below(6)) {
            case 0:
                surface_.close();
                break;
            case 1:
                grid_.move(
                    {{0}, {0}, {static_cast<double>(below(4000))}, {static_cast<double>(below(3000))}});
                break;
            case 2:
                if (surface_.isOpen())
                    platform_.setDpi(surface_.window(), Dpi(input_.ConsumeIntegralInRange(24, 480)));
                break;
            case 3:
                grid_.setVisible(below(3) != 0);
                break;
            default:
                if (!surface_.isOpen())
                    surface_.open({SurfacePlacement::Kind::control, 1000, {0, 0, 200, 120}});
                break;
        }
    }
    void person() {
        if (!surface_.isOpen()) return;
        const NativeWindow window = surface_.window();
        constexpr int16_t keys[] = {key::up,  key::down,   key::left,     key::right, key::home,
                                    key::end, key::pageUp, key::pageDown, 'C',        key::insert};
        constexpr MouseEvent::Kind kinds[] = {MouseEvent::Kind::down, MouseEvent::Kind::up,
                                              MouseEvent::Kind::move, MouseEvent::Kind::doubleClick,
                                              MouseEvent::Kind::leave};
        const auto state = static_cast<int16_t>(below(8));
        switch (below(8)) {
            case 0:
            case 1: {
                const int16_t code = input_.PickValueInArray(keys);
                // Cells without end are more than a clipboard can take.
                const CellRange all = grid_.selection();
                if ((code == 'C' || code == key::insert) &&
                    int64_t{all.bottom - all.top + 1} * (all.right - all.left + 1) > 100000)
                    break;
                platform_.pressKey(code, state);
                break;
            }
            case 2:
                platform_.wheel(window,
                                {input_.ConsumeIntegral<int16_t>(), input_.ConsumeBool(), state, point()});
                break;
            case 3:
                platform_.setFocus(input_.ConsumeBool() ? window : 0);
                break;
            case 4:
                platform_.advance(std::chrono::milliseconds(below(700)));
                break;
            case 5:
                platform_.stealCapture();
                break;
            default:
                platform_.mouse(window, {input_.PickValueInArray(kinds), button::left, state, point()});
                break;
        }
    }
    void act() {
        switch (below(12)) {
            case 0:
            case 1:
            case 2:
                return rows();
            case 3:
            case 4:
                return cell();
            case 5:
            case 6:
                return place();
            case 7:
                return whole();
            case 8:
                return window();
            default:
                return person();
        }
    }

    void check() {
        const bool none = grid_.Rows() == 0;
        for (const CellAddress cell : {grid_.current(), grid_.corner()})
            require(none ? cell.row == -1 && cell.col >= 0 && cell.col < grid_.Cols()
                         : grid_.model().contains(cell),
                    "the selection is inside");
        const GridView view = grid_.view();
        require(none ? grid_.TopRow() == -1 : grid_.TopRow() >= 0 && grid_.TopRow() < grid_.Rows(),
                "a row is the first");
        view.eachVisibleRow([&](int32_t row, int32_t top, int32_t bottom) {
            require(top >= bottom || view.rowAt(std::max(top, 0)) == row ||
                        view.size().height <= std::max(top, 0),
                    "rows are where they are hit");
        });
        if (surface_.isOpen() && below(4) == 0) {
            auto* window = platform_.surface(surface_.window());
            window->paint();
            window->surfaceClient().accessibleItems();
        }
        if (!texts_) return;
        require(texts_->size() == static_cast<size_t>(grid_.Rows()), "the rows are all there");
        // One row at a time; in the end each has been compared.
        if (none) return;
        const int32_t row = below(grid_.Rows());
        for (int32_t col = 0; col < grid_.Cols(); ++col)
            require(grid_.model().text({row, col}) == at(row)[static_cast<size_t>(col)], "texts are kept");
    }

    FuzzedDataProvider& input_;
    HeadlessPlatform platform_;
    Container root_{platform_, [] { return std::make_shared<int>(0); }};
    Surface surface_{root_, *this};
    FlexGrid grid_{root_};
    std::optional<std::vector<std::vector<Text>>> texts_;  // where there are not too many
    std::vector<Connection> connections_;
    int depth_ = 0;
};

}  // namespace
}  // namespace obk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    obk::fuzz::Session(input).run();
    return 0;
}
