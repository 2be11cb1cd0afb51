// A person and a host who do with a control whatever the dice say.
#pragma once

#include "base/scoped_value.h"
#include "framework/control.h"
#include "framework/control_table.h"
#include "framework/member_call.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "support/accessible_walk.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace obk::test {

class ControlMonkey : protected ControlHost {
public:
    // Any number from 0 to one less than the argument.
    using Dice = std::function<int32_t(int32_t)>;

    ControlMonkey(const ControlTable& table, Dice dice) : table_(table), dice_(std::move(dice)) {
        platform_.registry().setString(u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion", u"CurrentVersion",
                                       "6.3");
        twoMonitors();
        platform_.answerMenu([this](std::span<const MenuItem> items, const PixelRect&) {
            hear("asking");
            return std::optional(static_cast<size_t>(below(items.size() + 1)));
        });
        platform_.answerColour([this](const ColourQuestion&) {
            hear("asking");
            return below(2) == 0 ? std::nullopt : std::optional(Rgb{1});
        });
    }
    ControlMonkey(const ControlMonkey&) = delete;
    ControlMonkey& operator=(const ControlMonkey&) = delete;
    virtual ~ControlMonkey() {
        hears = [](const std::string&) {};
        letGo();
    }

    // What the host does inside its events, by their names, and while a menu or a chooser is "asking".
    // Without it, whatever the dice say.
    std::function<void(const std::string& name)> hears;

    // Whether a screen reader asks for everything in each event, rather than now and then.
    bool asksAlways = false;

    // Nothing here holds the control while the window system is at work: that is for that to do. A host that
    // calls a member holds what it calls.
    virtual void act() {
        if (!control_) return place();
        const int32_t what = below(12);
        if (what < 3) return callMember();
        if (what == 3) return surroundings();
        if (what < 8) return mouse();
        if (what > 8) return key();
        platform_.type(one<TextView>({u"1", u"x", u" ", u"7.5", u"o", u"\u65E5", u"\b", u"1 mar 2026"}));
    }

    // A new control in its window; the one before, which may still be in the middle of an event, is let go.
    void place() {
        letGo();
        const auto made = control_ = table_.create(platform_);
        made->initNew();
        prepare(*made);
        made->setHost(this);
        made->activate(1, bounds);
        made->focus();
    }
    void letGo() {
        if (!control_) return;
        control_->setHost(nullptr);
        control_->deactivate();
        control_.reset();
    }
    void closeWindow() { held()->deactivate(); }
    void openAnotherWindow() {
        const auto held = control_;
        held->deactivate();
        if (control_ == held) held->activate(1, bounds);
    }
    void load() {
        MemoryBag bag;
        if (below(2) == 0) held()->save(bag);
        held()->load(bag);
    }
    // Any member of the table, as hosts call it.
    void callMember() {
        const auto& members = table_.members;
        if (members.empty()) return;
        const Member& member = members[static_cast<size_t>(below(members.size()))];
        std::vector<Value> arguments;
        for (const Parameter& parameter : member.parameters) arguments.push_back(argument(parameter.type));
        if (member.put) arguments = {argument(member.type)};
        // There is no time for grids as large as hosts may ask for.
        if (member.name == u"RowsSet" || member.name == u"ColsSet")
            arguments[0] = std::min(toLong(arguments[0]).value_or(0), 60);
        call(member, arguments);
    }
    // The call that is under way, if there is one, once more.
    void callAgain() {
        if (calling_) call(*calling_, arguments_);
    }

    // What shows is drawn anew, which leaves no point of it as it was.
    void paint() {
        eachShown(platform_, [this](headless::HeadlessSurface& surface) {
            const PixelRect all{0, 0, surface.bounds().width(), surface.bounds().height()};
            const PixelRect seen = all.intersected({0, 0, 500, 500});
            if (seen.empty()) return;
            std::vector<bool> covered(static_cast<size_t>(seen.right * seen.bottom));
            surface.invalidate(all);
            for (const headless::DrawnItem& item : surface.paint().items()) {
                const PixelRect rect = item.rect.intersected(seen);
                if (item.kind != headless::DrawnItem::Kind::fill || rect.empty()) continue;
                for (int32_t y = rect.top; y < rect.bottom; ++y) {
                    const int32_t first = y * seen.right + rect.left;
                    std::fill_n(covered.begin() + first, rect.width(), true);
                }
            }
            if (std::find(covered.begin(), covered.end(), false) != covered.end())
                broken_ = "a surface is painted whole";
        });
    }

    // What does not hold though it must; null when all does.
    const char* broken() const { return broken_; }
    // What is left of a control that was let go; null for nothing.
    const char* leftOver() const {
        if (platform_.windowCount() != 0) return "a window is left";
        if (platform_.timerCount() != 0) return "a timer is left";
        return platform_.capture() != 0 ? "the capture is left" : nullptr;
    }

protected:
    static constexpr PixelRect bounds{0, 0, 420, 200};

    int32_t below(int32_t limit) { return dice_(limit); }
    int32_t below(size_t limit) { return below(static_cast<int32_t>(limit)); }
    // Kept alive for as long as a statement calls it.
    std::shared_ptr<Control> held() const { return control_; }
    template <typename T>
    T one(std::initializer_list<T> of) {
        return *(of.begin() + below(of.size()));
    }
    // Gives a new control something to work on.
    virtual void prepare(Control&) {}

    void raise(const Member& event, std::span<Value> arguments) override {
        if (!std::ranges::equal(arguments, event.parameters, {}, typeOf, &Parameter::type))
            broken_ = "events have their declared arguments";
        if (!hears && !arguments.empty() && below(20) == 0) arguments[0] = int16_t{0};
        hear(toUtf8(event.name));
    }
    void propertyChanged(const Member*) override {}
    FontRef ambientFont() override { return nullptr; }
    void requestSize(Twips, Twips) override {}
    void focusChanged(bool) override { hear("focus"); }
    bool offerToContainer(const KeyEvent&) override { return below(4) == 0; }
    void viewChanged() override {}
    bool designMode() override { return designs_; }
    bool rightToLeft() override { return readsRightToLeft_; }

    void hear(const std::string& name) {
        askEverything();
        if (hears) return hears(name);
        if (depth_ >= deepest || below(6) != 0) return;
        ++depth_;
        act();
        --depth_;
    }
    // A screen reader that looks at all that shows, which takes longer than what it hears of.
    void askEverything() {
        if (++heard_ % (asksAlways ? 1 : 16) != 0) return;
        platform_.listen(true);
        platform_.takeHeard();
        eachShown(platform_, [this](const headless::HeadlessSurface& surface) {
            if (const AccessibleId focus = treeOf(surface).focus(); focus && !treeOf(surface).has(focus))
                broken_ = "what has the focus is there";
            for (const AccessibleItem& item : shownItems(surface)) {
                if (item.role == AccessibleItem::Role::none || trimmed(item.name).empty())
                    broken_ = "what shows has a role and a name";
                if (item.is(AccessibleItem::disabled) &&
                    (item.actions != 0 || item.is(AccessibleItem::focused)))
                    broken_ = "nothing is done with what is disabled";
                if (item.position > item.setSize) broken_ = "a place in a set is in it";
            }
        });
    }
    virtual Value argument(ValueType type) {
        switch (type) {
            case ValueType::longInteger:
                return below(30) == 0 ? INT32_MIN : below(15) - 1;
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

    void key() {
        const int16_t code = below(4) == 0
                                 ? static_cast<int16_t>(1 + below(254))
                                 : one<int16_t>({key::enter,     key::enter,  key::tab,  key::escape,
                                                 key::space,     key::f2,     key::f4,   key::insert,
                                                 key::deleteKey, key::menu,   key::down, key::up,
                                                 key::left,      key::right,  key::home, key::end,
                                                 key::pageDown,  key::pageUp, 'V',       'Z'});
        const int16_t state = code == 'V' || code == 'Z' ? shift::control
                              : below(4) == 0            ? static_cast<int16_t>(below(8))
                                                         : int16_t{0};
        if (below(10) == 0)
            platform_.keyDown(code, state, below(2) == 0);
        else
            platform_.pressKey(code, state);
    }
    void mouse() {
        using Kind = MouseEvent::Kind;
        NativeWindow window = control_->window();
        for (const headless::HeadlessSurface* panel : panelsOf(platform_)) {
            if (panel->visible()) window = panel->id();
        }
        const headless::HeadlessSurface* const surface = platform_.surface(window);
        if (!surface) return;
        // Often where it was last, at the edges, where buttons are, and a little outside.
        const PixelRect& area = surface->bounds();
        if (below(2) == 0)
            at_ = {below(std::max(area.width(), 0) + 40) - 20, below(std::max(area.height(), 0) + 40) - 20};
        if (below(4) == 0) at_.y = one({5, 15, area.height() - 17});
        const int16_t pressed = one({button::left, button::left, button::left, button::right});
        const auto state = static_cast<int16_t>(below(4) == 0 ? below(8) : 0);
        const int32_t what = below(6);
        if (what == 0) return platform_.wheel(window, {one({-120, 120, 30}), below(4) == 0, state, at_});
        if (what == 1)
            return void(
                platform_.drop(window, {std::make_shared<OpaqueObject>(), 7, button::left, state, at_}));
        if (what < 4) platform_.click(window, at_, pressed);
        if (what == 2) return;
        const Kind kind = what == 3 ? Kind::doubleClick
                                    : one({Kind::down, Kind::move, Kind::up, Kind::doubleClick, Kind::leave});
        platform_.mouse(window, {kind, pressed, state, at_});
    }

    headless::HeadlessPlatform platform_;
    uint32_t heard_ = 0;
    std::shared_ptr<Control> control_;
    const char* broken_ = nullptr;

private:
    static constexpr int32_t deepest = 3;

    void call(const Member& member, std::vector<Value> arguments) {
        const auto held = control_;
        const ScopedValue calling(calling_, &member);
        arguments_ = arguments;
        Value result;
        if (member.kind == MemberKind::property) {
            if (member.put) putProperty(*held, member, arguments[0]);
            if (member.get &&
                (getProperty(*held, member, result) != CallStatus::done || typeOf(result) != member.type))
                broken_ = "properties have their declared types";
        } else if (callMethod(*held, member, arguments, result) == CallStatus::done &&
                   typeOf(result) != member.type) {
            broken_ = "results have their declared types";
        }
    }
    Text text() {
        return Text(one<TextView>({u"", u"oak", u"12", u"a", u"Mon 2 Feb 2026", u"9:30 am", u"a\tb\tc\td",
                                   u"two\r\nlines", u"1\t2\r\n3\t4\r\n", u"\"q\"\t\"\r\n\"\"\""}));
    }
    // Side by side; whether a panel hears of its scale at once is for the dice, too.
    void twoMonitors() {
        using Told = headless::HeadlessPlatform::ScaleTold;
        platform_.setMonitors({{{0, 0, 500, 800}, Dpi(one({96, 144}))}, {{500, 0, 1280, 800}, Dpi(144)}},
                              one({Told::moved, Told::shown}));
    }
    void moveOrSize() {
        const int32_t left = one({0, 0, 300, 600});
        const int32_t width = below(3) == 0 ? below(600) : bounds.right;
        held()->setBounds({left, 0, left + width, bounds.bottom});
    }
    void turnAround() {
        readsRightToLeft_ = below(2) == 0;
        held()->setSize(held()->width(), held()->height());
    }
    void surroundings() {
        const std::function<void()> ways[] = {
            [this] { moveOrSize(); },
            [this] {
                platform_.setDpi(control_->window(), Dpi(one({96, 120, 144, 168, 192})));
            },
            [this] { platform_.setFocus(below(2) == 0 ? 0 : control_->window()); },
            [this] { designs_ = below(6) == 0; },
            [this] { platform_.setClipboard(text()); },
            [this] { platform_.advance(std::chrono::milliseconds(below(1200))); },
            [this] { platform_.stealCapture(); },
            [this] { openAnotherWindow(); },
            [this] { load(); },
            [this] { below(8) == 0 ? place() : void(); },
            [this] { twoMonitors(); },
            [this] { platform_.moveHost(); },
            [this] { platform_.pressHost(); },
            [this] { turnAround(); },
        };
        ways[below(std::size(ways))]();
    }

    const ControlTable& table_;
    Dice dice_;
    const Member* calling_ = nullptr;
    std::vector<Value> arguments_;
    PixelPoint at_;
    int32_t depth_ = 0;
    bool designs_ = false;
    bool readsRightToLeft_ = false;
};

}  // namespace obk::test
