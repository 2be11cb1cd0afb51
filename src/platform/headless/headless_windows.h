// The windows of the headless platform.
#pragma once

#include "platform/headless/headless_platform.h"
#include "platform/headless/recording_canvas.h"
#include "widgets/peers.h"

#include <utility>
#include <vector>

namespace obk::headless {

// What a surface and its children have in common. The first client call that finds the window gone ends it
// there.
class HeadlessWindow {
public:
    HeadlessWindow(HeadlessPlatform& platform, PeerClient& client, HeadlessSurface* parent);
    HeadlessWindow(const HeadlessWindow&) = delete;
    HeadlessWindow& operator=(const HeadlessWindow&) = delete;
    virtual ~HeadlessWindow();

    NativeWindow id() const { return id_; }
    HeadlessSurface* parent() const { return parent_; }
    PeerClient& client() const { return client_; }
    virtual bool canTakeFocus() const;
    // Its surface is gone: what is left answers, and does nothing.
    void orphan();
    bool contains(NativeWindow window) const;  // itself or a child of it
    const PixelRect& bounds() const { return bounds_; }
    const PixelRect& clip() const { return clip_; }
    bool visible() const { return visible_; }
    bool enabled() const { return enabled_; }

    // What the window itself does with a key or character that its client let through.
    virtual void keyEffect(const KeyEvent&) {}
    virtual void keyUpEffect(const KeyEvent&) {}
    virtual void mouseEffect(const MouseEvent&) {}
    virtual void characterEffect(char16_t) {}

protected:
    HeadlessPlatform& platform_;
    PeerClient& client_;
    HeadlessSurface* parent_;
    NativeWindow id_;
    PixelRect bounds_;
    PixelRect clip_;
    bool visible_ = true;
    bool enabled_ = true;
};

class HeadlessSurface : public SurfacePeer, public HeadlessWindow {
public:
    HeadlessSurface(HeadlessPlatform& platform, SurfaceClient& client, const SurfacePlacement& placement);
    ~HeadlessSurface() override;

    NativeWindow window() const override { return id(); }
    Dpi dpi() const override { return dpi_; }
    void setParent(NativeWindow) override { kind_ = SurfacePlacement::Kind::control; }
    void setBounds(const PixelRect& bounds) override;
    void setVisible(bool visible) override;
    void setEnabled(bool enabled) override;
    void invalidate(const PixelRect& rect) override;
    void update() override;
    void scroll(const PixelRect& rect, int32_t x, int32_t y) override;
    void capture() override { platform_.takeCapture(id()); }
    void releaseCapture() override;
    bool hasCapture() const override { return platform_.capture() == id(); }
    void focus() override;
    bool hasFocus() const override { return contains(platform_.focus()); }
    bool canTakeFocus() const override;
    void setCursor(Cursor cursor) override { cursor_ = cursor; }
    void setToolTip(const PixelRect&, TextView text) override { toolTip_ = text; }
    void acceptDrops() override { acceptsDrops_ = true; }
    bool acceptsDrops() const { return acceptsDrops_; }
    PixelPoint toScreen(PixelPoint point) const override {
        return {point.x + bounds_.left, point.y + bounds_.top};
    }
    PixelRect workArea() const override { return platform_.workAreaOf(bounds_); }
    std::unique_ptr<TextBoxPeer> createTextBox(TextBoxClient& client) override;
    std::unique_ptr<CheckBoxPeer> createCheckBox(CheckBoxClient& client) override;

    // For tests: paints what is invalid and answers what was drawn.
    RecordingCanvas paint();
    const PixelRect& invalid() const { return invalid_; }
    // What was moved since the last look.
    struct Scrolled {
        PixelRect rect;
        int32_t x = 0, y = 0;
    };
    std::vector<Scrolled> takeScrolled() { return std::exchange(scrolled_, {}); }
    SurfaceClient& surfaceClient() const { return surfaceClient_; }
    SurfacePlacement::Kind kind() const { return kind_; }
    void setDpi(Dpi dpi);
    HeadlessWindow* childAt(PixelPoint point) const;
    const std::vector<HeadlessWindow*>& children() const { return children_; }
    void addChild(HeadlessWindow& child) { children_.push_back(&child); }
    void removeChild(HeadlessWindow& child) { std::erase(children_, &child); }
    const Text& toolTip() const { return toolTip_; }
    Cursor cursor() const { return cursor_; }

private:
    PixelRect area() const { return {0, 0, bounds_.width(), bounds_.height()}; }

    SurfaceClient& surfaceClient_;
    SurfacePlacement::Kind kind_;
    Dpi dpi_;
    PixelRect invalid_;
    std::vector<Scrolled> scrolled_;
    std::vector<HeadlessWindow*> children_;
    Text toolTip_;
    Cursor cursor_ = Cursor::arrow;
    bool acceptsDrops_ = false;
};

// A child of a surface, whatever it shows.
class HeadlessChild : public HeadlessWindow {
public:
    HeadlessChild(HeadlessPlatform& platform, PeerClient& client, HeadlessSurface& parent);
    ~HeadlessChild() override;

    bool holdsFocus() const { return id() != 0 && platform_.focus() == id(); }
    bool canTakeFocus() const override;
    void place(const PixelRect& bounds, const PixelRect& clip);
    void show(bool visible);
    void enable(bool enabled);
    void takeFocus();

private:
    void releaseFocus();
};

// The same as a peer.
template <typename Peer>
class HeadlessChildPeer : public Peer, public HeadlessChild {
public:
    using HeadlessChild::HeadlessChild;

    NativeWindow window() const override { return id(); }
    void setBounds(const PixelRect& bounds, const PixelRect& clip) override { place(bounds, clip); }
    void setVisible(bool visible) override { show(visible); }
    void setEnabled(bool enabled) override { enable(enabled); }
    void setFont(const FontDescription&) override {}
    void setColours(Rgb, Rgb) override {}
    void setAccessibleName(TextView) override {}
    void focus() override { takeFocus(); }
    bool hasFocus() const override { return holdsFocus(); }
};

class HeadlessTextBox : public HeadlessChildPeer<TextBoxPeer> {
public:
    HeadlessTextBox(HeadlessPlatform& platform, TextBoxClient& client, HeadlessSurface& parent);

    void setText(TextView text) override;
    void setSelection(TextSelection selection) override;
    TextSelection selection() const override { return selection_; }
    void setAlignment(HorizontalAlignment) override {}
    void setMaxLength(int32_t length) override { maxLength_ = length; }
    void setReadOnly(bool readOnly) override { readOnly_ = readOnly; }
    void perform(EditCommand command) override;

    void keyEffect(const KeyEvent& event) override;
    void characterEffect(char16_t character) override;

private:
    void replaceSelection(TextView text);
    void report();

    TextBoxClient& textClient_;
    Text text_;
    Text undoText_;
    TextSelection selection_;
    int32_t maxLength_ = 0;
    bool readOnly_ = false;
};

class HeadlessCheckBox : public HeadlessChildPeer<CheckBoxPeer> {
public:
    HeadlessCheckBox(HeadlessPlatform& platform, CheckBoxClient& client, HeadlessSurface& parent);

    void setChecked(bool checked) override { checked_ = checked; }
    bool checked() const { return checked_; }

    void keyEffect(const KeyEvent& event) override;
    void keyUpEffect(const KeyEvent& event) override;
    void mouseEffect(const MouseEvent& event) override;

private:
    void release(bool inside);

    CheckBoxClient& checkClient_;
    bool checked_ = false;
    bool pressed_ = false;
};

class HeadlessTimer : public TimerPeer {
public:
    HeadlessTimer(HeadlessPlatform& platform, KeepAlive keepAlive, std::function<void()> tick);
    ~HeadlessTimer() override;

    void start(std::chrono::milliseconds interval) override;
    void stop() override { running_ = false; }

    bool running() const { return running_; }
    std::chrono::milliseconds left() const { return left_; }
    void pass(std::chrono::milliseconds time) { left_ -= time; }
    // Calls back and begins the next period; may destroy the timer.
    void tick();

private:
    HeadlessPlatform& platform_;
    KeepAlive keepAlive_;
    std::function<void()> tick_;
    std::chrono::milliseconds interval_{1};
    std::chrono::milliseconds left_{1};
    bool running_ = false;
};

}  // namespace obk::headless
