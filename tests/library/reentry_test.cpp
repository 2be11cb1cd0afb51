// A person at each control, whose host does the worst of things inside one of its events, menus and choosers.
#include "grid/grid_edit.h"
#include "library/library.h"
#include "pagetab/page_tab.h"
#include "support/control_fixture.h"
#include "updown/up_down_text_box.h"

#include <algorithm>
#include <random>

namespace obk::test {
namespace {

class ReentryTest : public ControlFixture, public testing::WithParamInterface<const ControlTable*> {
protected:
    static constexpr PixelRect bounds{20, 20, 380, 220};
    // A menu or a chooser is open.
    static constexpr char asking[] = "asking";

    int32_t below(int32_t limit) { return static_cast<int32_t>(random_() % static_cast<uint32_t>(limit)); }
    template <typename T>
    T one(std::initializer_list<T> of) {
        return *(of.begin() + below(static_cast<int32_t>(of.size())));
    }

    // A control with something to work on, and `act` once in the first `event`.
    void arrange(const std::string& event, const std::function<void()>& act) {
        happened_ = false;
        const auto hear = [this, event, act](const std::string& what) {
            if (what == event && control && !std::exchange(happened_, true)) act();
        };
        place(*GetParam());
        if (auto* const field = dynamic_cast<UpDownTextBox*>(control.get())) field->SetInterval(1);
        if (auto* const strip = dynamic_cast<PageTab*>(control.get())) strip->SetActiveTabs(u"a,b,c,d,e");
        if (auto* const grid = dynamic_cast<GridEdit*>(control.get())) {
            grid->ColsSet(7);
            grid->RowsSet(3);
            for (int32_t col = 0; col < 7; ++col) grid->ColTypeSet(col, col);
            grid->ComboAdd(u"oak");
        }
        activate(bounds);
        control->focus();
        platform.setClipboard(u"1\t2\r\n3\t4");
        platform.answerMenu([hear](auto&&...) { return hear(asking), std::optional<size_t>(0); });
        platform.answerColour([hear](auto&&...) { return hear(asking), std::optional(Rgb{1}); });
        host.on[event] = [hear, event](std::span<Value>) { hear(event); };
    }
    // Nothing here holds the control: that is for the window system and for the control's own calls to do.
    void work() {
        switch (below(10)) {
            case 0:
            case 1:
            case 2:
            case 3:
                return mouse();
            case 4:
                return platform.setFocus(below(3) == 0 ? 0 : control->window());
            case 5:
                return platform.advance(std::chrono::milliseconds(below(800)));
            case 6:
                return platform.type(one<TextView>({u"1", u" ", u"o"}));
            case 7:
                return callMember();
            default:
                return platform.pressKey(
                    one<int16_t>({key::up, key::down, key::left, key::right, key::home, key::enter, key::tab,
                                  key::escape, key::space, key::f4, key::insert, key::deleteKey, key::menu,
                                  key::pageDown, 'V', 'Z'}),
                    one<int16_t>({0, 0, 0, shift::control, shift::alt}));
        }
    }
    void mouse() {
        using Kind = MouseEvent::Kind;
        NativeWindow window = control->window();
        for (const NativeWindow id : platform.windows()) {
            const headless::HeadlessSurface* const panel = platform.surface(id);
            if (panel && panel->kind() == SurfacePlacement::Kind::panel && panel->visible()) window = id;
        }
        const headless::HeadlessSurface* const surface = platform.surface(window);
        if (!surface) return;
        // Often where it was last, and at the edges, where buttons are.
        const PixelRect& area = surface->bounds();
        if (below(2) == 0) at_ = {below(area.width() + 2), below(area.height() + 2)};
        if (below(4) == 0) at_.y = one({5, 15, area.height() - 17});
        const int16_t pressed = one({button::left, button::left, button::left, button::right});
        switch (below(6)) {
            case 0:
                return platform.wheel(window, {one({-120, 120}), false, 0, at_});
            case 1:
                platform.drop(window, {std::make_shared<OpaqueObject>(), 7, button::left, 0, at_});
                return;
            case 2:
                return platform.click(window, at_, pressed);
            case 3:
                platform.click(window, at_, pressed);
                return platform.mouse(window, {Kind::doubleClick, pressed, 0, at_});
            default:
                return platform.mouse(
                    window, {one({Kind::down, Kind::up, Kind::move, Kind::doubleClick}), pressed, 0, at_});
        }
    }
    // As scripts call it between the events.
    void callMember() {
        const auto held = control;
        const auto& members = held->table().members;
        const Member& member = members[static_cast<size_t>(below(static_cast<int32_t>(members.size())))];
        Value result;
        if (member.kind == MemberKind::property) {
            putProperty(*held, member, one({1, 0}));
            return;
        }
        std::vector<Value> arguments(member.parameters.size(), Value(1));
        callMethod(*held, member, arguments, result);
    }
    void expectNothingIsLeft() {
        EXPECT_EQ(platform.windowCount(), 0u);
        EXPECT_EQ(platform.timerCount(), 0u);
        EXPECT_EQ(platform.capture(), 0u);
    }

    bool happened_ = false;

private:
    std::mt19937 random_{1};
    PixelPoint at_;
};

INSTANTIATE_TEST_SUITE_P(Every, ReentryTest, testing::ValuesIn(library().controls),
                         [](const auto& row) { return toUtf8(row.param->name); });

TEST_P(ReentryTest, TheHostMayDoAnythingInsideEveryEvent) {
    const std::pair<const char*, std::function<void()>> acts[] = {
        {"lets go", [this] { release(); }},
        {"closes the window", [this] { control->deactivate(); }},
        {"opens another window",
         [this] {
             control->deactivate();
             activate(bounds);
         }},
        {"loads another form",
         [this] {
             MemoryBag none;
             put(u"Enabled", false);
             control->load(none);
         }},
        {"calls members",
         [this] {
             for (int call = 0; call < 8; ++call) callMember();
         }},
    };
    std::vector<std::string> events;
    if (const TextView name = GetParam()->name;
        name == u"DateCalendar" || name == u"ButtonPalette" || name == u"GridEdit")
        events.push_back(asking);
    for (const Member& event : GetParam()->events) {
        if (event.help != u"Never raised") events.push_back(toUtf8(event.name));
    }
    for (const std::string& event : events) {
        for (const auto& [name, act] : acts) {
            SCOPED_TRACE(event + ": the host " + name);
            int times = 0;
            for (int round = 0; round < 300 && times < 3; ++round) {
                arrange(event, act);
                for (int step = 0; step < 60 && control && !happened_; ++step) work();
                times += happened_;
                for (int step = 0; step < 5 && control; ++step) work();
                host.on.clear();
                if (control) release();
                expectNothingIsLeft();
                if (HasFailure()) return;
            }
            EXPECT_GT(times, 0) << "it was never raised";
        }
    }
}

}  // namespace
}  // namespace obk::test
