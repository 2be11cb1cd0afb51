// A control on the headless platform with a host that keeps a journal of what it was told.
#pragma once

#include "framework/control.h"
#include "framework/control_table.h"
#include "framework/member_call.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "support/accessible_walk.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace obk::test {

using Journal = std::vector<std::string>;

class JournalHost : public ControlHost {
public:
    void raise(const Member& event, std::span<Value> arguments) override {
        std::string line = toUtf8(event.name);
        const auto handler = on.find(line);
        for (const Value& argument : arguments) line += " " + toUtf8(toText(argument).value_or(u"?"));
        journal.push_back(line);
        if (handler == on.end()) return;
        const auto run = handler->second;
        run(arguments);
    }
    void propertyChanged(const Member* property) override {
        journal.push_back("changed " + (property ? toUtf8(property->name) : "?"));
    }
    FontRef ambientFont() override { return font; }
    void requestSize(Twips width, Twips height) override {
        journal.push_back("size " +
                          toUtf8(textFromNumber(width.value) + u" " + textFromNumber(height.value)));
        if (onRequestSize) onRequestSize(width, height);
    }
    void focusChanged(bool inside) override { journal.push_back(inside ? "focus in" : "focus out"); }
    bool offerToContainer(const KeyEvent& event) override {
        journal.push_back("offered " + std::to_string(event.code));
        return takesKeys;
    }
    void viewChanged() override {}
    Text name() override { return givenName; }
    bool rightToLeft() override { return readsRightToLeft; }
    bool designMode() override { return designs; }

    // What was told since the last look, one line each: "KeyDown 38 0", "changed Max".
    Journal take() { return std::exchange(journal, {}); }
    // Only the events, which alone begin with a capital.
    Journal takeEvents() {
        std::erase_if(journal, [](const std::string& line) { return line[0] >= 'a' && line[0] <= 'z'; });
        return take();
    }

    Journal journal;
    FontRef font;
    Text givenName;
    bool takesKeys = false;
    bool readsRightToLeft = false;
    bool designs = false;
    // Runs inside an event, by its name; may change the arguments, call the control, or let go of it.
    std::map<std::string, std::function<void(std::span<Value>)>> on;
    std::function<void(Twips, Twips)> onRequestSize;
};

// One control of a type, with or without a window.
class ControlFixture : public ::testing::Test {
protected:
    // The last one lets the headless platform outlive the control.
    void place(const ControlTable& table) {
        platform.registry().setString(u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion", u"CurrentVersion",
                                      "6.3");
        control = table.create(platform);
        control->setHost(&host);
        control->initNew();
    }
    void activate(const PixelRect& bounds = {0, 0, 81, 21}) { ASSERT_TRUE(control->activate(1000, bounds)); }
    // The host lets go of the control, as in a final release.
    void release() {
        control->setHost(nullptr);
        control->deactivate();
        control.reset();
    }

    Value get(TextView name) {
        Value value;
        const Member* member = control->table().member(name);
        if (!member || getProperty(*control, *member, value) != CallStatus::done)
            ADD_FAILURE() << "cannot read " << toUtf8(name);
        return value;
    }
    CallStatus put(TextView name, const Value& value) {
        const Member* member = control->table().member(name);
        return member ? putProperty(*control, *member, value) : CallStatus::noSuchMember;
    }
    Value call(TextView name, std::vector<Value> arguments = {}) {
        Value result;
        const Member* member = control->table().member(name);
        if (!member || callMethod(*control, *member, arguments, result) != CallStatus::done)
            ADD_FAILURE() << "cannot call " << toUtf8(name);
        return result;
    }
    std::string text(TextView name) { return toUtf8(toText(get(name)).value_or(u"?")); }
    // The panel that the control drops down; null before it was first shown.
    headless::HeadlessSurface* panel() const {
        const auto found = panelsOf(platform);
        return found.empty() ? nullptr : found.front();
    }
    // The one that shows and came last: a list that is dropped down, say.
    headless::HeadlessSurface* topPanel() const {
        auto found = panelsOf(platform);
        std::erase_if(found, [](const auto* surface) { return !surface->visible(); });
        return found.empty() ? nullptr : found.back();
    }
    // A press and its release, without the move that brings the mouse there.
    void click(PixelPoint at, MouseEvent::Kind first = MouseEvent::Kind::down,
               int16_t mouseButton = button::left) {
        for (const MouseEvent::Kind kind : {first, MouseEvent::Kind::up})
            platform.mouse(control->window(), {kind, mouseButton, 0, at});
    }
    bool open() const { return panel() && panel()->visible(); }
    // The parts of a surface that have a role for screen readers.
    static std::vector<AccessibleItem> parts(headless::HeadlessSurface& of, AccessibleItem::Role role) {
        return partsOf(of, role);
    }
    Rgb system(SystemColour index) {
        return *platform.appearance().systemColour(static_cast<uint8_t>(index));
    }

    headless::HeadlessPlatform platform;
    JournalHost host;
    std::shared_ptr<Control> control;
};

}  // namespace obk::test
