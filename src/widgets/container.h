// A widget that draws its background and holds others: a frame, a panel, a control's whole surface.
#pragma once

#include "widgets/widget.h"

#include <vector>

namespace obk {

class Container : public Widget {
public:
    explicit Container(Container& parent) : Widget(parent) {}
    // A root: a control's surface or a panel. The owner of its window and of its life tells both.
    Container(Platform& platform, KeepAlive keepAlive) : Widget(platform), keepAlive_(std::move(keepAlive)) {}
    ~Container() override;

    OleColour BackColor() const { return backColour_; }
    void SetBackColor(OleColour colour);
    void setSurface(Surface* surface) { surface_ = surface; }
    // Makes another root part of this tree, until either of them goes.
    void adopt(Container& root);
    // Whether a widget below this one has the keyboard focus.
    bool holdsFocus() const;

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    Widget* hitTest(PixelPoint point) override;
    void attach(SurfacePeer& peer) override;
    void detach() override;
    void placed() override;
    void appearanceChanged() override;
    Widget* focused() override;
    bool takeFocus() override;
    std::span<Widget* const> children() const override { return children_; }

protected:
    void paintChildren(Canvas& canvas, const PixelRect& bounds);
    Surface* ownSurface() const override { return surface_; }
    std::shared_ptr<void> ownKeepAlive() const override { return keepAlive_ ? keepAlive_() : nullptr; }

private:
    friend class Widget;
    std::vector<Widget*> children_;  // borrowed; they take themselves out
    OleColour backColour_{SystemColour::buttonFace};
    Surface* surface_ = nullptr;
    KeepAlive keepAlive_;
};

}  // namespace obk
