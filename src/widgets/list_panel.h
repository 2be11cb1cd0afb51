// The list that a field drops down: a panel beside the field, which keeps the keyboard.
#pragma once

#include "widgets/list_view.h"
#include "widgets/surface.h"

#include <vector>

namespace obk {

// Holds the mouse capture while it is open. A press elsewhere, another window that takes the capture and a
// host's window that moves close it; so does the field, to which keys and wheel go.
class ListPanel final : private SurfaceOwner {
public:
    // Both are borrowed.
    ListPanel(Widget& field, const std::vector<Text>& items);
    ListPanel(const ListPanel&) = delete;
    ListPanel& operator=(const ListPanel&) = delete;
    ~ListPanel();

    ListView& view() { return view_; }
    const ListView& view() const { return view_; }
    bool open() const { return open_; }
    // Whether it is open now: not where the field has no place on the screen.
    bool show(int32_t marked);
    // The items are others: as large as they need.
    void itemsChanged();
    void hide();
    // Its window goes, too.
    void close();

    Event<int32_t> chosen;  // with the mouse; the panel has closed
    Event<> closed;

private:
    class Root final : public Container {
    public:
        explicit Root(ListPanel& panel);
        void mouse(const MouseEvent& event) override;

    private:
        ListPanel& panel_;
    };

    PixelRect anchor(const Surface& host) const;
    PixelRect placed(Dpi dpi, const Surface& host) const;
    void fit();

    KeyRoute preTranslate(const KeyEvent& event) override;
    bool offerToContainer(const KeyEvent& event) override;
    // The focus never is in a panel.
    void focusEntered() override {}
    void focusLeft() override {}
    void surfaceCaptureLost() override;
    void surfaceHostMoved() override { hide(); }
    void surfaceChanged() override;
    bool mirrored() const override {
        const Surface* const host = field_.surface();
        return host && host->mirrored();
    }
    AccessibleItem describeSurface() const override;

    Widget& field_;
    Root root_;
    ListView view_;
    Surface surface_;
    Connection chosen_;
    bool open_ = false;
    bool fitting_ = false;
};

}  // namespace obk
