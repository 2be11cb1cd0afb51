// What screen readers find in every control in every state, and what they hear when something changes.
#include "grid/grid_edit.h"
#include "library/library.h"
#include "palette/colour_palette.h"
#include "support/control_fixture.h"
#include "widgets/drawing.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <span>

namespace obk::test {
namespace {

using Item = AccessibleItem;
using Role = Item::Role;
using Kind = AccessibleAction::Kind;

// What public checkers of Windows programs ask of a tree, for one control after the other.
class Checker {
public:
    Checker(const AccessibleTree& tree, std::string where) : tree_(tree), where_(std::move(where)) {}

    void check() {
        eachThing(tree_, tree_.root(), [this](const AccessibleId& id) { look(id); });
    }

private:
    void look(const AccessibleId& id) {
        const Item item = tree_.item(id);
        const AccessibleId around = tree_.parent(id), table = tree_.table(id);
        const Item outer = tree_.item(around);
        const testing::ScopedTrace trace(__FILE__, __LINE__,
                                         where_ + ": " + toUtf8(item.name) + " in " + toUtf8(outer.name));
        const auto is = [&](auto... roles) { return ((item.role == roles) || ...); };
        const bool enabled = !item.is(Item::disabled), shown = !item.bounds.empty();
        const bool cell = is(Role::cell) || (is(Role::listItem) && outer.rows > 0);
        const bool written = item.can(Kind::write) || item.can(Kind::toggle) || !enabled;
        const std::pair<bool, const char*> faults[] = {
            {is(Role::none), "it has no role"},
            {shown == item.is(Item::offScreen), "it shows out of sight, or does not in sight"},
            {around && shown && !outer.is(Item::offScreen) &&
                 item.bounds.intersected(outer.bounds) != item.bounds,
             "it sticks out of what it is in"},
            {around && shown && item.bounds == outer.bounds && outer.role != Role::cell,
             "it hides what it is in, as only an editor does"},
            {around && tree_.child(around, tree_.indexInParent(id)) != id, "it is another child"},
            {trimmed(item.name).empty() || item.name.size() > 512, "its name is empty or a novel"},
            {item.name == item.help, "its help is its name"},
            {!enabled && (item.is(Item::focusable) || item.is(Item::focused) || item.actions),
             "it is disabled, yet can be used"},
            {item.is(Item::focused) && !item.is(Item::focusable) && around, "it has a focus that it cannot"},
            {item.position > item.setSize, "it is behind the last one"},
            {is(Role::button) &&
                 (item.can(Kind::press) != enabled || item.can(Kind::toggle) || item.is(Item::expandable)),
             "it is not pressed as buttons are"},
            {is(Role::comboBox, Role::splitButton) && !item.is(Item::expandable), "it does not open"},
            {is(Role::edit) && !item.is(Item::valued), "it has no value"},
            {is(Role::listItem, Role::pageTab) &&
                 (!item.is(Item::selectable) || item.can(Kind::select) != enabled),
             "it cannot be selected"},
            {cell && (tree_.cell(table, item.row, item.col) != id || item.row >= tree_.item(table).rows),
             "it is another cell"},
            {cell && item.is(Item::readOnly) != (is(Role::cell) && !written), "it is read only, or is not"},
            {outer.role == Role::cell && item.name != outer.name, "an editor is called as what it edits"},
            {is(Role::header) && tree_.childCount(id) != outer.cols, "it has not all columns"},
            {is(Role::pageTabList) && tree_.selection(id).size() > 1, "there are two pages"},
            {is(Role::spinner) && !(item.range && item.range->value <= item.range->most), "it has no range"},
            {is(Role::spinner) && tree_.childCount(id) != 3, "it is no edit with two buttons"},
        };
        for (const auto& [found, fault] : faults) EXPECT_FALSE(found) << fault;
        name(item);
        siblings(id);
        if (shown && tree_.childCount(id) == 0) hit(id, item);
    }

    static void name(const Item& item) {
        static const std::map<Role, TextView> roles = {
            {Role::button, u"button"},    {Role::edit, u"edit"}, {Role::list, u"list"},
            {Role::pageTab, u"tab item"}, {Role::cell, u"cell"}, {Role::header, u"header"}};
        if (const auto role = roles.find(item.role); role != roles.end()) {
            EXPECT_FALSE(equalIgnoringCase(item.name, role->second));
        }
        for (const char16_t unit : item.name)
            EXPECT_FALSE(unit < u' ' || (unit >= 0xE000 && unit <= 0xF8FF)) << "nobody can say it";
    }

    // Those that can have the focus are told apart by what they are called; far away nothing is new.
    void siblings(const AccessibleId& id) const {
        std::set<Text> names;
        for (int32_t index = 0, count = std::min(tree_.childCount(id), 300); index < count; ++index) {
            const Item item = tree_.item(tree_.child(id, index));
            if (item.is(Item::focusable)) {
                EXPECT_TRUE(names.insert(item.name).second) << toUtf8(item.name);
            }
        }
    }

    // A magnifier finds it where it says that it is.
    void hit(const AccessibleId& id, const Item& item) const {
        const AccessibleId found = tree_.at(
            {(item.bounds.left + item.bounds.right) / 2, (item.bounds.top + item.bounds.bottom) / 2});
        // What lies over it, such as an open editor, may be found in its stead.
        if (item.role != Role::cell && item.role != Role::staticText && item.role != Role::separator) {
            EXPECT_EQ(found, id);
        }
    }

    const AccessibleTree& tree_;
    std::string where_;
};

class ScreenReader : public ControlFixture {
protected:
    std::vector<headless::HeadlessSurface*> shownSurfaces() const {
        std::vector<headless::HeadlessSurface*> shown;
        for (const NativeWindow id : platform.windows()) {
            headless::HeadlessSurface* const surface = platform.surface(id);
            if (surface && surface->visible()) shown.push_back(surface);
        }
        return shown;
    }
    const AccessibleTree& tree() { return treeOf(*platform.surface(control->window())); }
    AccessibleId find(const AccessibleTree& in, TextView name) {
        AccessibleId found;
        eachThing(in, in.root(), [&](const AccessibleId& id) {
            if (!found && in.item(id).name == name) found = id;
        });
        EXPECT_TRUE(found) << toUtf8(name);
        return found;
    }
    // What was told since the last look, and what is told of a key or a call alone: "focus Home; state Help".
    std::string heard() {
        std::string all;
        for (const std::string& line : platform.takeHeard()) all += (all.empty() ? "" : "; ") + line;
        return all;
    }
    std::string pressing(int16_t code, int16_t shift = 0) {
        heard();
        platform.pressKey(code, shift);
        return heard();
    }
    std::string putting(TextView name, const Value& value) {
        heard();
        put(name, value);
        return heard();
    }
    std::string calling(TextView name, std::vector<Value> arguments = {}) {
        heard();
        call(name, std::move(arguments));
        return heard();
    }
    void inEveryState(const std::function<void(const std::string&)>& look);
    void begin(const char16_t* name) {
        place(*library().control(name));
        activate({0, 0, 300, 120});
        control->focus();
    }
    void fillGrid() {
        begin(u"GridEdit");
        call(u"ColsSet", {4});
        call(u"RowsSet", {12});
        for (const int32_t col : {0, 1, 2})
            call(u"BarHeaderCaptionSet", {col, Text(col == 0 ? u"City" : u"Same")});
        call(u"BarHeaderCaptionSet", {3, u"Long\n\xE001 " + Text(600, u'x')});
        call(u"ColTypeSet", {1, 3});
        call(u"ColTypeSet", {2, 2});
        for (int32_t row = 0; row < 12; ++row) call(u"CellTextSet", {row, 0, u"London " + decimalText(row)});
        platform.paintInvalid();
    }
};

void ScreenReader::inEveryState(const std::function<void(const std::string&)>& look) {
    struct State {
        const char16_t* control;
        std::vector<std::function<void()>> steps;
    };
    const auto set = [this](TextView name, const Value& value) { return [=, this] { put(name, value); }; };
    const auto key = [this](int16_t code, int16_t shift = 0) {
        return [=, this] { platform.pressKey(code, shift); };
    };
    const auto ask = [this](TextView name, const std::vector<Value>& arguments = {}) {
        return [=, this] { call(name, arguments); };
    };
    const auto drop = ask(u"ShowPopUp");
    const auto edit = [this](int32_t type) {
        return [=, this] {
            call(u"ColTypeSet", {0, type});
            call(u"CellTextSet", {1, 0, Text(u"12.5")});
            call(u"GridSetFocus", {0, 1});
        };
    };
    const State states[] = {
        {u"UpDownTextBox", {set(u"Text", Text(u"7")), set(u"BuddyAlignment", 1), set(u"Enabled", false)}},
        {u"DateCalendar",
         {set(u"Text", Text(u"Tue 10 Nov 2026")), drop, key(key::left), key(key::tab), key(key::space),
          key(key::escape), key(key::down), key(key::tab, shift::shift), key(key::tab, shift::shift),
          key(key::tab, shift::shift), key(key::pageUp), set(u"Enabled", false)}},
        {u"ButtonPalette",
         {set(u"Caption", Text(u"&Colour")), drop, key(key::home), key(key::end), key(key::escape),
          set(u"Palette", 6), drop, set(u"Palette", 0), set(u"Enabled", false)}},
        {u"ButtonArrow", {}},
        {u"lns", {}},
        {u"PageTab",
         {set(u"ActiveTabs", Text(u"&Home,Help,Help,,A rather long name,Another one that is long")),
          set(u"ActiveTab", 6), set(u"ActiveTabs", u"\xE001,\xE002,A\xE002,A," + Text(600, u'x')),
          set(u"ActiveTabs", Text())}},
        {u"GridEdit",
         {[this] { fillGrid(); }, ask(u"GridSetFocus", {0, 1}), ask(u"GridSetFocus", {1, 2}), ask(u"BoxHide"),
          ask(u"BarHeaderCaptionSet", {0, Text(u"\xE001")}),
          ask(u"BarHeaderCaptionSet", {1, Text(u"\xE002")}), edit(1), edit(4), key(key::f4), edit(5), edit(6),
          ask(u"TopRowSet", {6}), set(u"BarHeader", false), ask(u"RowsSet", {0})}},
    };
    for (const bool mirrored : {false, true}) {
        host.readsRightToLeft = mirrored;
        for (const State& state : states) {
            begin(state.control);
            look(toUtf8(state.control));
            int32_t step = 0;
            for (const auto& prepare : state.steps) {
                prepare();
                look(toUtf8(state.control) + " after step " + std::to_string(++step));
            }
        }
    }
}

TEST_F(ScreenReader, FindsEveryControlInEveryStateAsCheckersWantIt) {
    inEveryState([this](const std::string& where) {
        for (const headless::HeadlessSurface* each : shownSurfaces()) Checker(treeOf(*each), where).check();
    });
}

// As the rules for readable texts count it: 1 for equal colours, 21 for black on white.
double contrast(Rgb one, Rgb other) {
    const auto luminance = [](Rgb colour) {
        const auto linear = [](uint8_t channel) {
            const double share = channel / 255.0;
            return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) +
               0.0722 * linear(colour.blue());
    };
    const double first = luminance(one), second = luminance(other);
    const double dark = std::min(first, second), light = std::max(first, second);
    return (light + 0.05) / (dark + 0.05);
}

// What is drawn on one surface, held against what lies below it.
class WeakEyes {
public:
    WeakEyes(headless::HeadlessSurface& surface, const std::function<Rgb(SystemColour)>& system)
        : surface_(surface), system_(system) {
        for (const Item& item : shownItems(surface)) {
            if (item.role == Role::scrollBar) scrollBars_.push_back(item.bounds);
            if (item.role == Role::listItem && item.row < 0) swatches_.push_back(item.bounds);
        }
    }

    // Texts, and how many shapes were looked at.
    int32_t look(const std::string& where) {
        surface_.invalidate({0, 0, 10000, 10000});
        const headless::RecordingCanvas drawn = surface_.paint();
        int32_t shapes = 0;
        for (auto at = drawn.items().begin(); at != drawn.items().end(); ++at) {
            const bool text = at->kind == headless::DrawnItem::Kind::text;
            // The two lines of a separator, whose colours are fixed.
            const Rgb light = system_(SystemColour::buttonHighlight);
            const auto under = at->rect.moved(0, at->rect.height());
            const auto next = std::next(at), before = at == drawn.items().begin() ? at : std::prev(at);
            const bool separator =
                (next != drawn.items().end() && next->rect == under && next->colour == light) ||
                (at->colour == light && at->rect == before->rect.moved(0, before->rect.height()));
            if (at->rect.empty() || separator || !(text || isShape(*at))) continue;
            const Rgb ground = below({drawn.items().begin(), at}, *at);
            // What is chosen has the colours that the system pairs; a piece may lie on another one.
            if (ground == system_(SystemColour::highlight) &&
                at->colour == system_(SystemColour::highlightText))
                continue;
            if (!text && at->colour == ground) continue;
            EXPECT_GE(contrast(at->colour, ground), text ? 4.5 : 3)
                << where << ": " << toUtf8(at->text) << " " << at->rect.left << "," << at->rect.top << " "
                << at->rect.width() << "x" << at->rect.height();
            shapes += !text;
        }
        return shapes;
    }

private:
    Rgb below(std::span<const headless::DrawnItem> items, const headless::DrawnItem& of) const {
        const PixelPoint middle{(of.rect.left + of.rect.right) / 2, (of.rect.top + of.rect.bottom) / 2};
        // A swatch has the colour that it offers: its edge sets it off from the panel.
        const auto swatch = std::find_if(swatches_.begin(), swatches_.end(), [&](const PixelRect& each) {
            return of.rect.intersected(each) == of.rect;
        });
        Rgb ground;
        for (const headless::DrawnItem& item : items) {
            const bool line = std::min(item.rect.width(), item.rect.height()) <= thickestLine;
            const bool own = of.kind == headless::DrawnItem::Kind::fill && swatch != swatches_.end() &&
                             item.rect.intersected(*swatch) == item.rect;
            if (item.kind == headless::DrawnItem::Kind::fill && !line && !own && item.rect.contains(middle))
                ground = item.colour;
        }
        return ground;
    }
    static bool lies(const PixelRect& rect, const std::vector<PixelRect>& in) {
        return std::any_of(in.begin(), in.end(), [&](const PixelRect& all) {
            return rect.intersected(all) == rect && rect != all;
        });
    }
    // The pieces that marks are made of, lines, and what is dragged in a scroll bar. Not the lines between
    // cells: they tell nothing that the places of the texts do not, and hosts choose their colour.
    bool isShape(const headless::DrawnItem& item) const {
        if (item.kind != headless::DrawnItem::Kind::fill) return false;
        constexpr int32_t greatestPiece = 9, shareOfShadow = 126;
        if (std::max(item.rect.width(), item.rect.height()) <= greatestPiece || lies(item.rect, scrollBars_))
            return true;
        return std::min(item.rect.width(), item.rect.height()) <= thickestLine &&
               item.colour !=
                   mixed(system_(SystemColour::buttonShadow), system_(SystemColour::window), shareOfShadow);
    }

    static constexpr int32_t thickestLine = 2;

    headless::HeadlessSurface& surface_;
    const std::function<Rgb(SystemColour)>& system_;
    std::vector<PixelRect> scrollBars_, swatches_;
};

TEST_F(ScreenReader, ShowsTextsMarksAndEdgesToWeakEyes) {
    const std::function<Rgb(SystemColour)> colours = [this](SystemColour index) { return system(index); };
    int32_t shapes = 0;
    inEveryState([&](const std::string& where) {
        if (control->table().member(u"Enabled") && get(u"Enabled") == Value(false)) return;
        for (headless::HeadlessSurface* each : shownSurfaces())
            shapes += WeakEyes(*each, colours).look(where);
    });
    EXPECT_GT(shapes, 1000) << "arrows, edges and other marks";
}

// What is drawn where, to be held against what was drawn there before.
std::vector<std::pair<PixelRect, uint32_t>> drawnIn(headless::HeadlessSurface& surface,
                                                    const PixelRect& place) {
    surface.invalidate({0, 0, 10000, 10000});
    std::vector<std::pair<PixelRect, uint32_t>> all;
    for (const headless::DrawnItem& item : surface.paint().items()) {
        if (!item.rect.intersected(place).empty())
            all.emplace_back(
                item.rect, item.kind == headless::DrawnItem::Kind::focusRect ? 1u << 31 : item.colour.value);
    }
    return all;
}

TEST_F(ScreenReader, SeesWhereTheFocusIsInEachLook) {
    constexpr int32_t reach = 4;  // of a frame around what has the focus
    const auto drop = [this] { call(u"ShowPopUp"); };
    const struct {
        const char16_t* control;
        std::function<void()> prepare;
        std::vector<int16_t> keys;
    } cases[] = {
        {u"UpDownTextBox", [] {}, {}},
        {u"DateCalendar", [this] { put(u"Text", Text(u"Tue 10 Nov 2026")); }, {}},
        {u"DateCalendar",
         [&, this] {
             put(u"Text", Text(u"Tue 10 Nov 2026"));
             drop();
         },
         {key::left, key::tab, key::tab, key::tab, key::tab, key::tab}},
        {u"ButtonPalette", [] {}, {}},
        {u"ButtonPalette", drop, {key::home, key::right, key::end, key::down}},
        {u"PageTab", [this] { put(u"ActiveTabs", Text(u"Home,Help,Video")); }, {key::right}},
        {u"GridEdit",
         [this] {
             call(u"ColsSet", {3});
             call(u"RowsSet", {4});
             call(u"GridFocusShow");
         },
         {key::down, key::right}},
    };
    for (const bool highContrast : {false, true}) {
        platform.appearance().setHighContrast(highContrast);
        for (const auto& each : cases) {
            SCOPED_TRACE(toUtf8(each.control) + (highContrast ? " in high contrast" : ""));
            begin(each.control);
            each.prepare();
            headless::HeadlessSurface* shown = open() ? panel() : platform.surface(control->window());
            if (each.keys.empty()) {
                const auto with = drawnIn(*shown, {0, 0, 1000, 1000});
                platform.pressHost();
                control->deactivate();
                activate({0, 0, 300, 120});
                EXPECT_NE(drawnIn(*platform.surface(control->window()), {0, 0, 1000, 1000}), with);
            }
            for (const int16_t code : each.keys) {
                const AccessibleTree& things = treeOf(*shown);
                const AccessibleId from = things.focus();
                auto before = drawnIn(*shown, {0, 0, 1000, 1000});
                platform.pressKey(code);
                const AccessibleId to = things.focus();
                EXPECT_NE(from, to);
                const PixelRect place = things.item(to).bounds.inset(-reach);
                std::erase_if(before,
                              [&](const auto& item) { return item.first.intersected(place).empty(); });
                EXPECT_NE(drawnIn(*shown, place), before) << toUtf8(things.item(to).name);
            }
        }
    }
    platform.appearance().setHighContrast(false);
}

TEST_F(ScreenReader, AsksAMillionRowsForOneCellAtATime) {
    begin(u"GridEdit");
    call(u"RowsSet", {1'000'000});
    call(u"CellTextSet", {987'654, 1, Text(u"here")});
    const AccessibleId cell = tree().cell(tree().root(), 987'654, 1);
    EXPECT_EQ(tree().item(cell).value, u"here");
    EXPECT_TRUE(tree().item(cell).is(Item::offScreen));
    EXPECT_EQ(tree().indexInParent(tree().parent(cell)), 987'654);
    // Asked as often as there are rows, it would be noticed if each cost more than a few steps.
    for (int32_t row = 0; row < 20'000; ++row) ASSERT_TRUE(tree().child(tree().root(), row * 50));
    EXPECT_TRUE(tree().act(cell, {Kind::show, {}, 0}));
    EXPECT_FALSE(tree().item(cell).is(Item::offScreen));
    // Whoever walks through all meets only what is in sight.
    call(u"ColsSet", {5000});
    call(u"ColumnVisible", {2, 0, false});
    call(u"ColumnVisible", {3, 0, false});
    for (const AccessibleId& of : {tree().root(), tree().parent(cell)}) {
        const auto walk = [&](int32_t from, int32_t by) {
            std::vector<AccessibleId> met;
            for (AccessibleId at = tree().childInSight(of, from, by); at;
                 at = tree().childInSight(of, tree().indexInParent(at) + by, by))
                met.push_back(at);
            return met;
        };
        const auto met = walk(0, 1);
        auto back = walk(tree().childCount(of) - 1, -1);
        std::reverse(back.begin(), back.end());
        EXPECT_EQ(met, back);
        EXPECT_LT(met.size(), 20u);
        EXPECT_EQ(std::count(met.begin(), met.end(), of == tree().root() ? tree().parent(cell) : cell), 1);
        for (const AccessibleId& each : met) EXPECT_FALSE(tree().item(each).is(Item::offScreen));
    }
    call(u"RowsSet", {5});
    EXPECT_FALSE(tree().has(cell));
    EXPECT_EQ(tree().item(cell).role, Role::none);
}

TEST_F(ScreenReader, DoesWithEachControlWhatAPersonDoes) {
    const auto onPanel = [this](TextView name) -> AccessibleId { return find(treeOf(*panel()), name); };
    begin(u"UpDownTextBox");
    put(u"Interval", 2.0);
    platform.surface(control->window())->setLabel(u"&R&&D costs: ");
    EXPECT_EQ(tree().item(tree().root()).name, u"R&D costs");
    EXPECT_EQ(tree().item(tree().root()).accessKey, u"Alt+R");
    host.take();
    EXPECT_TRUE(tree().act(find(tree(), u"More"), {}));
    EXPECT_EQ(host.takeEvents(), (Journal{"DownClick", "Change"}));
    EXPECT_TRUE(tree().act(tree().root(), {Kind::set, {}, 99}));
    EXPECT_EQ(text(u"Text"), "10") << "the greatest";
    put(u"AllowDecpoint", true);
    EXPECT_TRUE(tree().act(tree().root(), {Kind::set, {}, 2.5}));
    EXPECT_EQ(text(u"Text"), "2.5");

    begin(u"PageTab");
    put(u"ActiveTabs", Text(u"Home,&Help"));
    put(u"ActiveTab", 1);
    host.take();
    EXPECT_TRUE(tree().act(find(tree(), u"Help"), {Kind::select, {}, 0}));
    EXPECT_EQ(host.takeEvents(), (Journal{"Click &Help", "Show"}));

    begin(u"ButtonPalette");
    EXPECT_TRUE(tree().act(tree().root(), {Kind::expand, {}, 0}));
    ASSERT_TRUE(open());
    EXPECT_TRUE(treeOf(*panel()).act(onPanel(u"PASTEL COPPER"), {Kind::select, {}, 0}));
    EXPECT_FALSE(open());
    EXPECT_EQ(text(u"Text"), "PASTEL COPPER");

    begin(u"DateCalendar");
    put(u"Text", Text(u"Tue 10 Nov 2026"));
    EXPECT_TRUE(tree().act(find(tree(), u"Open the calendar"), {}));
    ASSERT_TRUE(open());
    EXPECT_TRUE(treeOf(*panel()).act(onPanel(u"Next month"), {}));
    EXPECT_EQ(treeOf(*panel()).item(onPanel(u"Year")).value, u"2026");
    EXPECT_TRUE(treeOf(*panel()).act(onPanel(u"3 December, 2026"), {}));
    EXPECT_FALSE(open());
    EXPECT_EQ(text(u"Text").substr(0, 14), "Thu 3 Dec 2026");

    fillGrid();
    const AccessibleTree& grid = tree();
    const auto cell = [&](int32_t row, int32_t col) { return grid.cell(grid.root(), row, col); };
    EXPECT_EQ(grid.item(cell(2, 1)).name, u"Same, column 2, row 3");
    EXPECT_TRUE(grid.act(cell(2, 1), {Kind::toggle, {}, 0}));
    EXPECT_TRUE(grid.item(cell(2, 1)).is(Item::checked));
    EXPECT_TRUE(grid.act(cell(4, 0), {Kind::write, u"Paris", 0}));
    EXPECT_EQ(toText(call(u"CellTextRead", {4, 0})), u"Paris");
    EXPECT_FALSE(grid.act(cell(4, 2), {Kind::write, u"x", 0})) << "read only";
    call(u"GridSetFocus", {0, 5});
    ASSERT_EQ(grid.childCount(cell(5, 0)), 1) << "its editor";
    EXPECT_EQ(grid.item(grid.child(cell(5, 0), 0)).name, grid.item(cell(5, 0)).name);
    call(u"BoxHide");
    host.take();
    EXPECT_TRUE(grid.act(grid.columnHeader(grid.root(), 0), {}));
    EXPECT_EQ(host.takeEvents(), (Journal{"ChangeEdited", "SortClick"}));
    call(u"GridColSort", {0});
    EXPECT_FALSE(grid.item(grid.columnHeader(grid.root(), 0)).help.empty());
    put(u"BarHeader", false);
    EXPECT_FALSE(grid.columnHeader(grid.root(), 0));
}

TEST_F(ScreenReader, HearsEachChangeOnceAndInOrder) {
    platform.listen(true);
    begin(u"UpDownTextBox");
    put(u"Interval", 1.0);
    EXPECT_EQ(pressing(key::up), "value UpDownTextBox: 2");
    EXPECT_EQ(putting(u"Enabled", false), "state UpDownTextBox");

    begin(u"PageTab");
    put(u"ActiveTabs", Text(u"Home,Help,Video"));
    EXPECT_EQ(heard(), "focus PageTab; structure PageTab");
    put(u"ActiveTab", 1);
    EXPECT_EQ(pressing(key::right), "selection Help; focus Help");
    EXPECT_EQ(putting(u"ActiveTab", 2), "") << "it is there already";
    EXPECT_EQ(calling(u"AddTab", {Text(u"More")}), "structure PageTab; selection More; focus More");

    begin(u"ButtonPalette");
    EXPECT_EQ(calling(u"ShowPopUp"), "expanded Button open; focus EARTH RED");
    const std::string first = toUtf8(ColourPalette(enQUILLPalette::QP24X8).baseCells()[0].Name());
    EXPECT_EQ(pressing(key::home), "focus " + first);
    EXPECT_EQ(pressing(key::enter), "expanded Button closed; value Button: " + first + "; focus Button");
    EXPECT_EQ(putting(u"Palette", 6), "value Button: " + text(u"Text"));
    EXPECT_EQ(putting(u"Color", 0x0000FF), "value Button: RED") << "what it shows";
    call(u"ShowPopUp");
    platform.pressKey(key::home);
    EXPECT_TRUE(pressing(key::down).ends_with("; structure Colors")) << "the shades of another colour";

    begin(u"DateCalendar");
    put(u"Text", Text(u"Tue 10 Nov 2026"));
    EXPECT_EQ(calling(u"ShowPopUp"), "expanded DateCalendar open; focus 10 November, 2026");
    EXPECT_EQ(pressing(key::left), "selection 9 November, 2026; focus 9 November, 2026");
    EXPECT_EQ(pressing(key::tab), "focus Month");
    EXPECT_EQ(pressing(key::space), "expanded Month open; selection November; focus November");
    EXPECT_EQ(pressing(key::escape), "expanded Month closed; focus Month");
    platform.pressKey(key::tab);
    EXPECT_EQ(pressing(key::up),
              "value Year: 2027; name November, 2027; structure Days; selection 9 November, 2027");
    for (const int16_t code : {key::down, key::tab, key::space}) platform.pressKey(code);
    EXPECT_EQ(pressing(key::space), "") << "it is today already";
    EXPECT_EQ(pressing(key::escape), "expanded DateCalendar closed; focus DateCalendar");
    platform.type(u"1");
    EXPECT_EQ(heard(), "value DateCalendar: 1Sat 14 Nov 2026") << "what is written there";
    platform.listen(false);
    EXPECT_EQ(calling(u"ShowPopUp"), "") << "nobody listens";
}

TEST_F(ScreenReader, HearsOfTheCellsThatAPersonSees) {
    platform.listen(true);
    fillGrid();
    call(u"GridFocusShow");
    call(u"GridSetFocus", {2, 0});  // a column without an editor
    EXPECT_EQ(pressing(key::down), "selection Same, column 3, row 2; focus Same, column 3, row 2");
    platform.setFocus(0);
    EXPECT_EQ(heard(), "");
    control->focus();
    EXPECT_EQ(heard(), "focus Same, column 3, row 2") << "where a person finds it again";
    EXPECT_EQ(calling(u"CellTextSet", {1, 2, Text(u"new")}), "value Same, column 3, row 2: new");
    EXPECT_EQ(calling(u"CellColorSetx", {255, 1, 2}), "") << "nobody hears a colour";
    EXPECT_EQ(pressing(key::down, shift::shift), "extended Same, column 3, row 3");
    platform.pressKey(key::up, shift::shift);
    EXPECT_EQ(pressing(key::insert), "structure GridEdit; value Same, column 3, row 2: ");
    EXPECT_EQ(pressing(key::deleteKey), "structure GridEdit; value Same, column 3, row 2: new");
    EXPECT_EQ(calling(u"CellTextSet", {11, 2, Text(u"far below")}),
              "selection Same, column 3, row 12; focus Same, column 3, row 12")
        << "the current cell went there, and the text does not show";
    for (int32_t row = 0; row < 100; ++row) call(u"RowAdd", {Text(u"more"), 3});
    EXPECT_EQ(heard(), "selection Same, column 3, row 4; focus Same, column 3, row 4; structure GridEdit");
    for (int32_t col = 0; col < 3; ++col) {
        for (int32_t row = 0; row < 4; ++row) call(u"CellTextSet", {row, col, Text(u"much")});
    }
    const Journal much = platform.takeHeard();
    const auto heardOf = [&much](const char* what) {
        return std::count_if(much.begin(), much.end(),
                             [what](const std::string& line) { return line.starts_with(what); });
    };
    EXPECT_EQ(heardOf("value"), 8);
    EXPECT_EQ(heardOf("toggled"), 4) << "the column of check boxes";
    for (const auto& [col, caption] : {std::pair(2, u"Country"), {2, u"Country"}, {99, u"Nowhere"}})
        call(u"BarHeaderCaptionSet", {col, Text(caption)});
    EXPECT_EQ(heard(), "name Country");
    EXPECT_EQ(putting(u"AllowGridEdit", false), "state Country, row 4") << "nobody writes there any more";
    EXPECT_EQ(calling(u"CellTextSet", {4, 1, Text(u"a")}),
              "selection Same, row 5; toggled Same, row 5 on; focus Same, row 5");
    EXPECT_TRUE(calling(u"TopRowSet", {7}).starts_with("scrolled down GridEdit;"));
}

TEST_F(ScreenReader, HearsNothingWhileTheGridPaintsNothing) {
    platform.listen(true);
    fillGrid();
    call(u"GridFocusShow");
    call(u"RowsSet", {100});
    call(u"GridSetFocus", {2, 3});
    heard();
    call(u"GridRedraw", {false});
    for (int32_t row = 0; row < 5; ++row) {
        call(u"CellTextSet", {row, 2, Text(u"quiet")});
        call(u"RowDel", {4});
        call(u"RowSetFocus", {row});
    }
    call(u"GridHide");
    call(u"GridShow");
    call(u"TopRowSet", {3});
    const PixelRect place = platform.surface(control->window())->bounds();
    control->setBounds({place.left, place.top, place.right, place.bottom - 10});
    control->setBounds(place);
    call(u"TopRowSet", {0});
    call(u"GridColSort", {2});
    call(u"GridColSort", {2});
    call(u"RowSetFocus", {4});
    call(u"BarHeaderCaptionSet", {2, Text(u"Land")});
    put(u"AllowGridEdit", false);
    put(u"BarHeader", false);
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(calling(u"GridRedraw", {true}), "structure GridEdit; focus Land, row 5");
}

TEST_F(ScreenReader, HearsOfWhatIsPressedByMouse) {
    platform.listen(true);
    const auto middle = [this](NativeWindow window, TextView name) {
        const AccessibleTree& on = treeOf(*platform.surface(window));
        const PixelRect place = on.item(find(on, name)).bounds;
        return PixelPoint{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    };
    const auto press = [&](NativeWindow window, TextView name) {
        heard();
        platform.click(window, middle(window, name));
        const Journal told = platform.takeHeard();
        EXPECT_EQ(std::count(told.begin(), told.end(), "invoked " + toUtf8(name)), 1) << toUtf8(name);
    };
    begin(u"DateCalendar");
    put(u"Text", Text(u"Tue 10 Nov 2026"));
    call(u"ShowPopUp");
    ASSERT_TRUE(panel());
    const NativeWindow calendar = panel()->id();
    press(calendar, u"Next month");
    press(calendar, u"3 December, 2026");
    fillGrid();
    const NativeWindow grid = control->window();
    press(grid, u"City");
    press(grid, u"City, row 2");
    using Mouse = MouseEvent::Kind;
    heard();
    platform.mouse(grid, {Mouse::down, button::left, 0, middle(grid, u"City, row 1")});
    platform.mouse(grid, {Mouse::move, button::left, 0, middle(grid, u"City, row 4")});
    platform.mouse(grid, {Mouse::up, button::left, 0, middle(grid, u"City, row 4")});
    EXPECT_EQ(heard().find("invoked"), std::string::npos) << "several were selected";
}

TEST_F(ScreenReader, HearsWhereTheFocusIsWhenTheCellThatHadItIsAnother) {
    platform.listen(true);
    fillGrid();
    call(u"GridFocusShow");
    call(u"GridSetFocus", {0, 2});
    EXPECT_EQ(calling(u"GridSetFocus", {1, 2}),
              "selection Same, column 2, row 3; focus Same, column 2, row 3")
        << "the check box in the cell";
    call(u"CellTextSet", {9, 2, Text(u"z")});
    call(u"GridSetFocus", {2, 9});
    EXPECT_EQ(calling(u"GridColSort", {2}),
              "structure GridEdit; scrolled down GridEdit; value Up and down: 100; "
              "state Same, column 3; focus Same, column 3, row 12");
    EXPECT_EQ(calling(u"GridHide"), "structure GridEdit; focus GridEdit");
    EXPECT_EQ(calling(u"GridShow"), "structure GridEdit; focus Same, column 3, row 12");
    call(u"ColSetFocus", {0});
    const std::string moved = calling(u"GridColSort", {0});
    EXPECT_LT(moved.find("state Same, column 3"), moved.find("state City")) << "the mark has gone from there";
    EXPECT_TRUE(putting(u"BarHeader", false).starts_with("structure GridEdit"));
    EXPECT_EQ(calling(u"RowsSet", {0}), "structure GridEdit; focus GridEdit");

    fillGrid();
    call(u"GridFocusShow");
    call(u"ColTypeSet", {0, 5});
    call(u"CellTextSet", {0, 0, Text(u"12.5")});
    call(u"BoxHide");
    EXPECT_EQ(pressing(key::f2), "") << "an editor that opens is no news beside its own";
    platform.type(u"7");
    EXPECT_EQ(pressing(key::escape), "value City, row 1: 7; focus City, row 1");

    begin(u"PageTab");
    put(u"ActiveTabs", Text(u"Home,Help"));
    put(u"ActiveTab", 1);
    EXPECT_EQ(putting(u"ActiveTabs", Text(u"One,Two")), "structure PageTab; focus PageTab");
}

}  // namespace
}  // namespace obk::test
