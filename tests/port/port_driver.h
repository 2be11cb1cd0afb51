// Drives one platform as a person would, and writes down what its clients are told.
#pragma once

#include "widgets/check_box_peer.h"
#include "widgets/platform.h"
#include "widgets/surface_peer.h"
#include "widgets/text_box_peer.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace obk::port {

// Makes things happen on one platform as a person would. Every function returns when all that follows from it
// has been delivered.
class PortDriver {
public:
    virtual ~PortDriver() = default;
    virtual Platform& platform() = 0;
    // A visible window, 400 x 300 pixels, that surfaces are put into; stays the same.
    virtual NativeWindow host() = 0;
    // Keys go to whatever has the focus. Letters and digits, Enter, Tab, Escape and Backspace type their
    // characters, without a shift state; the other keys type none.
    virtual void keyDown(int16_t code, int16_t shift) = 0;
    virtual void keyUp(int16_t code, int16_t shift) = 0;
    // The mouse, at a point of a surface's client area; it goes to whatever is there, or has the capture.
    virtual void mouseMove(SurfacePeer& surface, PixelPoint at) = 0;
    virtual void mouseDown(int16_t button) = 0;
    virtual void mouseUp(int16_t button) = 0;
    virtual void wheel(int32_t delta) = 0;
    // The focus goes to the host itself.
    virtual void focusHost() = 0;
    // Presses something in the host's window that takes no focus, as tools on a tool bar do.
    virtual void pressTool() = 0;
    // A person moves the host's window.
    virtual void moveHost() = 0;
    // Asks the window system itself to give the focus to a window.
    virtual void askFocus(NativeWindow window) = 0;
    // The person turns to another application, and comes back to a host that gives the focus to `window`, or
    // with 0 to itself.
    virtual void leaveApplication() = 0;
    virtual void returnToApplication(NativeWindow window) = 0;
    // Another window takes the mouse capture.
    virtual void takeCaptureAway() = 0;
    // What is dragged next is let go at a point of a surface.
    virtual void letGoAt(SurfacePeer& surface, PixelPoint at) = 0;
    // Lets `time` pass.
    virtual void pass(std::chrono::milliseconds time) = 0;
    // Delivers what is under way.
    virtual void settle() = 0;

    void key(int16_t code, int16_t shift = 0) {
        keyDown(code, shift);
        keyUp(code, shift);
    }
    void click(SurfacePeer& surface, PixelPoint at) {
        mouseMove(surface, at);
        mouseDown(button::left);
        mouseUp(button::left);
    }
};

using DriverFactory = std::function<std::unique_ptr<PortDriver>()>;

// Everything that was reported, in order, as short texts.
using Journal = std::vector<std::string>;

// Answers and writes down; `on` runs something when a report of that name comes.
template <typename Base>
class RecordingClient : public Base {
public:
    RecordingClient(Journal& journal, std::string name) : journal_(journal), name_(std::move(name)) {}

    std::map<std::string, std::function<void()>> on;
    KeyRoute route = KeyRoute::child;
    bool containerUses = false;
    bool usesWheel = true;
    bool showsMenu = false;
    bool reportsMoves = false;
    bool alive = true;
    std::function<void(KeyEvent&)> changeKeyDown;
    std::function<int16_t(int16_t)> changeCharacter;

    std::shared_ptr<void> keepAlive() override { return alive ? std::make_shared<int>(0) : nullptr; }
    void mouse(const MouseEvent& event) override {
        using Kind = MouseEvent::Kind;
        const std::string button = " " + std::to_string(event.button);
        lastMouse = event;
        switch (event.kind) {
            case Kind::down:
                said("mouseDown", button);
                break;
            case Kind::up:
                said("mouseUp", button);
                break;
            case Kind::doubleClick:
                said("doubleClick", button);
                break;
            case Kind::leave:
                said("leave");
                break;
            case Kind::move:
                if (reportsMoves) said("move", button);
                break;
        }
    }
    bool wheel(const WheelEvent& event) override {
        said("wheel", " " + std::to_string(event.delta));
        return usesWheel;
    }
    bool contextMenu(std::optional<PixelPoint> at) override {
        said("contextMenu", at ? " " + std::to_string(at->x) + " " + std::to_string(at->y) : "");
        return showsMenu;
    }
    void keyDown(KeyEvent& event) override {
        lastKey = event;
        const auto change = changeKeyDown;
        said("keyDown", " " + std::to_string(event.code));
        if (change) change(event);
    }
    void keyUp(KeyEvent& event) override { said("keyUp", " " + std::to_string(event.code)); }
    int16_t keyPress(int16_t character) override {
        const auto change = changeCharacter;
        said("keyPress", " " + std::to_string(character));
        return change ? change(character) : character;
    }
    void focusGained() override { said("focusGained"); }
    void focusLost() override { said("focusLost"); }
    KeyRoute preTranslate(const KeyEvent& event) override {
        const KeyRoute answer = route;
        said("preTranslate", " " + std::to_string(event.code));
        return answer;
    }
    bool offerToContainer(const KeyEvent& event) override {
        const bool answer = containerUses;
        said("offerToContainer", " " + std::to_string(event.code));
        return answer;
    }

    MouseEvent lastMouse;
    KeyEvent lastKey;

protected:
    void said(const std::string& what, const std::string& detail = "") {
        journal_.push_back(name_ + "." + what + detail);
        const auto found = on.find(what);
        if (found == on.end()) return;
        const auto action = found->second;
        action();
    }

    Journal& journal_;
    std::string name_;
};

class TextClient final : public RecordingClient<TextBoxClient> {
public:
    using RecordingClient::RecordingClient;
    void textChanged(Text changed) override {
        text = changed;
        said("textChanged", " " + toUtf8(changed));
    }
    Text text;
};

class CheckClient final : public RecordingClient<CheckBoxClient> {
public:
    using RecordingClient::RecordingClient;
    void checkPressed() override { said("checkPressed"); }
};

class AreaClient : public RecordingClient<SurfaceClient> {
public:
    using RecordingClient::RecordingClient;
    void paint(Canvas& canvas, const PixelRect& dirty) override {
        canvas.fillRect(dirty, Rgb::of(200, 220, 240));
        painted.push_back(dirty);
        if (const auto found = on.find("paint"); found != on.end()) {
            const auto action = found->second;
            action();
        }
    }
    void captureLost() override { said("captureLost"); }
    void hostMoved() override { said("hostMoved"); }
    void pressedElsewhere() override { said("pressedElsewhere"); }
    bool takesDrop(PixelPoint) override { return takesDrops; }
    void drop(DropEvent& event) override {
        event.effect &= drop_effect::copy;
        said("drop", " " + std::to_string(event.at.x) + " " + std::to_string(event.at.y));
    }
    bool takesDrops = true;
    void dpiChanged(Dpi) override { said("dpiChanged"); }
    void appearanceChanged() override {}
    std::vector<PixelRect> painted;
};

}  // namespace obk::port
