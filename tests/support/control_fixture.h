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
    void raise(const Member& event, std::span<Value> arguments) override;
    void propertyChanged(const Member* property) override;
    FontRef ambientFont() override { return font; }
    void requestSize(Twips width, Twips height) override;
    void focusChanged(bool inside) override { journal.push_back(inside ? "focus in" : "focus out"); }
    bool offerToContainer(const KeyEvent& event) override;
    void viewChanged() override {}
    Text name() override { return givenName; }
    bool rightToLeft() override { return readsRightToLeft; }
    bool designMode() override { return designs; }

    // What was told since the last look, one line each: "KeyDown 38 0", "changed Max".
    Journal take() { return std::exchange(journal, {}); }
    // Only the events.
    Journal takeEvents();

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
    void place(const ControlTable& table);
    void activate(const PixelRect& bounds = {0, 0, 81, 21});
    // The host lets go of the control, as in a final release.
    void release();

    Value get(TextView name);
    CallStatus put(TextView name, const Value& value);
    Value call(TextView name, std::vector<Value> arguments = {});
    std::string text(TextView name) { return toUtf8(toText(get(name)).value_or(u"?")); }
    // The panel that the control drops down; null before it was first shown.
    headless::HeadlessSurface* panel() const;
    // The one that shows and came last: a list that is dropped down, say.
    headless::HeadlessSurface* topPanel() const;
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
