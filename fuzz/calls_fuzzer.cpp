// A session with a control: late-bound calls made from its table, keys, presses, wheel, focus, time and
// windows that come and go, with a host that does the same inside events and may let go at any moment.
#include "framework/control.h"
#include "framework/member_call.h"
#include "fuzz_values.h"
#include "library/library.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"

namespace obk::fuzz {
namespace {

using headless::HeadlessPlatform;

class Session : private ControlHost {
public:
    explicit Session(FuzzedDataProvider& input) : input_(input) {
        platform_.answerMenu([this](std::span<const MenuItem> items, const PixelRect&) {
            reenter();
            return std::optional(input_.ConsumeIntegralInRange<size_t>(0, items.size()));
        });
        platform_.answerColour([this](const ColourQuestion&) {
            reenter();
            return input_.ConsumeBool() ? std::optional(Rgb::of(input_.ConsumeIntegral<uint8_t>(), 0, 255))
                                        : std::nullopt;
        });
    }

    void run() {
        place();
        for (int step = 0; step < 400 && input_.remaining_bytes() > 0; ++step) act();
        depth_ = deepest;  // the last words are heard in silence
        letGo();
        require(platform_.windowCount() == 0, "no window is left");
        require(platform_.timerCount() == 0, "no timer is left");
        require(platform_.capture() == 0, "no capture is left");
    }

private:
    static constexpr int deepest = 4;

    // Inside an event the host acts as it likes.
    void reenter() {
        if (depth_ >= deepest) return;
        ++depth_;
        for (int left = input_.ConsumeIntegralInRange(0, 3); left > 0; --left) act();
        --depth_;
    }
    void raise(const Member& event, std::span<Value> arguments) override {
        require(arguments.size() == event.parameters.size(), "events have their declared arguments");
        for (size_t at = 0; at < arguments.size(); ++at)
            require(typeOf(arguments[at]) == event.parameters[at].type,
                    "arguments have their declared types");
        reenter();
        if (!arguments.empty() && input_.ConsumeIntegralInRange(0, 3) == 0)
            arguments[0] = valueFor(event.parameters[0].type, input_);
    }
    void propertyChanged(const Member* property) override {
        require(!property || property->kind == MemberKind::property, "a property has changed");
        if (input_.ConsumeIntegralInRange(0, 7) == 0) reenter();
    }
    FontRef ambientFont() override { return ambientFont_; }
    void requestSize(Twips width, Twips height) override {
        const auto held = control_;
        if (!held) return;
        const Dpi dpi = held->root().dpi();
        switch (input_.ConsumeIntegralInRange(0, 3)) {
            case 0:
                held->setBounds({0, 0, dpi.toPixels(width), dpi.toPixels(height)});
                break;
            case 1:
                held->setBounds(bounds());
                break;
            case 2:
                reenter();
                break;
            default:
                break;
        }
    }
    void focusChanged(bool) override { reenter(); }
    bool offerToContainer(const KeyEvent&) override {
        reenter();
        return input_.ConsumeBool();
    }
    void viewChanged() override {}

    void place() {
        if (control_) return;
        const auto& controls = library().controls;
        control_ = controls[input_.ConsumeIntegralInRange<size_t>(0, controls.size() - 1)]->create(platform_);
        if (input_.ConsumeBool()) control_->setHost(this);
        control_->initNew();
    }
    void letGo() {
        if (!control_) return;
        const auto going = std::exchange(control_, nullptr);
        going->setHost(nullptr);
        if (input_.ConsumeBool()) going->deactivate();
    }
    PixelRect bounds() {
        const auto edge = [this] { return input_.ConsumeIntegralInRange<int32_t>(-50, 200); };
        const int32_t left = edge(), top = edge();
        return {left, top, left + edge(), top + edge()};
    }
    // Near the widgets of a control of the usual size.
    PixelPoint point() {
        return {input_.ConsumeIntegralInRange(-5, 100), input_.ConsumeIntegralInRange(-5, 30)};
    }

    void callMember() {
        const auto held = control_;
        const auto& members = held->table().members;
        if (members.empty()) return;
        const Member& member = members[input_.ConsumeIntegralInRange<size_t>(0, members.size() - 1)];
        Value value;
        if (member.kind == MemberKind::property) {
            if (input_.ConsumeBool()) putProperty(*held, member, valueFor(member.type, input_));
            if (!member.get) return;
            require(getProperty(*held, member, value) == CallStatus::done && typeOf(value) == member.type,
                    "properties have their declared types");
            if (const auto* font = std::get_if<FontRef>(&value); font && *font && input_.ConsumeBool()) {
                if (const FontRef other = fontFrom(input_)) (*font)->setDescription(other->description());
            }
            return;
        }
        std::vector<Value> arguments;
        for (const Parameter& parameter : member.parameters)
            arguments.push_back(valueFor(parameter.type, input_));
        // A session has no time for grids as large as hosts may ask for.
        if (member.name == u"RowsSet" || member.name == u"ColsSet")
            arguments[0] = input_.ConsumeIntegralInRange<int32_t>(-2, 60);
        if (callMethod(*held, member, arguments, value) == CallStatus::done)
            require(typeOf(value) == member.type, "results have their declared types");
    }
    void keyboard() {
        constexpr int16_t keys[] = {key::up,
                                    key::down,
                                    key::left,
                                    key::right,
                                    key::pageUp,
                                    key::pageDown,
                                    key::home,
                                    key::end,
                                    key::tab,
                                    key::enter,
                                    key::escape,
                                    key::space,
                                    key::deleteKey,
                                    key::backspace,
                                    key::f4,
                                    key::f10,
                                    key::menu,
                                    'A',
                                    'C',
                                    'V',
                                    'X',
                                    'Z',
                                    '5',
                                    190};
        if (input_.ConsumeBool())
            platform_.pressKey(input_.PickValueInArray(keys), input_.ConsumeIntegralInRange<int16_t>(0, 7));
        else
            platform_.type(textFrom(input_));
    }
    void mouse() {
        using Kind = MouseEvent::Kind;
        constexpr Kind kinds[] = {Kind::down, Kind::up, Kind::move, Kind::doubleClick, Kind::leave};
        constexpr int16_t buttons[] = {button::left, button::left, button::right, 0};
        NativeWindow target = control_->window();
        PixelPoint at = point();
        if (const NativeWindow panel = openPanel(); panel && input_.ConsumeBool()) {
            target = panel;
            at = {input_.ConsumeIntegralInRange(-5, 260), input_.ConsumeIntegralInRange(-5, 260)};
        }
        platform_.mouse(target, {input_.PickValueInArray(kinds), input_.PickValueInArray(buttons), 0, at});
    }
    NativeWindow openPanel() {
        for (const NativeWindow id : platform_.windows()) {
            const headless::HeadlessSurface* found = platform_.surface(id);
            if (found && found->kind() == SurfacePlacement::Kind::panel && found->visible()) return id;
        }
        return 0;
    }
    void windows() {
        const auto held = control_;
        switch (input_.ConsumeIntegralInRange(0, 9)) {
            case 0:
                held->deactivate();
                break;
            case 1:
                held->setBounds(bounds());
                break;
            case 2:
                held->setSize({std::bit_cast<double>(input_.ConsumeIntegral<uint64_t>())},
                              {input_.ConsumeFloatingPointInRange(-1e4, 1e4)});
                break;
            case 3:
                held->window();
                break;
            case 4:
                platform_.setDpi(held->window(), Dpi(input_.ConsumeIntegralInRange(24, 480)));
                break;
            case 5:
                platform_.refuseWindows(input_.ConsumeIntegralInRange(0, 3) == 0);
                break;
            case 6:
                if (auto* surface = platform_.surface(held->window())) {
                    surface->paint();
                    surface->surfaceClient().accessibleItems();
                    surface->surfaceClient().appearanceChanged();
                }
                break;
            default:
                held->activate(1000, input_.ConsumeBool() ? PixelRect{0, 0, 81, 21} : bounds());
                break;
        }
    }
    void persistence() {
        const auto held = control_;
        MemoryBag bag;
        if (input_.ConsumeBool()) held->save(bag);
        for (const PersistedValue& row : held->table().persisted) {
            if (input_.ConsumeIntegralInRange(0, 7) == 0) bag.write(row.readKey, valueFor(row.type, input_));
        }
        held->load(bag);
    }
    void act() {
        if (!control_) return place();
        switch (input_.ConsumeIntegralInRange(0, 15)) {
            case 0:
                windows();
                break;
            case 1:
                keyboard();
                break;
            case 2:
            case 3:
                mouse();
                break;
            case 4:
                platform_.wheel(control_->window(),
                                {input_.ConsumeIntegral<int16_t>(), input_.ConsumeBool(), 0, point()});
                break;
            case 5: {
                const auto held = control_;
                held->focus();
                break;
            }
            case 6:
                platform_.setFocus(input_.ConsumeBool() ? control_->window() : 0);
                break;
            case 7:
                platform_.stealCapture();
                break;
            case 8:
                platform_.advance(std::chrono::milliseconds(input_.ConsumeIntegralInRange(0, 1000)));
                break;
            case 9:
                persistence();
                break;
            case 10:
                platform_.setClipboard(textFrom(input_));
                break;
            case 11:
                if (input_.ConsumeIntegralInRange(0, 3) == 0) letGo();
                break;
            case 12: {
                const auto held = control_;
                ambientFont_ = fontFrom(input_);
                held->ambientFontChanged();
                break;
            }
            default:
                callMember();
                break;
        }
    }

    FuzzedDataProvider& input_;
    HeadlessPlatform platform_;
    std::shared_ptr<Control> control_;
    FontRef ambientFont_;
    int depth_ = 0;
};

}  // namespace
}  // namespace obk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    obk::fuzz::Session(input).run();
    return 0;
}
