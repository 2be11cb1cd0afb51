#include "platform/win32/win32_platform.h"

#include "platform/win32/automation.h"
#include "platform/win32/check_box_window.h"
#include "platform/win32/clipboard.h"
#include "platform/win32/display.h"
#include "platform/win32/dragged_text.h"
#include "platform/win32/handles.h"
#include "platform/win32/pop_up_menu.h"
#include "platform/win32/surface_window.h"
#include "platform/win32/text_box_window.h"
#include "platform/win32/text_conversion.h"

#include <algorithm>

namespace obk::win32 {

namespace {

class Timer final : public TimerPeer {
public:
    Timer(std::shared_ptr<Environment> environment, KeepAlive keepAlive, std::function<void()> tick)
        : environment_(std::move(environment)), callback_(std::make_shared<Callback>()) {
        *callback_ = {std::move(keepAlive), std::move(tick)};
    }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer() override { stop(); }

    void start(std::chrono::milliseconds interval) override {
        stop();
        const auto period = std::clamp<int64_t>(interval.count(), 1, 0x7FFFFFFF);
        timer_ = environment_->service().startTimer(static_cast<UINT>(period), [callback = callback_] {
            // A tick may destroy the timer and all it belongs to.
            const std::shared_ptr<void> alive = callback->keepAlive ? callback->keepAlive() : nullptr;
            if (alive) callback->tick();
        });
    }
    void stop() override {
        if (timer_) environment_->service().stopTimer(std::exchange(timer_, 0));
    }

private:
    struct Callback {
        KeepAlive keepAlive;
        std::function<void()> tick;
    };
    std::shared_ptr<Environment> environment_;
    std::shared_ptr<Callback> callback_;
    UINT_PTR timer_ = 0;
};

// What the peers of all children have in common.
template <typename Peer, typename Window>
class Child : public Peer {
public:
    explicit Child(std::shared_ptr<Window> window) : window_(std::move(window)) {}
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() override { window_->closeChild(); }

    NativeWindow window() const override { return reinterpret_cast<NativeWindow>(window_->hwnd()); }
    void setBounds(const PixelRect& bounds, const PixelRect& clip) override {
        held()->setBounds(bounds, clip);
    }
    void setVisible(bool visible) override { held()->setVisible(visible); }
    void setEnabled(bool enabled) override { held()->setEnabled(enabled); }
    void focus() override { held()->focus(); }
    bool hasFocus() const override { return window_->holdsFocus(); }

protected:
    // What follows from a call may destroy the peer: for those that make windows speak.
    std::shared_ptr<Window> held() const { return window_; }
    std::shared_ptr<Window> window_;
};

class TextBox final : public Child<TextBoxPeer, TextBoxWindow> {
public:
    using Child::Child;

    void setFont(const FontDescription& font) override { held()->setFont(font); }
    void setColours(Rgb text, Rgb background) override { window_->setColours(text, background); }
    void setText(TextView text) override { held()->setText(text); }
    void setSelection(TextSelection selection) override { held()->setSelection(selection); }
    TextSelection selection() const override { return window_->selection(); }
    void setFlow(TextFlow flow) override { held()->setFlow(flow); }
    void setMaxLength(int32_t length) override { window_->setMaxLength(length); }
    void perform(EditCommand command) override { held()->perform(command); }
    bool enteredByKeys() const override { return held()->enteredByKeys(); }
};

class CheckBox final : public Child<CheckBoxPeer, CheckBoxWindow> {
public:
    using Child::Child;

    void setFont(const FontDescription&) override {}  // there is no caption
    void setColours(Rgb, Rgb background) override { window_->setBackground(background); }
    void setChecked(bool checked) override { window_->setChecked(checked); }
};

class Surface final : public SurfacePeer {
public:
    Surface(std::shared_ptr<Environment> environment, std::shared_ptr<SurfaceWindow> window)
        : environment_(std::move(environment)), window_(std::move(window)) {}
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    ~Surface() override { window_->closeSurface(); }

    NativeWindow window() const override { return reinterpret_cast<NativeWindow>(window_->hwnd()); }
    Dpi dpi() const override { return window_->dpi(); }
    void setParent(NativeWindow parent) override { held()->setParent(reinterpret_cast<HWND>(parent)); }
    void setBounds(const PixelRect& bounds) override { held()->setBounds(bounds); }
    void setVisible(bool visible) override { held()->setVisible(visible); }
    void setEnabled(bool enabled) override { held()->setEnabled(enabled); }
    void invalidate(const PixelRect& rect) override { window_->invalidate(rect); }
    void update() override { held()->update(); }
    void scroll(const PixelRect& rect, int32_t x, int32_t y) override { window_->scroll(rect, x, y); }
    void capture() override { held()->capture(); }
    void releaseCapture() override { held()->releaseCapture(); }
    bool hasCapture() const override { return window_->hasCapture(); }
    void focus() override { held()->takeFocus(); }
    bool hasFocus() const override { return window_->holdsFocus(); }
    void setCursor(Cursor cursor) override { window_->setCursor(cursor); }
    void setToolTip(const PixelRect& rect, TextView text, ToolTipShown shown) override {
        window_->setToolTip(rect, text, shown);
    }
    void acceptDrops() override { window_->acceptDrops(); }
    PixelPoint toScreen(PixelPoint point) const override {
        POINT at{point.x, point.y};
        ClientToScreen(window_->hwnd(), &at);
        return {at.x, at.y};
    }
    PixelRect workArea(const PixelRect& place) const override { return workAreaOf(place); }
    Text labelBefore() const override { return window_->labelBefore(); }
    bool readersListen() const override {
        return IsWinEventHookInstalled(EVENT_OBJECT_FOCUS) || automationListens();
    }
    void readersSoon() override { window_->readersSoon(); }
    void tellReaders(AccessibleEvent event, const AccessibleId& of) override {
        held()->tellReaders(event, of);
    }
    void focusStays(const AccessibleId& of) override { held()->placeCaret(of); }
    std::unique_ptr<TextBoxPeer> createTextBox(TextBoxClient& client, const TextBoxStart& start) override {
        auto made = TextBoxWindow::create(environment_, window_, client, start);
        return made ? std::make_unique<TextBox>(std::move(made)) : nullptr;
    }
    std::unique_ptr<CheckBoxPeer> createCheckBox(CheckBoxClient& client,
                                                 const ChildPlacement& placement) override {
        auto made = CheckBoxWindow::create(environment_, window_, client, placement);
        return made ? std::make_unique<CheckBox>(std::move(made)) : nullptr;
    }

private:
    std::shared_ptr<SurfaceWindow> held() const { return window_; }  // as for children

    std::shared_ptr<Environment> environment_;
    std::shared_ptr<SurfaceWindow> window_;
};

}  // namespace

Win32Platform::Win32Platform(HINSTANCE module, ModuleLock lockModule)
    : environment_(std::make_shared<Environment>(module, std::move(lockModule))),
      appearance_(environment_->fonts()) {}

std::unique_ptr<TimerPeer> Win32Platform::createTimer(KeepAlive keepAlive, std::function<void()> tick) {
    return std::make_unique<Timer>(environment_, std::move(keepAlive), std::move(tick));
}

std::unique_ptr<SurfacePeer> Win32Platform::createSurface(SurfaceClient& client,
                                                          const SurfacePlacement& placement) {
    auto window = SurfaceWindow::create(environment_, client, placement);
    if (!window) return nullptr;
    return std::make_unique<Surface>(environment_, std::move(window));
}

std::optional<Rgb> Win32Platform::chooseColour(NativeWindow owner, const ColourQuestion& question) {
    return colourChooser_.choose(reinterpret_cast<HWND>(owner), question);
}

std::optional<size_t> Win32Platform::chooseFromMenu(NativeWindow owner, std::span<const MenuItem> items,
                                                    const PixelRect& beside) {
    return win32::chooseFromMenu(reinterpret_cast<HWND>(owner), items, beside);
}

// No message comes while the work lasts, so the cursor stays what it is made here.
void Win32Platform::showWaitCursor(bool shown) {
    if (shown)
        beforeWait_ = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    else
        SetCursor(beforeWait_);
}

bool Win32Platform::opensMenu(const std::function<void()>& work) {
    return win32::opensMenu(work);
}

int32_t Win32Platform::dragText(TextView text) {
    return win32::dragText(text, environment_->lockModule());
}

bool Win32Platform::putOnClipboard(NativeWindow owner, TextView text) {
    return win32::putOnClipboard(reinterpret_cast<HWND>(owner), text);
}

std::optional<Text> Win32Platform::textOnClipboard(NativeWindow owner) {
    return win32::textOnClipboard(reinterpret_cast<HWND>(owner));
}

}  // namespace obk::win32
