// The window in memory of a control or of a panel.
#pragma once

#include "platform/headless/headless_window.h"
#include "platform/headless/recording_canvas.h"
#include "widgets/surface_peer.h"

#include <memory>
#include <utility>
#include <vector>

namespace obk::headless {

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
    void capture() override;
    void releaseCapture() override;
    bool hasCapture() const override { return platform_.capture() == id(); }
    void focus() override;
    bool hasFocus() const override { return contains(platform_.focus()); }
    bool canTakeFocus() const override;
    void setCursor(Cursor cursor) override { cursor_ = cursor; }
    void setToolTip(const PixelRect&, TextView text, ToolTipShown shown) override {
        if (platform_.refusesRequest()) return;
        toolTip_ = text;
        toolTipShown_ = shown;
    }
    void acceptDrops() override { acceptsDrops_ = true; }
    bool acceptsDrops() const { return acceptsDrops_; }
    PixelPoint toScreen(PixelPoint point) const override {
        return {point.x + bounds_.left, point.y + bounds_.top};
    }
    PixelRect workArea(const PixelRect& place) const override { return platform_.monitorOf(place).workArea; }
    Text labelBefore() const override { return label_; }
    void setLabel(Text label) { label_ = std::move(label); }
    bool readersListen() const override { return platform_.readersListen_; }
    void readersSoon() override { platform_.toTellReaders_.push_back(id()); }
    void tellReaders(AccessibleEvent event, const AccessibleId& of) override;
    std::unique_ptr<TextBoxPeer> createTextBox(TextBoxClient& client, const TextBoxStart& start) override;
    std::unique_ptr<CheckBoxPeer> createCheckBox(CheckBoxClient& client,
                                                 const ChildPlacement& placement) override;

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
    // A panel takes the scale of the monitor that it is on.
    void followMonitor();
    HeadlessWindow* childAt(PixelPoint point) const;
    const std::vector<HeadlessWindow*>& children() const { return children_; }
    void addChild(HeadlessWindow& child) { children_.push_back(&child); }
    void removeChild(HeadlessWindow& child) { std::erase(children_, &child); }
    const Text& toolTip() const { return toolTip_; }
    ToolTipShown toolTipShown() const { return toolTipShown_; }
    Cursor cursor() const { return cursor_; }

private:
    Dpi monitorDpi() const;
    PixelRect area() const { return {0, 0, bounds_.width(), bounds_.height()}; }

    SurfaceClient& surfaceClient_;
    SurfacePlacement::Kind kind_;
    Dpi dpi_;
    PixelRect invalid_;
    std::vector<Scrolled> scrolled_;
    std::vector<HeadlessWindow*> children_;
    Text toolTip_;
    Text label_;
    ToolTipShown toolTipShown_ = ToolTipShown::whenMouseRests;
    Cursor cursor_ = Cursor::arrow;
    bool acceptsDrops_ = false;
};

}  // namespace obk::headless
