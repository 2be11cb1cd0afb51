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
    static bool inside(const PixelRect& inner, const PixelRect& outer) {
        return inner.intersected(outer) == inner;
    }

    void look(const AccessibleId& id) {
        const Item item = tree_.item(id);
        const AccessibleId around = tree_.parent(id);
        const Item outer = tree_.item(around);
        const testing::ScopedTrace trace(__FILE__, __LINE__,
                                         where_ + ": " + toUtf8(item.name) + " in " + toUtf8(outer.name));
        EXPECT_NE(item.role, Role::none);
        EXPECT_EQ(item.bounds.empty(), item.is(Item::offScreen));
        if (around) {
            EXPECT_TRUE(item.bounds.empty() || outer.is(Item::offScreen) ||
                        inside(item.bounds, outer.bounds));
            EXPECT_FALSE(!item.bounds.empty() && item.bounds == outer.bounds && outer.role != Role::cell)
                << "it hides what it is in, as only an editor does";
            EXPECT_EQ(tree_.child(around, tree_.indexInParent(id)), id);
        }
        name(item);
        if (item.is(Item::disabled)) {
            EXPECT_FALSE(item.is(Item::focusable) || item.is(Item::focused) || item.actions);
        }
        if (item.is(Item::focused)) {
            EXPECT_TRUE(item.is(Item::focusable) || id == tree_.root());
        }
        EXPECT_NE(item.help, item.name);
        EXPECT_LE(item.position, item.setSize);
        patterns(id, item, outer);
        siblings(id);
        if (!item.bounds.empty() && tree_.childCount(id) == 0) hit(id, item);
    }

    static void name(const Item& item) {
        EXPECT_FALSE(trimmed(item.name).empty());
        EXPECT_LE(item.name.size(), 512u);
        static const std::map<Role, TextView> roles = {
            {Role::button, u"button"},    {Role::edit, u"edit"}, {Role::list, u"list"},
            {Role::pageTab, u"tab item"}, {Role::cell, u"cell"}, {Role::header, u"header"}};
        if (const auto role = roles.find(item.role); role != roles.end()) {
            EXPECT_FALSE(equalIgnoringCase(item.name, role->second));
        }
        EXPECT_EQ(
            std::count_if(item.name.begin(), item.name.end(),
                          [](char16_t unit) { return unit < u' ' || (unit >= 0xE000 && unit <= 0xF8FF); }),
            0);
    }

    void patterns(const AccessibleId& id, const Item& item, const Item& outer) const {
        const bool enabled = !item.is(Item::disabled);
        if (item.role == Role::button) {
            EXPECT_EQ(item.can(Kind::press), enabled);
            EXPECT_FALSE(item.can(Kind::toggle) || item.is(Item::expandable));
        }
        if (item.role == Role::comboBox || item.role == Role::splitButton) {
            EXPECT_TRUE(item.is(Item::expandable));
        }
        if (item.role == Role::edit) {
            EXPECT_TRUE(item.is(Item::valued));
        }
        if (item.role == Role::listItem || item.role == Role::pageTab) {
            EXPECT_TRUE(item.is(Item::selectable));
            EXPECT_EQ(item.can(Kind::select), enabled);
        }
        if (item.role == Role::cell || (item.role == Role::listItem && outer.rows > 0)) {
            EXPECT_EQ(tree_.cell(tree_.table(id), item.row, item.col), id);
            EXPECT_LT(item.row, tree_.item(tree_.table(id)).rows);
            EXPECT_EQ(item.is(Item::readOnly), item.role == Role::cell && !item.can(Kind::write) &&
                                                   !item.can(Kind::toggle) && enabled);
        }
        if (outer.role == Role::cell) {
            EXPECT_EQ(item.name, outer.name) << "an editor is called as what it edits";
        }
        if (item.role == Role::header) {
            EXPECT_EQ(tree_.childCount(id), outer.cols);
        }
        if (item.role == Role::pageTabList) {
            EXPECT_LE(tree_.selection(id).size(), 1u);
        }
        if (item.role == Role::spinner) {
            ASSERT_TRUE(item.range.has_value());
            EXPECT_LE(item.range->value, item.range->most);
            EXPECT_EQ(tree_.childCount(id), 3) << "an edit and two buttons";
        }
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
    void checkAll(const std::string& where) {
        for (const NativeWindow id : platform.windows()) {
            const headless::HeadlessSurface* const surface = platform.surface(id);
            if (surface && surface->visible()) Checker(treeOf(*surface), where).check();
        }
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
    Journal heard() { return platform.takeHeard(); }
    void inEveryState(const std::function<void(const std::string&)>& look);
    void begin(const char16_t* name) {
        place(*library().control(name));
        activate({0, 0, 300, 120});
        control->focus();
    }
    void fillGrid() {
        begin(u"GridEdit");
        call(u"ColsSet", {int32_t{4}});
        call(u"RowsSet", {int32_t{12}});
        for (const int32_t col : {0, 1, 2})
            call(u"BarHeaderCaptionSet", {col, Text(col == 0 ? u"City" : u"Same")});
        call(u"BarHeaderCaptionSet", {int32_t{3}, u"Long\n\xE001 " + Text(600, u'x')});
        call(u"ColTypeSet", {int32_t{1}, int32_t{3}});
        call(u"ColTypeSet", {int32_t{2}, int32_t{2}});
        for (int32_t row = 0; row < 12; ++row)
            call(u"CellTextSet", {row, int32_t{0}, u"London " + decimalText(row)});
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
    const auto drop = [this] { call(u"ShowPopUp"); };
    const auto edit = [this](int32_t type) {
        return [=, this] {
            call(u"ColTypeSet", {int32_t{0}, type});
            call(u"CellTextSet", {int32_t{1}, int32_t{0}, Text(u"12.5")});
            call(u"GridSetFocus", {int32_t{0}, int32_t{1}});
        };
    };
    const State states[] = {
        {u"UpDownTextBox",
         {set(u"Text", Text(u"7")), set(u"BuddyAlignment", int32_t{1}), set(u"Enabled", false)}},
        {u"DateCalendar",
         {set(u"Text", Text(u"Tue 10 Nov 2026")), drop, key(key::left), key(key::tab), key(key::space),
          key(key::escape), key(key::down), key(key::tab, shift::shift), key(key::tab, shift::shift),
          key(key::tab, shift::shift), key(key::pageUp), set(u"Enabled", false)}},
        {u"ButtonPalette",
         {set(u"Caption", Text(u"&Colour")), drop, key(key::home), key(key::end), key(key::escape),
          set(u"Palette", int32_t{6}), drop, set(u"Palette", int32_t{0}), set(u"Enabled", false)}},
        {u"ButtonArrow", {}},
        {u"lns", {}},
        {u"PageTab",
         {set(u"ActiveTabs", Text(u"&Home,Help,Help,,A rather long name,Another one that is long")),
          set(u"ActiveTab", int32_t{6}), set(u"ActiveTabs", u"\xE001,\xE002,A\xE002,A," + Text(600, u'x')),
          set(u"ActiveTabs", Text())}},
        {u"GridEdit",
         {[this] { fillGrid(); },
          [this] {
              call(u"GridSetFocus", {int32_t{0}, int32_t{1}});
          },
          [this] {
              call(u"GridSetFocus", {int32_t{1}, int32_t{2}});
          },
          [this] {
              call(u"BoxHide");
              for (const int32_t col : {0, 1})
                  call(u"BarHeaderCaptionSet", {col, Text(1, static_cast<char16_t>(0xE001 + col))});
          },
          edit(1), edit(4), key(key::f4), edit(5), edit(6), [this] { call(u"TopRowSet", {int32_t{6}}); },
          set(u"BarHeader", false), [this] { call(u"RowsSet", {int32_t{0}}); }}},
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
    inEveryState([this](const std::string& where) { checkAll(where); });
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
        for (const NativeWindow id : platform.windows()) {
            headless::HeadlessSurface* const surface = platform.surface(id);
            if (surface && surface->visible()) shapes += WeakEyes(*surface, colours).look(where);
        }
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
             call(u"ColsSet", {int32_t{3}});
             call(u"RowsSet", {int32_t{4}});
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
    call(u"RowsSet", {int32_t{1'000'000}});
    call(u"CellTextSet", {int32_t{987'654}, int32_t{1}, Text(u"here")});
    const AccessibleId cell = tree().cell(tree().root(), 987'654, 1);
    EXPECT_EQ(tree().item(cell).value, u"here");
    EXPECT_TRUE(tree().item(cell).is(Item::offScreen));
    EXPECT_EQ(tree().indexInParent(tree().parent(cell)), 987'654);
    // Asked as often as there are rows, it would be noticed if each cost more than a few steps.
    for (int32_t row = 0; row < 20'000; ++row) ASSERT_TRUE(tree().child(tree().root(), row * 50));
    EXPECT_TRUE(tree().act(cell, {Kind::show, {}, 0}));
    EXPECT_FALSE(tree().item(cell).is(Item::offScreen));
    // Whoever walks through all meets only what is in sight.
    call(u"ColsSet", {int32_t{5000}});
    call(u"ColumnVisible", {int32_t{2}, int32_t{0}, false});
    call(u"ColumnVisible", {int32_t{3}, int32_t{0}, false});
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
    call(u"RowsSet", {int32_t{5}});
    EXPECT_FALSE(tree().has(cell));
    EXPECT_EQ(tree().item(cell).role, Role::none);
}

TEST_F(ScreenReader, DoesWithEachControlWhatAPersonDoes) {
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
    put(u"ActiveTab", int32_t{1});
    host.take();
    EXPECT_EQ(tree().item(find(tree(), u"Help")).accessKey, u"Alt+H");
    EXPECT_TRUE(tree().act(find(tree(), u"Help"), {Kind::select, {}, 0}));
    EXPECT_EQ(host.takeEvents(), (Journal{"Click &Help", "Show"}));

    begin(u"ButtonPalette");
    EXPECT_TRUE(tree().act(tree().root(), {Kind::expand, {}, 0}));
    ASSERT_TRUE(open());
    EXPECT_TRUE(treeOf(*panel()).act(find(treeOf(*panel()), u"PASTEL COPPER"), {Kind::select, {}, 0}));
    EXPECT_FALSE(open());
    EXPECT_EQ(text(u"Text"), "PASTEL COPPER");

    begin(u"DateCalendar");
    put(u"Text", Text(u"Tue 10 Nov 2026"));
    EXPECT_TRUE(tree().act(find(tree(), u"Open the calendar"), {}));
    ASSERT_TRUE(open());
    EXPECT_TRUE(treeOf(*panel()).act(find(treeOf(*panel()), u"Next month"), {}));
    EXPECT_EQ(treeOf(*panel()).item(find(treeOf(*panel()), u"Year")).value, u"2026");
    EXPECT_TRUE(treeOf(*panel()).act(find(treeOf(*panel()), u"3 December, 2026"), {}));
    EXPECT_FALSE(open());
    EXPECT_EQ(text(u"Text").substr(0, 14), "Thu 3 Dec 2026");

    fillGrid();
    host.take();
    const AccessibleId check = tree().cell(tree().root(), 2, 1);
    EXPECT_EQ(tree().item(check).name, u"Same, column 2, row 3");
    EXPECT_FALSE(tree().item(check).is(Item::checked));
    EXPECT_TRUE(tree().act(check, {Kind::toggle, {}, 0}));
    EXPECT_TRUE(tree().item(check).is(Item::checked));
    EXPECT_TRUE(tree().act(tree().cell(tree().root(), 4, 0), {Kind::write, u"Paris", 0}));
    EXPECT_EQ(toUtf8(toText(call(u"CellTextRead", {int32_t{4}, int32_t{0}})).value_or(u"")), "Paris");
    EXPECT_FALSE(tree().act(tree().cell(tree().root(), 4, 2), {Kind::write, u"x", 0})) << "read only";
    host.take();
    const AccessibleId open = tree().cell(tree().root(), 5, 0);
    call(u"GridSetFocus", {int32_t{0}, int32_t{5}});
    ASSERT_EQ(tree().childCount(open), 1) << "its editor";
    EXPECT_EQ(tree().item(tree().child(open, 0)).name, tree().item(open).name);
    call(u"BoxHide");
    host.take();
    EXPECT_TRUE(tree().act(tree().columnHeader(tree().root(), 0), {}));
    EXPECT_EQ(host.takeEvents(), (Journal{"ChangeEdited", "SortClick"}));
    call(u"GridColSort", {int32_t{0}});
    EXPECT_FALSE(tree().item(tree().columnHeader(tree().root(), 0)).help.empty());
    put(u"BarHeader", false);
    EXPECT_FALSE(tree().columnHeader(tree().root(), 0));
}

TEST_F(ScreenReader, HearsEachChangeOnceAndInOrder) {
    platform.listen(true);
    begin(u"UpDownTextBox");
    put(u"Interval", 1.0);
    heard();
    platform.pressKey(key::up);
    EXPECT_EQ(heard(), Journal{"value UpDownTextBox: 2"});
    put(u"Enabled", false);
    EXPECT_EQ(heard(), Journal{"state UpDownTextBox"});

    begin(u"PageTab");
    put(u"ActiveTabs", Text(u"Home,Help,Video"));
    EXPECT_EQ(heard(), (Journal{"focus PageTab", "structure PageTab"}));
    put(u"ActiveTab", int32_t{1});
    heard();
    platform.pressKey(key::right);
    EXPECT_EQ(heard(), (Journal{"selection Help", "focus Help"}));
    put(u"ActiveTab", int32_t{2});
    EXPECT_EQ(heard(), Journal()) << "it is there already";
    call(u"AddTab", {Text(u"More")});
    EXPECT_EQ(heard(), (Journal{"structure PageTab", "selection More", "focus More"}));

    begin(u"ButtonPalette");
    heard();
    call(u"ShowPopUp");
    EXPECT_EQ(heard(), (Journal{"expanded Button open", "focus EARTH RED"}));
    platform.pressKey(key::home);
    const Text first = ColourPalette(enQUILLPalette::QP24X8).baseCells()[0].Name();
    EXPECT_EQ(heard(), Journal{"focus " + toUtf8(first)});
    platform.pressKey(key::enter);
    EXPECT_EQ(heard(), (Journal{"expanded Button closed", "value Button: " + toUtf8(first), "focus Button"}));
    put(u"Palette", int32_t{6});
    EXPECT_EQ(heard(), Journal{"value Button: " + text(u"Text")});
    put(u"Color", int32_t{0x0000FF});
    EXPECT_EQ(heard(), Journal{"value Button: RED"}) << "what it shows";
    call(u"ShowPopUp");
    platform.pressKey(key::home);
    heard();
    platform.pressKey(key::down);
    EXPECT_EQ(heard().back(), "structure Colors") << "the shades of another colour";

    begin(u"DateCalendar");
    put(u"Text", Text(u"Tue 10 Nov 2026"));
    heard();
    call(u"ShowPopUp");
    EXPECT_EQ(heard(), (Journal{"expanded DateCalendar open", "focus 10 November, 2026"}));
    platform.pressKey(key::left);
    EXPECT_EQ(heard(), (Journal{"selection 9 November, 2026", "focus 9 November, 2026"}));
    platform.pressKey(key::tab);
    EXPECT_EQ(heard(), Journal{"focus Month"});
    platform.pressKey(key::space);
    EXPECT_EQ(heard(), (Journal{"expanded Month open", "selection November", "focus November"}));
    platform.pressKey(key::escape);
    EXPECT_EQ(heard(), (Journal{"expanded Month closed", "focus Month"}));
    platform.pressKey(key::tab);
    heard();
    platform.pressKey(key::up);
    EXPECT_EQ(heard(), (Journal{"value Year: 2027", "name November, 2027", "structure Days",
                                "selection 9 November, 2027"}));
    platform.pressKey(key::down);
    platform.pressKey(key::tab);
    platform.pressKey(key::space);
    heard();
    platform.pressKey(key::space);
    EXPECT_EQ(heard(), Journal()) << "it is today already";
    platform.pressKey(key::escape);
    EXPECT_EQ(heard(), (Journal{"expanded DateCalendar closed", "focus DateCalendar"}));
    platform.type(u"1");
    EXPECT_EQ(heard(), Journal{"value DateCalendar: 1Sat 14 Nov 2026"}) << "what is written there";
    platform.listen(false);
    call(u"ShowPopUp");
    EXPECT_EQ(heard(), Journal()) << "nobody listens";
}

TEST_F(ScreenReader, HearsOfTheCellsThatAPersonSees) {
    platform.listen(true);
    fillGrid();
    call(u"GridFocusShow");
    call(u"GridSetFocus", {int32_t{2}, int32_t{0}});  // a column without an editor
    heard();
    platform.pressKey(key::down);
    EXPECT_EQ(heard(), (Journal{"selection Same, column 3, row 2", "focus Same, column 3, row 2"}));
    platform.setFocus(0);
    EXPECT_EQ(heard(), Journal());
    control->focus();
    EXPECT_EQ(heard(), Journal{"focus Same, column 3, row 2"}) << "where a person finds it again";
    call(u"CellTextSet", {int32_t{1}, int32_t{2}, Text(u"new")});
    EXPECT_EQ(heard(), Journal{"value Same, column 3, row 2: new"});
    call(u"CellColorSetx", {int32_t{255}, int32_t{1}, int32_t{2}});
    EXPECT_EQ(heard(), Journal()) << "nobody hears a colour";
    platform.pressKey(key::down, shift::shift);
    EXPECT_EQ(heard(), Journal{"extended Same, column 3, row 3"});
    platform.pressKey(key::up, shift::shift);
    heard();
    platform.pressKey(key::insert);
    EXPECT_EQ(heard(), (Journal{"structure GridEdit", "value Same, column 3, row 2: "}));
    platform.pressKey(key::deleteKey);
    EXPECT_EQ(heard(), (Journal{"structure GridEdit", "value Same, column 3, row 2: new"}));
    call(u"CellTextSet", {int32_t{11}, int32_t{2}, Text(u"far below")});
    EXPECT_EQ(heard(), (Journal{"selection Same, column 3, row 12", "focus Same, column 3, row 12"}))
        << "the current cell went there, and the text does not show";
    for (int32_t row = 0; row < 100; ++row) call(u"RowAdd", {Text(u"more"), int32_t{3}});
    EXPECT_EQ(heard(), (Journal{"selection Same, column 3, row 4", "focus Same, column 3, row 4",
                                "structure GridEdit"}));
    call(u"GridRedraw", {false});
    for (int32_t row = 0; row < 5; ++row) {
        call(u"CellTextSet", {row, int32_t{2}, Text(u"quiet")});
        call(u"RowDel", {int32_t{4}});
        call(u"RowSetFocus", {row});
    }
    call(u"GridHide");
    call(u"GridShow");
    call(u"TopRowSet", {int32_t{3}});
    const PixelRect place = platform.surface(control->window())->bounds();
    control->setBounds({place.left, place.top, place.right, place.bottom - 10});
    control->setBounds(place);
    call(u"TopRowSet", {int32_t{0}});
    EXPECT_EQ(heard(), Journal()) << "nothing is painted";
    call(u"GridRedraw", {true});
    EXPECT_EQ(heard(), (Journal{"structure GridEdit", "focus Same, column 3, row 5"}));
    for (int32_t col = 0; col < 3; ++col) {
        for (int32_t row = 0; row < 4; ++row) call(u"CellTextSet", {row, col, Text(u"much")});
    }
    const Journal much = heard();
    const auto heardOf = [&much](const char* what) {
        return std::count_if(much.begin(), much.end(),
                             [what](const std::string& line) { return line.starts_with(what); });
    };
    EXPECT_EQ(heardOf("value"), 8);
    EXPECT_EQ(heardOf("toggled"), 4) << "the column of check boxes";
    for (const auto& [col, caption] : {std::pair(2, u"Country"), {2, u"Country"}, {99, u"Nowhere"}})
        call(u"BarHeaderCaptionSet", {col, Text(caption)});
    EXPECT_EQ(heard(), Journal{"name Country"});
    put(u"AllowGridEdit", false);
    EXPECT_EQ(heard(), Journal{"state Country, row 4"}) << "nobody writes there any more";
    call(u"GridRedraw", {false});
    call(u"BarHeaderCaptionSet", {int32_t{2}, Text(u"Land")});
    put(u"AllowGridEdit", true);
    put(u"BarHeader", false);
    EXPECT_EQ(heard(), Journal()) << "nothing is painted";
    put(u"BarHeader", true);
    call(u"GridRedraw", {true});
    heard();
    call(u"CellTextSet", {int32_t{4}, int32_t{1}, Text(u"a")});
    EXPECT_EQ(heard(), (Journal{"selection Same, row 5", "toggled Same, row 5 on", "focus Same, row 5"}));
    call(u"TopRowSet", {int32_t{7}});
    EXPECT_EQ(heard().front(), "scrolled down GridEdit");
}

TEST_F(ScreenReader, HearsOfWhatIsPressedByMouse) {
    platform.listen(true);
    const auto press = [this](NativeWindow window, TextView name) {
        const AccessibleTree& on = treeOf(*platform.surface(window));
        const PixelRect place = on.item(find(on, name)).bounds;
        heard();
        platform.click(window, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
        const Journal told = heard();
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
    press(control->window(), u"City");
    press(control->window(), u"City, row 2");
    const auto middle = [this](TextView name) {
        const PixelRect place = tree().item(find(tree(), name)).bounds;
        return PixelPoint{place.left + 5, place.top + 5};
    };
    using Mouse = MouseEvent::Kind;
    platform.mouse(control->window(), {Mouse::down, button::left, 0, middle(u"City, row 1")});
    platform.mouse(control->window(), {Mouse::move, button::left, 0, middle(u"City, row 4")});
    platform.mouse(control->window(), {Mouse::up, button::left, 0, middle(u"City, row 4")});
    for (const std::string& told : heard())
        EXPECT_FALSE(told.starts_with("invoked")) << told << ", though several were selected";
}

TEST_F(ScreenReader, HearsWhereTheFocusIsWhenTheCellThatHadItIsAnother) {
    platform.listen(true);
    fillGrid();
    call(u"GridFocusShow");
    call(u"GridSetFocus", {int32_t{0}, int32_t{2}});
    heard();
    call(u"GridSetFocus", {int32_t{1}, int32_t{2}});
    EXPECT_EQ(heard(), (Journal{"selection Same, column 2, row 3", "focus Same, column 2, row 3"}))
        << "the check box in the cell";
    call(u"CellTextSet", {int32_t{9}, int32_t{2}, Text(u"z")});
    call(u"GridSetFocus", {int32_t{2}, int32_t{9}});
    heard();
    call(u"GridColSort", {int32_t{2}});
    EXPECT_EQ(heard(), (Journal{"structure GridEdit", "scrolled down GridEdit", "value Up and down: 100",
                                "state Same, column 3", "focus Same, column 3, row 12"}));
    call(u"GridRedraw", {false});
    call(u"GridColSort", {int32_t{2}});
    EXPECT_EQ(heard(), Journal()) << "nothing is painted";
    call(u"GridColSort", {int32_t{2}});
    call(u"GridRedraw", {true});
    heard();
    call(u"GridHide");
    EXPECT_EQ(heard(), (Journal{"structure GridEdit", "focus GridEdit"}));
    call(u"GridShow");
    EXPECT_EQ(heard(), (Journal{"structure GridEdit", "focus Same, column 3, row 12"}));
    call(u"ColSetFocus", {int32_t{0}});
    heard();
    call(u"GridColSort", {int32_t{0}});
    const Journal moved = heard();
    EXPECT_LT(std::find(moved.begin(), moved.end(), "state Same, column 3"),
              std::find(moved.begin(), moved.end(), "state City"))
        << "the mark has gone from there";
    put(u"BarHeader", false);
    EXPECT_EQ(heard().front(), "structure GridEdit");
    call(u"RowsSet", {int32_t{0}});
    EXPECT_EQ(heard(), (Journal{"structure GridEdit", "focus GridEdit"}));

    fillGrid();
    call(u"GridFocusShow");
    call(u"ColTypeSet", {int32_t{0}, int32_t{5}});
    call(u"CellTextSet", {int32_t{0}, int32_t{0}, Text(u"12.5")});
    call(u"BoxHide");
    heard();
    platform.pressKey(key::f2);
    EXPECT_EQ(heard(), Journal()) << "an editor that opens is no news beside its own";
    platform.type(u"7");
    heard();
    platform.pressKey(key::escape);
    EXPECT_EQ(heard(), (Journal{"value City, row 1: 7", "focus City, row 1"}));

    begin(u"PageTab");
    put(u"ActiveTabs", Text(u"Home,Help"));
    put(u"ActiveTab", int32_t{1});
    heard();
    put(u"ActiveTabs", Text(u"One,Two"));
    EXPECT_EQ(heard(), (Journal{"structure PageTab", "focus PageTab"}));
}

}  // namespace
}  // namespace obk::test
