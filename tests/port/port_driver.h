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
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace obk::port {

// Makes things happen on one platform as a person would. Every function returns when all that follows from it
// has been delivered; what is invalid may wait for settle().
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

    void focusHost() { askFocus(host()); }
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
    bool discardsKeys = false;
    std::function<int16_t(int16_t)> changeCharacter;

    std::shared_ptr<void> keepAlive() override { return alive ? std::make_shared<int>(0) : nullptr; }
    void mouse(const MouseEvent& event) override {
        constexpr const char* kinds[] = {"mouseDown", "mouseUp", "move", "doubleClick", "leave"};
        lastMouse = event;
        if (event.kind != MouseEvent::Kind::move || reportsMoves)
            said(kinds[static_cast<size_t>(event.kind)], event.button);
    }
    bool wheel(const WheelEvent& event) override {
        said("wheel", event.delta);
        return usesWheel;
    }
    bool contextMenu(std::optional<PixelPoint> at) override {
        at ? said("contextMenu", at->x, at->y) : said("contextMenu");
        return showsMenu;
    }
    void keyDown(KeyEvent& event) override {
        lastKey = event;
        said("keyDown", event.code);
        if (discardsKeys) event.code = 0;
    }
    void keyUp(KeyEvent& event) override { said("keyUp", event.code); }
    int16_t keyPress(int16_t character) override {
        said("keyPress", character);
        return changeCharacter ? changeCharacter(character) : character;
    }
    void focusGained() override { said("focusGained"); }
    void focusLost() override { said("focusLost"); }
    KeyRoute preTranslate(const KeyEvent& event) override {
        said("preTranslate", event.code);
        return route;
    }
    bool offerToContainer(const KeyEvent& event) override {
        said("offerToContainer", event.code);
        return containerUses;
    }

    MouseEvent lastMouse;
    KeyEvent lastKey;

protected:
    template <typename... Details>
    void said(const std::string& what, const Details&... details) {
        std::ostringstream line;
        line << name_ << "." << what;
        ((line << " " << details), ...);
        journal_.push_back(line.str());
        run(what);
    }
    void run(const std::string& what) {
        if (const auto found = on.find(what); found != on.end()) found->second();
    }

    Journal& journal_;
    std::string name_;
};

class TextClient final : public RecordingClient<TextBoxClient> {
public:
    using RecordingClient::RecordingClient;
    void textChanged(Text changed) override {
        text = changed;
        said("textChanged", toUtf8(changed));
    }
    Text text;
};

class CheckClient final : public RecordingClient<CheckBoxClient> {
public:
    using RecordingClient::RecordingClient;
    void checkPressed() override { said("checkPressed"); }
};

class AreaClient final : public RecordingClient<SurfaceClient> {
public:
    using RecordingClient::RecordingClient;
    void paint(Canvas& canvas, const PixelRect& dirty) override {
        canvas.fillRect(dirty, Rgb::of(200, 220, 240));
        painted.push_back(dirty);
        run("paint");
    }
    void captureLost() override { said("captureLost"); }
    void hostMoved() override { said("hostMoved"); }
    void pressedElsewhere() override { said("pressedElsewhere"); }
    bool takesDrop(PixelPoint) override { return takesDrops; }
    void drop(DropEvent& event) override {
        event.effect &= drop_effect::copy;
        said("drop", event.at.x, event.at.y);
    }
    bool takesDrops = true;
    void dpiChanged(Dpi) override { said("dpiChanged"); }
    void appearanceChanged() override { said("appearanceChanged"); }
    std::vector<PixelRect> painted;
};

}  // namespace obk::port
