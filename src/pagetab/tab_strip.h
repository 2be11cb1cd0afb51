// The strip as a widget: draws the tabs of a tab set, scrolls them, and knows which one is under the mouse.
#pragma once

#include "base/event.h"
#include "pagetab/scroll_buttons.h"
#include "pagetab/strip_layout.h"
#include "pagetab/tab_painter.h"
#include "pagetab/tab_set.h"
#include "widgets/font_holder.h"
#include "widgets/widget.h"

#include <optional>

namespace obk {

class TabStrip final : public Widget {
public:
    // `tabs` is borrowed; whoever changes it calls `tabsChanged`, `tabAdded` or `reveal`.
    TabStrip(Container& parent, const TabSet& tabs);

    // How the pieces of the tabs are painted: the selected one in its look, that one highlighted as well, or
    // all of them disabled.
    enum class Pieces : uint8_t { selected, highlighted, disabled };
    // What is shown; call `invalidate` after changing any of it.
    struct State {
        Pieces pieces = Pieces::selected;
        OleColour strip{SystemColour::buttonFace};
        OleColour tab{SystemColour::buttonFace};
        OleColour page{SystemColour::buttonFace};
        OleColour activePage;  // of the active tab alone; 0: as any page
        OleColour text{SystemColour::buttonText};
        bool focused = false;
    };
    State state;
    FontHolder font;
    void setLook(Look look);
    void setRightToLeft(bool rightToLeft);

    void tabsChanged();
    void tabAdded();
    // Lays out anew and brings the active tab into the view.
    void reveal();

    // The tab at a point of the strip; 0 for none.
    int32_t tabAt(PixelPoint point) const;
    void forgetHover();

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    bool wheel(const WheelEvent& event) override { return buttons_.wheel(event); }
    void attach(SurfacePeer&) override { reveal(); }
    void detach() override { forgetHover(); }
    void placed() override { reveal(); }
    void appearanceChanged() override { tabsChanged(); }
    bool takeFocus() override;
    void describe(std::vector<AccessibleItem>& items) const override;

    Event<const MouseEvent&> mouseReported;

private:
    static constexpr int32_t none = -99;

    CaptionSizes measured(Dpi dpi) const;
    PixelSize measured(const Tab& tab, Dpi dpi) const;
    StripSpace space(const PixelRect& bounds, Dpi dpi) const;
    void scrollTo(int32_t first);
    void hoverAt(std::optional<PixelPoint> point);
    void showToolTip();
    void invalidateTab(int32_t index);
    TabFace faceOf(int32_t index, const StripLayout& layout, int32_t first) const;

    const TabSet& tabs_;
    ScrollButtons buttons_;
    Look look_ = Look::flat;
    bool rightToLeft_ = false;
    Dpi measuredAt_;
    CaptionSizes captions_;
    StripLayout layout_;
    int32_t first_ = 1;       // at the beginning of the view
    int32_t hovered_ = none;  // the tab under the mouse
    std::optional<PixelPoint> mouseAt_;
    Connection scrolled_;
};

}  // namespace obk
