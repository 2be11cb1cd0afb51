// A session with a control: what the tests' monkey does, with the fuzzer's bytes for its dice and values of
// any kind, and a window system and a container that do what neither of a test's does. Strips and calendars
// show what they must at every moment.
#include "datecalendar/date_calendar.h"
#include "fuzz_values.h"
#include "library/library.h"
#include "pagetab/page_tab.h"
#include "support/accessible_walk.h"
#include "support/control_monkey.h"

namespace obk::fuzz {
namespace {

class Session final : private test::ControlMonkey {
public:
    Session(const ControlTable& table, FuzzedDataProvider& input)
        : ControlMonkey(
              table, [&input](int32_t limit) { return input.ConsumeIntegralInRange<int32_t>(0, limit - 1); }),
          input_(input) {}

    void run() {
        place();
        for (int step = 0; step < 400 && input_.remaining_bytes() > 0; ++step) {
            act();
            require(!broken(), broken());
            check();
        }
        hears = [](const std::string&) {};  // the last words are heard in silence
        letGo();
        require(!leftOver(), leftOver());
    }

private:
    using Role = AccessibleItem::Role;

    Value argument(ValueType type) override { return valueFor(type, input_); }
    void raise(const Member& event, std::span<Value> arguments) override {
        ControlMonkey::raise(event, arguments);
        if (!arguments.empty() && below(4) == 0) arguments[0] = argument(event.parameters[0].type);
    }
    void propertyChanged(const Member* property) override {
        require(!property || property->kind == MemberKind::property, "a property has changed");
        hear("changed");
    }
    FontRef ambientFont() override { return ambientFont_; }
    void requestSize(Twips width, Twips height) override {
        if (!control_) return;
        const Dpi dpi = control_->root().dpi();
        if (below(2) != 0) return hear("size");
        held()->setBounds({0, 0, dpi.toPixels(width), dpi.toPixels(height)});
    }
    bool offerToContainer(const KeyEvent& event) override {
        hear("key");
        return ControlMonkey::offerToContainer(event);
    }

    void act() override {
        if (!control_ || below(5) != 0) return ControlMonkey::act();
        const auto held = control_;
        switch (below(8)) {
            case 0:
                return held->deactivate();
            case 1:
                return held->setSize({std::bit_cast<double>(input_.ConsumeIntegral<uint64_t>())},
                                     {input_.ConsumeFloatingPointInRange(-1e4, 1e4)});
            case 2:
                held->window();
                return platform_.setDpi(held->window(), Dpi(24 + below(460)));
            case 3:
                return platform_.refuseWindows(below(4) == 0);
            case 4:
                ambientFont_ = fontFrom(input_);
                return held->ambientFontChanged();
            case 5:
                return platform_.type(textFrom(input_));
            case 6: {
                MemoryBag bag;
                for (const PersistedValue& row : held->table().persisted)
                    if (below(8) == 0) bag.write(row.readKey, argument(row.type));
                return held->load(bag);
            }
            default: {
                const int32_t left = below(250) - 50, top = below(250) - 50;
                held->activate(1000, {left, top, left + below(250) - 50, top + below(250) - 50});
            }
        }
    }

    void check() {
        test::eachShown(platform_, [this](headless::HeadlessSurface& surface) {
            surface.paint();
            if (surface.kind() == SurfacePlacement::Kind::panel &&
                dynamic_cast<DateCalendar*>(control_.get())) {
                const size_t days = test::partsOf(surface, Role::listItem).size();
                const std::vector<AccessibleItem> years = test::partsOf(surface, Role::spinner);
                require(years.size() == 1, "there is a year");
                // What is typed into the year is none at first.
                const bool year = yearFromText(years[0].value).has_value();
                require(year ? days >= 28 && days <= 31 : days == 0, "the days are those of a month, if any");
            }
            if (auto* const strip = dynamic_cast<PageTab*>(control_.get())) {
                const std::vector<AccessibleItem> tabs = test::partsOf(surface, Role::pageTab);
                const auto active = static_cast<size_t>(strip->ActiveTab());
                require(active <= tabs.size(), "the active tab exists");
                for (size_t at = 0; at < tabs.size(); ++at)
                    require(tabs[at].is(AccessibleItem::selected) == (at + 1 == active),
                            "the active tab is the selected one");
            }
        });
    }

    FuzzedDataProvider& input_;
    FontRef ambientFont_;
};

}  // namespace
}  // namespace obk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    const auto& controls = obk::library().controls;
    obk::fuzz::Session(*controls[input.ConsumeIntegralInRange<size_t>(0, controls.size() - 1)], input).run();
    return 0;
}
