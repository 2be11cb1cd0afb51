#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "port_conformance.h"

#include <optional>
#include <set>

namespace obk::port {
namespace {

class HeadlessDriver final : public PortDriver {
public:
    headless::HeadlessPlatform& platform() override { return platform_; }
    NativeWindow host() override { return outside; }
    void keyDown(int16_t code, int16_t shift) override {
        const bool repeated = !held_.insert(code).second;
        platform_.keyDown(code, shift, repeated);
    }
    void keyUp(int16_t code, int16_t shift) override {
        held_.erase(code);
        platform_.keyUp(code, shift);
    }
    void mouseMove(SurfacePeer& surface, PixelPoint at) override {
        screen_ = surface.toScreen(at);
        send(MouseEvent::Kind::move, heldButtons_);
    }
    void mouseDown(int16_t button) override {
        heldButtons_ = static_cast<int16_t>(heldButtons_ | button);
        const headless::HeadlessSurface* const target = under();
        const std::pair press{target ? target->id() : 0, screen_};
        const bool second = lastPress_ == press;
        lastPress_ = second ? std::nullopt : std::optional(press);
        send(second ? MouseEvent::Kind::doubleClick : MouseEvent::Kind::down, button);
    }
    void mouseUp(int16_t button) override {
        heldButtons_ = static_cast<int16_t>(heldButtons_ & ~button);
        send(MouseEvent::Kind::up, button);
    }
    void wheel(int32_t delta) override {
        if (headless::HeadlessSurface* target = under())
            platform_.wheel(target->id(), {delta, false, 0, mouseOn(*target)});
    }
    void pressTool() override { platform_.pressHost(); }
    void moveHost() override { platform_.moveHost(); }
    void askFocus(NativeWindow window) override { platform_.setFocus(window); }
    void leaveApplication() override { platform_.leaveApplication(); }
    void returnToApplication(NativeWindow window) override { askFocus(window); }
    void takeCaptureAway() override { platform_.stealCapture(); }
    void letGoAt(SurfacePeer& surface, PixelPoint at) override {
        screen_ = surface.toScreen(at);
        platform_.answerDrag([this, at](TextView) {
            const headless::HeadlessSurface* const target = under();
            return target ? platform_.drop(target->id(), {nullptr, drop_effect::copy, button::left, 0, at})
                          : drop_effect::none;
        });
    }
    void pass(std::chrono::milliseconds time) override { platform_.advance(time); }
    void settle() override { platform_.paintInvalid(); }

private:
    static constexpr NativeWindow outside = 1'000'000;

    // The surface that the mouse is over or that has the capture; panels lie above.
    headless::HeadlessSurface* under() {
        if (headless::HeadlessSurface* holder = platform_.surface(platform_.capture())) return holder;
        headless::HeadlessSurface* found = nullptr;
        for (const NativeWindow each : platform_.windows()) {
            headless::HeadlessSurface* surface = platform_.surface(each);
            if (surface && surface->visible() && surface->bounds().contains(screen_)) found = surface;
        }
        return found;
    }
    PixelPoint mouseOn(const headless::HeadlessSurface& surface) const {
        const PixelPoint origin = surface.toScreen({0, 0});
        return {screen_.x - origin.x, screen_.y - origin.y};
    }
    void send(MouseEvent::Kind kind, int16_t button) {
        if (headless::HeadlessSurface* target = under())
            platform_.mouse(target->id(), {kind, button, 0, mouseOn(*target)});
    }

    headless::HeadlessPlatform platform_;
    std::set<int16_t> held_;
    PixelPoint screen_{-1, -1};
    int16_t heldButtons_ = 0;
    std::optional<std::pair<NativeWindow, PixelPoint>> lastPress_;  // where, of a single click
};

INSTANTIATE_TEST_SUITE_P(Headless, PortConformance,
                         testing::Values(DriverFactory([] { return std::make_unique<HeadlessDriver>(); })),
                         [](const auto&) { return std::string("InMemory"); });

}  // namespace
}  // namespace obk::port
