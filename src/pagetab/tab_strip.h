// The strip as a widget: shows a model, scrolls its tabs, and reports what a person does to them.
#pragma once

#include "base/event.h"
#include "pagetab/page_tab_model.h"
#include "pagetab/scroll_buttons.h"
#include "pagetab/strip_layout.h"
#include "pagetab/tab_painter.h"
#include "widgets/font_holder.h"
#include "widgets/widget.h"

#include <optional>

namespace obk {

class TabStrip final : public Widget {
public:
    // `model` is borrowed. Whoever changes its tabs or their fonts, or which one is active, calls `reveal`;
    // `invalidate` does for the rest.
    TabStrip(Container& parent, const PageTabModel& model);

    const FontRef& font() const { return font_.font(); }
    void setFont(FontRef font) { font_.set(std::move(font)); }
    void setLook(Look look);
    void setRightToLeft(bool rightToLeft);
    // Lays out anew and brings the active tab into the view.
    void reveal();
    // As if the mouse were elsewhere.
    void forgetHover() { hoverAt(std::nullopt); }

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    bool wheel(const WheelEvent& event) override { return buttons_.wheel(event); }
    void attach(SurfacePeer&) override { reveal(); }
    void detach() override { forgetHover(); }
    void placed() override { reveal(); }
    void appearanceChanged() override { measureAnew(); }
    bool takeFocus() override;
    AccessibleItem accessible(AccessiblePart part) const override;
    int32_t accessibleParts(AccessiblePart of) const override { return of.whole() ? model_.count() : 0; }
    AccessibleId accessibleFocus() override;
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    // With the tab at the mouse, 0 beside them. The mouse is the strip's from a press to its release.
    Event<int32_t, const MouseEvent&> pressed, doubleClicked;
    Event<const MouseEvent&> mouseMoved, mouseReleased;
    Event<int32_t> chosen;  // by a screen reader
    Event<> fontChanged;    // another one came, or a host changed the one that is shown

private:
    static constexpr int32_t none = -99;

    PixelSize measured(const Tab& tab, Dpi dpi) const;
    // Adds the tabs whose measures `captions` has not got.
    void measure(CaptionSizes& captions, Dpi dpi) const;
    void measureAnew();
    StripSpace space(const PixelRect& bounds, Dpi dpi) const;
    void scrollTo(int32_t first);
    Text nameOf(int32_t index) const;
    bool showsFocus() const;
    // The tab at a point of the strip; 0 for none.
    int32_t tabAt(PixelPoint point) const { return layout_.tabAt(point, first_); }
    void hoverAt(std::optional<PixelPoint> point);
    void showToolTip();
    void invalidateTab(int32_t index);
    TabFace faceOf(int32_t index, const StripLayout& layout, int32_t first) const;

    const PageTabModel& model_;
    FontHolder font_;
    ScrollButtons buttons_;
    Look look_ = Look::flat;
    bool rightToLeft_ = false;
    Dpi measuredAt_;
    uint32_t measured_ = 0;  // the model's revision
    CaptionSizes captions_;
    StripLayout layout_;
    int32_t first_ = 1;       // at the beginning of the view
    int32_t hovered_ = none;  // the tab under the mouse
    std::optional<PixelPoint> mouseAt_;
    Connection scrolled_;
};

}  // namespace obk
