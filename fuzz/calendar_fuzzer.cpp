// A person at an open calendar: keys, presses, the wheel, time and texts of a host. Whatever is done, the
// panel shows a month, and nothing is left of it in the end.
#include "datecalendar/date_calendar.h"
#include "fuzz_values.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"

namespace obk::fuzz {
namespace {

class Calendar {
public:
    explicit Calendar(FuzzedDataProvider& input) : input_(input) {
        control_->initNew();
        control_->activate(1000, {100, 100, 241, 121});
        control_->focus();
        platform_.answerMenu([this](std::span<const MenuItem> items, const PixelRect&) {
            return std::optional(input_.ConsumeIntegralInRange<size_t>(0, items.size()));
        });
    }

    void run() {
        for (int step = 0; step < 400 && input_.remaining_bytes() > 0; ++step) {
            if (!panel()) date().ShowPopUp();
            act();
            if (panel()) check();
        }
        control_->deactivate();
        require(platform_.windowCount() == 0 && platform_.capture() == 0, "nothing is left");
    }

private:
    DateCalendar& date() { return static_cast<DateCalendar&>(*control_); }
    headless::HeadlessSurface* panel() {
        for (const NativeWindow id : platform_.windows()) {
            headless::HeadlessSurface* found = platform_.surface(id);
            if (found && found->kind() == SurfacePlacement::Kind::panel && found->visible()) return found;
        }
        return nullptr;
    }
    void act() {
        constexpr int16_t keys[] = {key::left,   key::right,    key::up,    key::down,  key::home,   key::end,
                                    key::pageUp, key::pageDown, key::enter, key::space, key::escape, key::f4};
        constexpr MouseEvent::Kind kinds[] = {MouseEvent::Kind::down, MouseEvent::Kind::up,
                                              MouseEvent::Kind::move};
        switch (input_.ConsumeIntegralInRange(0, 6)) {
            case 0:
            case 1:
                platform_.pressKey(input_.PickValueInArray(keys),
                                   input_.ConsumeBool() ? shift::control : int16_t{0});
                break;
            case 2:
            case 3: {
                const PixelPoint at{input_.ConsumeIntegralInRange(-3, 197),
                                    input_.ConsumeIntegralInRange(-3, 230)};
                if (panel())
                    platform_.mouse(panel()->id(), {input_.PickValueInArray(kinds), button::left, 0, at});
                break;
            }
            case 4:
                if (panel())
                    platform_.wheel(panel()->id(), {input_.ConsumeIntegral<int16_t>(), false, 0, {100, 100}});
                break;
            case 5:
                platform_.advance(std::chrono::milliseconds(input_.ConsumeIntegralInRange(0, 1000)));
                break;
            default: {
                const std::chrono::sys_days day{
                    std::chrono::days(input_.ConsumeIntegralInRange(-683000, 2932900))};
                date().SetText(input_.ConsumeBool() ? dateText(Date(day)).value_or(u"") : textFrom(input_));
                date().subNEWDATE();
                break;
            }
        }
    }
    void check() {
        size_t days = 0;
        for (const AccessibleItem& item : panel()->surfaceClient().accessibleItems())
            days += item.role == AccessibleItem::Role::listItem;
        require(days >= 28 && days <= 31, "a month is shown");
        panel()->paint();
    }

    FuzzedDataProvider& input_;
    headless::HeadlessPlatform platform_;
    std::shared_ptr<Control> control_ = DateCalendar::memberTable().create(platform_);
};

}  // namespace
}  // namespace obk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    obk::fuzz::Calendar(input).run();
    return 0;
}
