// What a host, a person and the window system do with a flexible grid as the dice say, listeners that do the
// same in the middle of its events included; its rules are checked after each step.
#pragma once

#include "flexgrid/flex_grid.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "support/accessible_walk.h"
#include "support/pixel_canvas.h"
#include "support/quiet_surface_owner.h"
#include "widgets/surface.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace obk::test {

class FlexGridMonkey final : private QuietSurfaceOwner {
public:
    // Any number from 0 to one less than the argument.
    using Dice = std::function<int32_t(int32_t)>;

    explicit FlexGridMonkey(Dice dice) : dice_(std::move(dice)) {
        root_.move(whole);
        grid_.move(whole);
        grid_.SetRows(40);
        open();
        const auto reenters = [this](auto&&...) { reenter(); };
        const auto listen = [&](auto&... events) { (connections_.push_back(events.connect(reenters)), ...); };
        listen(grid_.clicked, grid_.doubleClicked, grid_.cellEntered, grid_.selectionMoved, grid_.scrolled,
               grid_.mousePressed, grid_.mouseMoved, grid_.mouseReleased, grid_.columnResized,
               grid_.keyWentDown);
        connections_.push_back(grid_.leavingCell.connect([this](bool& leaves) {
            reenter();
            leaves = below(8) != 0;
        }));
    }

    // What does not hold after one step; null when all does.
    const char* step() {
        act();
        const char* const broken = checked();
        return broken ? broken : painted();
    }

private:
    static constexpr TwipsRect whole{{0}, {0}, {3000}, {1800}};
    static constexpr PixelRect bounds{0, 0, 200, 120};
    static constexpr int32_t deepest = 3;
    static constexpr int32_t needWindow = 8;  // the first of the changes

    void surfaceChanged() override {
        root_.appearanceChanged();
        root_.placed();
        root_.invalidate();
    }

    int32_t below(int32_t limit) { return dice_(limit); }
    template <typename T, typename... Others>
    T one(T first, Others... others) {
        const T all[] = {first, static_cast<T>(others)...};
        return all[below(1 + int32_t{sizeof...(others)})];
    }
    void reenter() {
        if (depth_ >= deepest) return;
        ++depth_;
        for (int32_t left = below(3); left > 0; --left) act();
        --depth_;
    }
    void open() {
        if (!surface_.isOpen()) surface_.open({SurfacePlacement::Kind::control, 1000, bounds});
    }

    // Mostly inside and in sight, sometimes anywhere.
    int32_t row() {
        if (below(12) == 0) return one(INT32_MIN, -1, grid_.Rows() - 1, grid_.Rows(), INT32_MAX);
        const int64_t near = int64_t{std::max(grid_.TopRow(), 0)} + below(12) - 3;
        return static_cast<int32_t>(std::min<int64_t>(near, INT32_MAX));
    }
    int32_t col() {
        return below(12) == 0 ? one(INT32_MIN, -1, grid_.Cols(), INT32_MAX) : below(grid_.Cols());
    }
    CellAddress anywhere() { return {row(), col()}; }
    CellAddress cell() { return below(2) == 0 ? grid_.current() : anywhere(); }
    Text text() {
        return below(8) == 0 ? Text(static_cast<size_t>(below(600)), u'x')
                             : Text(one<TextView>(u"", u"1", u"10", u"oak", u"a\tb\tc", u"two\r\nlines"));
    }
    OleColour colour() { return OleColour(static_cast<uint32_t>(below(3) * 100)); }
    int32_t twips() { return one(0, 1, 15, 270, 900, below(2500), below(2500), INT32_MAX, -5); }
    int16_t state() { return static_cast<int16_t>(below(4) == 0 ? below(8) : 0); }
    PixelPoint point() { return {below(280) - 40, below(200) - 40}; }
    CellAlignment alignment() { return static_cast<CellAlignment>(below(10)); }

    void act() {
        const bool inWindow = surface_.isOpen() && below(3) == 0;
        const int32_t first = inWindow ? 0 : needWindow;
        const int32_t end = inWindow ? needWindow : static_cast<int32_t>(changes_.size());
        changes_[static_cast<size_t>(first) + static_cast<size_t>(below(end - first))]();
    }
    void pressKey() {
        const auto code = one<int16_t>(key::up, key::down, key::left, key::right, key::home, key::end,
                                       key::pageUp, key::pageDown, 'C', key::insert);
        // Cells without end are more than a clipboard can take.
        const CellRange all = grid_.selection();
        const int64_t cells = int64_t{all.bottom - all.top + 1} * (all.right - all.left + 1);
        if (cells < 100000 || (code != 'C' && code != key::insert))
            platform_.pressKey(code, one<int16_t>(0, 0, shift::shift, shift::control, state()));
    }
    void pressMouse() {
        using enum MouseEvent::Kind;
        const MouseEvent::Kind kind = one(down, up, move, doubleClick, leave);
        platform_.mouse(surface_.window(), {kind, button::left, state(), point()});
    }

    const char* checked() {
        const bool none = grid_.Rows() == 0;
        for (const CellAddress at : {grid_.current(), grid_.corner()}) {
            if (none ? at.row != -1 || at.col < 0 || at.col >= grid_.Cols() : !grid_.model().contains(at))
                return "the selection is inside";
        }
        if (none ? grid_.TopRow() != -1 : grid_.TopRow() < 0 || grid_.TopRow() >= grid_.Rows())
            return "a row is the first";
        const GridView view = grid_.view();
        bool hit = true;
        view.eachVisibleRow([&](int32_t at, int32_t top, int32_t bottom) {
            const int32_t y = std::max(top, 0);
            hit = hit && (top >= bottom || view.rowAt(y) == at || view.size().height <= y);
        });
        return hit ? nullptr : "rows are where they are hit";
    }
    // Every change, painted bit by bit as the window asks for it, looks as if all had been painted at once.
    const char* painted() {
        auto* const peer = surface_.isOpen() ? platform_.surface(surface_.window()) : nullptr;
        // Later scrolling moves what waits to be painted along.
        if (!peer || (below(3) == 0 && grid_.Redraw())) return nullptr;
        const Dpi dpi = surface_.dpi();
        const PixelRect all{0, 0, bounds.width(), bounds.height()};
        const auto paint = [&](PixelCanvas& canvas, const PixelRect& dirty) {
            if (!dirty.empty()) peer->surfaceClient().paint(canvas, dirty);
        };
        const auto scrolled = peer->takeScrolled();
        const bool another = !screen_ || shownOn_ != peer->id() || !(screen_->dpi() == dpi);
        if (another) screen_.emplace(dpi, PixelSize{bounds.width(), bounds.height()});
        for (const auto& moved : scrolled) screen_->scroll(moved.rect, moved.x, moved.y);
        paint(*screen_, another ? all : peer->invalid().intersected(all));
        shownOn_ = peer->id();
        peer->paint();
        shownItems(*peer);
        if (!grid_.Redraw()) return nullptr;
        PixelCanvas atOnce(dpi, {bounds.width(), bounds.height()});
        paint(atOnce, all);
        return screen_->difference(atOnce) == PixelPoint{-1, -1} ? nullptr
                                                                 : "bit by bit it looks as if at once";
    }

    Dice dice_;
    headless::HeadlessPlatform platform_;
    Container root_{platform_, [] { return std::make_shared<int>(0); }};
    Surface surface_{root_, *this};
    FlexGrid grid_{root_};
    std::vector<Connection> connections_;
    std::optional<PixelCanvas> screen_;
    NativeWindow shownOn_ = 0;
    int32_t depth_ = 0;
    const PictureRef picture_ = std::make_shared<SharedPicture>(PixelSize{9, 9}, std::vector<uint32_t>(81));
    const std::vector<std::function<void()>> changes_{
        [this] { pressKey(); },
        [this] { pressKey(); },
        [this] { pressMouse(); },
        [this] { pressMouse(); },
        [this] {
            const int32_t turn = one(-120, 120, 10, below(100) - 50);
            platform_.wheel(surface_.window(), {turn, below(3) == 0, state(), point()});
        },
        [this] { platform_.setFocus(below(2) == 0 ? surface_.window() : 0); },
        [this] {
            below(4) == 0 ? platform_.setDpi(surface_.window(), Dpi(one(24, 96, 120, 168, 480))) : void();
        },
        [this] { below(8) == 0 ? surface_.close() : void(); },
        [this] { open(); },
        [this] { platform_.advance(std::chrono::milliseconds(below(700))); },
        [this] { platform_.stealCapture(); },
        [this] { grid_.setText(cell(), text()); },
        [this] { grid_.setText(cell(), text()); },
        [this] { grid_.setAttribute<&CellStyle::backColour>(cell(), colour()); },
        [this] { grid_.setAttribute<&CellStyle::foreColour>(cell(), colour()); },
        [this] { grid_.setAttribute<&CellStyle::fontName>(cell(), std::make_shared<const Text>(text())); },
        [this] { grid_.setAttribute<&CellStyle::fontSize>(cell(), one(0.0f, 8.25f, 14.0f, 1e30f)); },
        [this] { grid_.setAttribute<&CellStyle::bold>(cell(), below(2) == 0); },
        [this] { grid_.setAttribute<&CellStyle::alignment>(cell(), alignment()); },
        [this] { grid_.setPicture(cell(), below(2) == 0 ? picture_ : nullptr, alignment()); },
        [this] { grid_.AddItem(text(), below(3) == 0 ? grid_.Rows() : row()); },
        [this] { grid_.RemoveItem(row()); },
        [this] { grid_.SetRows(one(below(60) - 1, below(15) + 1, 40 + below(1000), INT32_MAX)); },
        [this] { grid_.SetCols(below(15) - 1); },
        [this] { grid_.Clear(); },
        [this] {
            // Rows without end are more than a sort can take.
            if (grid_.Rows() < 100000) grid_.Sort(col(), static_cast<SortDirection>(below(2)));
        },
        [this] { grid_.SetRow(row()); },
        [this] { grid_.SetCol(col()); },
        [this] { grid_.Select(anywhere(), anywhere()); },
        [this] { grid_.SetTopRow(below(4) == 0 ? below(std::max(grid_.Rows(), 1)) : row()); },
        [this] { grid_.SetLeftCol(col()); },
        [this] {
            grid_.scrollTo({int64_t{below(200)} << below(40), int64_t{below(200)} << below(40)});
        },
        [this] { grid_.SetColWidth(col(), twips()); },
        [this] { grid_.SetRowHeight(row(), twips()); },
        [this] { grid_.fitColumn(col()); },
        [this] { grid_.SetRedraw(below(3) != 0); },
        [this] { grid_.SetHighLight(below(4) - 1); },
        [this] { grid_.setEnabled(below(3) != 0); },
        [this] { grid_.setVisible(below(3) != 0); },
        [this] {
            grid_.SetFont(std::make_shared<SharedFont>(FontDescription{u"Tahoma", one(8.25, 14.0)}));
        },
        [this] {
            const double width = one(0.0, 900.0, 3000.0, 4000.0);
            grid_.move({{0}, {0}, {width}, {one(0.0, 700.0, 1800.0, 3000.0)}});
        },
    };
};

}  // namespace obk::test
