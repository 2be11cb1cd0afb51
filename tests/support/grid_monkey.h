// A person and a host who do with a grid whatever the dice say; its rules are checked after each step.
#pragma once

#include "framework/control.h"
#include "framework/member_call.h"
#include "grid/grid_edit.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace obk::test {

class GridMonkey : private ControlHost {
public:
    // Any number from 0 to one less than the argument.
    using Dice = std::function<int32_t(int32_t)>;

    explicit GridMonkey(Dice dice) : dice_(std::move(dice)) {
        platform_.answerMenu([this](std::span<const MenuItem> items, const PixelRect&) {
            reenter();
            return std::optional(static_cast<size_t>(below(static_cast<int32_t>(items.size()) + 1)));
        });
        place();
    }
    ~GridMonkey() {
        dice_ = [](int32_t) { return 0; };
        depth_ = deepest;
        if (grid_) grid_->setHost(nullptr);
    }

    // One step. What does not hold afterwards; null when all does.
    const char* step() {
        act();
        return broken_ ? broken_ : checked();
    }

private:
    static constexpr int32_t deepest = 3, mostRows = 60, mostCols = 7, mostCalled = 15;
    static constexpr PixelRect bounds{0, 0, 420, 200};

    int32_t below(int32_t limit) { return dice_(limit); }
    template <typename T>
    T one(std::initializer_list<T> of) {
        return *(of.begin() + below(static_cast<int32_t>(of.size())));
    }

    void place() {
        telling_ = false;  // what the one before tells is another story
        auto made = GridEdit::memberTable().create(platform_);
        grid_ = std::static_pointer_cast<GridEdit>(made);
        grid_->setHost(this);
        grid_->initNew();
        grid_->ColsSet(7);
        grid_->RowsSet(5);
        for (int32_t col = 0; col < 7; ++col) grid_->ColTypeSet(col, col);
        for (const char16_t* item : {u"oak", u"elm", u"ash"}) grid_->ComboAdd(item);
        grid_->activate(1, bounds);
        grid_->focus();
    }

    void raise(const Member& event, std::span<Value> arguments) override {
        const bool closing = event.name == u"ChangeEdited";
        if (closing && telling_) broken_ = "a host that is told of an editor closing is told once";
        telling_ = telling_ || closing;
        reenter();
        if (closing) telling_ = false;
        if (!arguments.empty() && below(20) == 0) arguments[0] = int16_t{0};
    }
    void propertyChanged(const Member*) override {}
    FontRef ambientFont() override { return nullptr; }
    void requestSize(Twips, Twips) override {}
    void focusChanged(bool) override { reenter(); }
    bool offerKey(const KeyEvent&) override { return below(4) == 0; }
    void viewChanged() override {}

    void reenter() {
        if (depth_ >= deepest || below(6) != 0) return;
        ++depth_;
        act();
        --depth_;
    }
    void act() {
        // A host that acts in an event may let go of the control that raised it.
        const auto held = grid_;
        switch (below(12)) {
            case 0:
            case 1:
            case 2:
                return call(*held);
            case 3:
                held->SetAllowGridEdit(below(8) != 0);
                return held->GridSetFocus(below(mostCols), below(mostRows / 4));
            case 4:
                return surroundings(*held);
            case 5:
            case 6:
                return mouse(*held);
            case 7:
                return platform_.type(
                    one<TextView>({u"x", u" ", u"7.5", u"o", u"\u65E5", u"\b", u"1 mar 2026"}));
            default:
                return key();
        }
    }

    Text text() {
        return Text(one<TextView>({u"", u"oak", u"12", u"a", u"Mon 2 Feb 2026", u"9:30 am", u"a\tb\tc\td",
                                   u"two\r\nlines", u"1\t2\r\n3\t4\r\n", u"\"q\"\t\"\r\n\"\"\""}));
    }

    void key() {
        const int16_t code =
            below(3) == 0
                ? static_cast<int16_t>(1 + below(254))
                : one<int16_t>({key::enter, key::enter, key::tab, key::escape, key::f2, key::f4, key::insert,
                                key::deleteKey, key::down, key::up, key::left, key::right, key::home,
                                key::end, key::pageDown, key::pageUp, 'V', 'Z'});
        const int16_t state = code == 'V' || code == 'Z' ? shift::control
                              : below(4) == 0            ? static_cast<int16_t>(below(8))
                                                         : int16_t{0};
        if (below(10) == 0)
            platform_.keyDown(code, state, below(2) == 0);
        else
            platform_.pressKey(code, state);
    }
    void mouse(GridEdit& grid) {
        using Kind = MouseEvent::Kind;
        const NativeWindow window = grid.window();
        const PixelPoint at{below(bounds.right + 40) - 20, below(bounds.bottom + 40) - 20};
        const auto state = static_cast<int16_t>(below(3) == 0 ? below(8) : 0);
        switch (below(5)) {
            case 0:
                return platform_.wheel(window, {one({-120, 120, 30}), below(4) == 0, state, at});
            case 1:
                return platform_.mouse(
                    window, {one({Kind::down, Kind::move, Kind::up, Kind::doubleClick, Kind::leave}),
                             one({button::left, button::left, button::right}), state, at});
            case 2:
                platform_.mouse(window, {Kind::doubleClick, button::left, state, at});
                return platform_.mouse(window, {Kind::up, button::left, state, at});
            default:
                return platform_.click(window, at);
        }
    }
    Value argument(ValueType type) {
        switch (type) {
            case ValueType::longInteger:
                return below(30) == 0 ? INT32_MIN : below(mostCalled) - 1;
            case ValueType::text:
                return text();
            case ValueType::doubleFloat:
                return one({150.0, 400.0, 1500.0, 9000.0});
            case ValueType::font:
                return std::make_shared<SharedFont>(FontDescription{u"Tahoma", one({8.25, 14.0})});
            default:
                return converted(Value(below(2)), type).value_or(Value());
        }
    }
    // Any member of the table, as hosts call it.
    void call(GridEdit& grid) {
        if (grid.RowsCurrent() > mostRows) return grid.RowsSet(3);
        const auto& members = grid.table().members;
        const Member& member = members[static_cast<size_t>(below(static_cast<int32_t>(members.size())))];
        Value result;
        if (member.kind == MemberKind::property) {
            if (member.put) putProperty(grid, member, argument(member.type));
            return;
        }
        std::vector<Value> arguments;
        for (const Parameter& parameter : member.parameters) arguments.push_back(argument(parameter.type));
        callMethod(grid, member, arguments, result);
        // Nobody can work in a grid that stays hidden.
        if (below(3) != 0) grid.GridShow();
    }
    void surroundings(GridEdit& grid) {
        switch (below(10)) {
            case 0:
                return grid.setBounds({0, 0, below(3) == 0 ? below(600) : bounds.right, bounds.bottom});
            case 1:
                return platform_.setDpi(grid.window(), Dpi(one({96, 120, 144, 168, 192})));
            case 2:
                platform_.setFocus(0);
                break;
            case 3:
                designs_ = below(6) == 0;
                break;
            case 4:
                return platform_.setClipboard(text());
            case 5:
                return platform_.advance(std::chrono::milliseconds(below(1200)));
            case 6:
                return platform_.stealCapture();
            case 7:
                grid.deactivate();
                grid.activate(1, bounds);
                break;
            case 8: {
                MemoryBag bag;
                grid.save(bag);
                return grid.load(bag);
            }
            default:
                if (below(8) != 0) break;
                // Another one, while this one may still be in the middle of an event.
                grid.setHost(nullptr);
                grid.deactivate();
                return place();
        }
        grid.focus();
    }
    bool designMode() override { return designs_; }

    const char* checked() {
        const auto held = grid_;
        GridEdit& grid = *held;
        const int32_t rows = grid.RowsCurrent(), row = grid.RowCurrent();
        if (rows == 0 ? row != -1 : row < 0 || row >= rows) return "the current row is in the grid";
        if (grid.ColCurrent() < 0 || grid.ColCurrent() >= grid.ColsCurrent())
            return "the current column is in the grid";
        const auto* const surface = platform_.surface(grid.window());
        if (!surface) return nullptr;
        // What shows of editors, and where cells show.
        std::vector<PixelRect> shown, cells;
        for (const headless::HeadlessWindow* child : surface->children()) {
            const PixelRect part = child->bounds().intersected(child->clip());
            if (child->visible() && !part.empty()) shown.push_back(part);
        }
        for (const AccessibleItem& item : surface->surfaceClient().accessibleItems()) {
            const bool list =
                item.role == AccessibleItem::Role::button && (item.name == u"List" || item.name == u"Time");
            if (list && !item.bounds.empty()) shown.push_back(item.bounds);
            if (item.role == AccessibleItem::Role::listItem) cells.push_back(item.bounds);
        }
        if (shown.size() > 1) return "one editor is open at most";
        // Of a drawn one, as far as there are cells.
        PixelRect area;
        for (const PixelRect& cell : cells)
            area = area.empty()
                       ? cell
                       : PixelRect{std::min(area.left, cell.left), std::min(area.top, cell.top),
                                   std::max(area.right, cell.right), std::max(area.bottom, cell.bottom)};
        const auto over = [&](const PixelRect& cell) {
            const PixelRect part = shown[0].intersected(area);
            return part.empty() || part.intersected(cell) == part;
        };
        if (!shown.empty() && std::none_of(cells.begin(), cells.end(), over))
            return "an editor is over a cell";
        if (below(50) != 0) return nullptr;
        grid.BoxHide();
        return nullptr;
    }

    Dice dice_;
    headless::HeadlessPlatform platform_;
    std::shared_ptr<GridEdit> grid_;
    const char* broken_ = nullptr;
    int32_t depth_ = 0;
    bool telling_ = false;
    bool designs_ = false;
};

}  // namespace obk::test
