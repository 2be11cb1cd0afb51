// A window system in memory: a peer of the real one, driven by the keys, presses and time that a test makes.
#pragma once

#include "platform/headless/headless_machine.h"
#include "platform/headless/headless_monitors.h"
#include "platform/headless/memory_file_system.h"
#include "platform/headless/planned_answers.h"
#include "widgets/platform.h"
#include "widgets/surface_peer.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace obk::headless {

class HeadlessWindow;
class HeadlessSurface;
class HeadlessTimer;

class HeadlessPlatform : public Platform, public PlannedAnswers, public HeadlessMonitors {
public:
    HeadlessPlatform() = default;
    HeadlessPlatform(const HeadlessPlatform&) = delete;
    HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

    ManualClock& clock() override { return clock_; }
    MemoryRegistry& registry() override { return registry_; }
    FixedAppearance& appearance() override { return appearance_; }
    RegionalFormats regionalFormats() override { return regionalFormats_; }
    // Texts are in the order of their capitals, unit by unit, here.
    void appendSortKey(TextView text, std::string& key) override;
    MemoryFileSystem& files() override { return files_; }
    std::unique_ptr<TimerPeer> createTimer(KeepAlive keepAlive, std::function<void()> tick) override;
    std::unique_ptr<SurfacePeer> createSurface(SurfaceClient& client,
                                               const SurfacePlacement& placement) override;
    std::optional<Rgb> chooseColour(NativeWindow owner, const ColourQuestion& question) override;
    std::optional<size_t> chooseFromMenu(NativeWindow owner, std::span<const MenuItem> items,
                                         const PixelRect& beside) override;
    bool opensMenu(const std::function<void()>& work) override;
    bool putOnClipboard(NativeWindow owner, TextView text) override;
    std::optional<Text> textOnClipboard(NativeWindow owner) override;
    int32_t dragText(TextView text) override;
    void showWaitCursor(bool shown) override { waitCursors_.push_back(shown); }

    // What a person does. Keys go to the focused window; characters too, each with its key going down and up.
    void pressKey(int16_t code, int16_t shift = 0);
    // The halves of a key press; `repeated` for a key that was down already.
    void keyDown(int16_t code, int16_t shift = 0, bool repeated = false);
    void keyUp(int16_t code, int16_t shift = 0);
    void type(TextView text);
    // A mouse event at a point of a surface's client area: whoever has the capture gets it, else a child
    // there. Moving on to another window tells the one before.
    void mouse(NativeWindow surface, const MouseEvent& event);
    void click(NativeWindow surface, PixelPoint at, int16_t button = button::left);
    // What the window there does not use is the host's.
    void wheel(NativeWindow surface, const WheelEvent& event);
    // Lets go of something dragged from elsewhere. What was done with it; none where it cannot be dropped.
    int32_t drop(NativeWindow surface, DropEvent event);
    // Gives the focus to a window that is not in a panel, or with 0 to the host itself.
    void setFocus(NativeWindow window);
    // Another window takes the capture.
    void stealCapture();
    // Something in the host's window is pressed that takes no focus.
    void pressHost();
    // The host's window is moved, minimised, hidden or closed.
    void moveHost();
    // The person turns to another application: whoever has the focus keeps it, panels go.
    void leaveApplication() { moveHost(); }
    // Time passes; timers tick in their order.
    void advance(std::chrono::milliseconds time);
    // Whether screen readers listen, and what they have heard since the last look, once the work of the
    // moment is done: "focus pageTab Home".
    void listen(bool listens) { readersListen_ = listens; }
    std::vector<std::string> takeHeard();
    // Paints what is invalid, as the window system does when nothing else is under way.
    void paintInvalid();
    // Lets a surface paint, at once; what it draws and what was invalid are in its record.
    HeadlessSurface* surface(NativeWindow window) const;
    void setDpi(NativeWindow window, Dpi dpi);
    void setMonitors(std::vector<Monitor> monitors, ScaleTold told = ScaleTold::moved);

    NativeWindow focus() const { return focus_; }
    NativeWindow capture() const { return capture_; }
    // While the mouse does something.
    bool mouseActs() const { return mouseActs_; }
    size_t windowCount() const { return windows_.size(); }
    std::vector<NativeWindow> windows() const;  // in the order they were made
    size_t timerCount() const { return timers_.size(); }

private:
    friend class HeadlessWindow;
    friend class HeadlessSurface;
    friend class HeadlessTextBox;
    friend class HeadlessTimer;

    NativeWindow add(HeadlessWindow& window);
    void remove(HeadlessWindow& window);
    HeadlessWindow* find(NativeWindow window) const;
    void takeCapture(NativeWindow window);
    void typeInto(HeadlessWindow& window, char16_t character);
    void moveOnto(NativeWindow window, const MouseEvent& event);

    ManualClock clock_;
    MemoryRegistry registry_;
    FixedAppearance appearance_;
    MemoryFileSystem files_;
    std::map<NativeWindow, HeadlessWindow*> windows_;
    std::vector<HeadlessTimer*> timers_;
    uint32_t menusOpened_ = 0;
    NativeWindow nextWindow_ = 1, focus_ = 0, capture_ = 0, hovered_ = 0;
    bool mouseActs_ = false;
    bool readersListen_ = false;
    std::vector<NativeWindow> toTellReaders_;
    std::vector<std::string> heard_;
};

}  // namespace obk::headless
