// A window in memory that is the child of a surface.
#pragma once

#include "platform/headless/headless_surface.h"
#include "widgets/child_peer.h"

namespace obk::headless {

// A child of a surface, whatever it shows.
class HeadlessChild : public HeadlessWindow {
public:
    HeadlessChild(HeadlessPlatform& platform, PeerClient& client, HeadlessSurface& parent,
                  const ChildPlacement& placement);
    ~HeadlessChild() override;

    bool holdsFocus() const { return id() != 0 && platform_.focus() == id(); }
    bool canTakeFocus() const override;
    void place(const PixelRect& bounds, const PixelRect& clip);
    void show(bool visible);
    void enable(bool enabled);
    void takeFocus();

protected:
    // Throws while the platform lets its child windows fail.
    void work() const;

private:
    void releaseFocus();
};

// The same as a peer.
template <typename Peer>
class HeadlessChildPeer : public Peer, public HeadlessChild {
public:
    using HeadlessChild::HeadlessChild;

    NativeWindow window() const override { return id(); }
    void setBounds(const PixelRect& bounds, const PixelRect& clip) override {
        work();
        place(bounds, clip);
    }
    void setVisible(bool visible) override {
        work();
        show(visible);
    }
    void setEnabled(bool enabled) override {
        work();
        enable(enabled);
    }
    void setFont(const FontDescription&) override { work(); }
    void setColours(Rgb, Rgb) override { work(); }
    void focus() override {
        work();
        takeFocus();
    }
    bool hasFocus() const override {
        work();
        return holdsFocus();
    }
};

}  // namespace obk::headless
