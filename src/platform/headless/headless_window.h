// A window in memory, of whatever kind.
#pragma once

#include "platform/headless/headless_platform.h"
#include "widgets/peer_client.h"

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
    bool inPanel() const;
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

}  // namespace obk::headless
