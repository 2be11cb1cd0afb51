#include "pagetab/tab_strip.h"

#include "pagetab/caption_text.h"
#include "widgets/surface.h"

#include <algorithm>

namespace obk {

TabStrip::TabStrip(Container& parent, const TabSet& tabs)
    : Widget(parent), font([this] { tabsChanged(); }), tabs_(tabs), buttons_(parent) {
    scrolled_ =
        buttons_.scrolled.connect([this](int32_t by) { scrollTo(first_ + (rightToLeft_ ? -by : by)); });
}

void TabStrip::setLook(Look look) {
    look_ = look;
    buttons_.setLook(look);
    invalidate();
}

void TabStrip::setRightToLeft(bool rightToLeft) {
    rightToLeft_ = rightToLeft;
    reveal();
}

PixelSize TabStrip::measured(const Tab& tab, Dpi dpi) const {
    return platform().appearance().measure(plainCaption(tab.caption), tab.font.over(font.description()), dpi);
}

CaptionSizes TabStrip::measured(Dpi dpi) const {
    // An empty strip is as high as its font wants it.
    CaptionSizes sizes;
    sizes.height = measured(Tab(), dpi).height;
    for (int32_t index = 1; index <= tabs_.count(); ++index) {
        const PixelSize size = measured(tabs_.tab(index), dpi);
        sizes.widths.push_back(size.width);
        sizes.height = std::max(sizes.height, size.height);
    }
    return sizes;
}

StripSpace TabStrip::space(const PixelRect& bounds, Dpi dpi) const {
    return {{bounds.width(), bounds.height()}, dpi, rightToLeft_};
}

void TabStrip::tabsChanged() {
    measuredAt_ = dpi();
    captions_ = measured(measuredAt_);
    reveal();
}

void TabStrip::tabAdded() {
    if (measuredAt_ != dpi()) return tabsChanged();
    const PixelSize size = measured(tabs_.tab(tabs_.count()), dpi());
    captions_.widths.push_back(size.width);
    captions_.height = std::max(captions_.height, size.height);
    reveal();
}

void TabStrip::reveal() {
    // The window may be on another monitor than the measures are of.
    if (measuredAt_ != dpi()) return tabsChanged();
    layout_ = StripLayout(captions_, space(pixelBounds(), dpi()));
    scrollTo(layout_.revealing(tabs_.active(), first_));
}

void TabStrip::scrollTo(int32_t first) {
    first_ = layout_.revealing(0, first);
    const bool before = first_ > 1;
    const bool after = first_ < layout_.furthestFirst();
    buttons_.place(layout_.buttons(), rightToLeft_ ? after : before, rightToLeft_ ? before : after);
    hoverAt(mouseAt_);
    if (hovered_ != none) showToolTip();
    invalidate();
}

int32_t TabStrip::tabAt(PixelPoint point) const {
    return layout_.tabAt(point, first_);
}

void TabStrip::hoverAt(std::optional<PixelPoint> point) {
    mouseAt_ = point;
    const int32_t tab = point ? tabAt(*point) : 0;
    const int32_t now = tab == 0 ? none : tab;
    if (now == hovered_) return;
    invalidateTab(hovered_);
    invalidateTab(now);
    hovered_ = now;
    showToolTip();
}

void TabStrip::invalidateTab(int32_t index) {
    Surface* shownOn = surface();
    const PixelRect tab = layout_.tab(index, first_);
    if (!shownOn || tab.empty()) return;
    const PixelRect clip = pixelClip();
    const PixelRect grown = tab.inset(-(layout_.view().left - layout_.reach().left));
    shownOn->invalidate(grown.moved(pixelBounds().left, pixelBounds().top).intersected(clip));
}

void TabStrip::forgetHover() {
    hoverAt(std::nullopt);
}

void TabStrip::showToolTip() {
    Surface* shownOn = surface();
    if (!shownOn || !shownOn->peer()) return;
    const PixelRect own = pixelBounds();
    if (hovered_ == none) {
        shownOn->peer()->setToolTip(own, {});
        return;
    }
    const PixelRect tab = layout_.tab(hovered_, first_);
    const bool cut =
        captions_.widths[static_cast<size_t>(hovered_) - 1] > layout_.captionPlace(tab).width() ||
        tab.intersected(layout_.view()) != tab;
    shownOn->peer()->setToolTip(tab.intersected(layout_.view()).moved(own.left, own.top),
                                cut ? plainCaption(tabs_.caption(hovered_)) : Text());
}

TabFace TabStrip::faceOf(int32_t index, const StripLayout& layout, int32_t first) const {
    const Tab& tab = tabs_.tab(index);
    TabFace face;
    face.rect = layout.tab(index, first);
    face.caption = layout.captionPlace(face.rect);
    face.text = lineOfCaption(tab.caption);
    face.font = tab.font.over(font.description());
    face.selected = index == tabs_.active();
    face.hovered = index == hovered_ || (face.selected && state.pieces == Pieces::highlighted);
    face.enabled = state.pieces != Pieces::disabled;
    face.focused = face.selected && state.focused;
    face.rightToLeft = rightToLeft_;
    return face;
}

void TabStrip::paint(Canvas& canvas, const PixelRect& bounds) {
    // On paper, or before there is a window, in another size or scale than on the screen.
    StripLayout other;
    const bool asShown = layout_.space() == space(bounds, canvas.dpi());
    if (!asShown) other = StripLayout(measured(canvas.dpi()), space(bounds, canvas.dpi()));
    const StripLayout& layout = asShown ? layout_ : other;
    const int32_t first = layout.revealing(0, first_);
    const auto moved = [&bounds](const PixelRect& rect) { return rect.moved(bounds.left, bounds.top); };

    const OleColour page = state.activePage == OleColour() ? state.page : state.activePage;
    TabPainter painter(canvas, platform(), look_,
                       {rgb(state.strip), rgb(state.tab), rgb(page), rgb(state.text)});
    painter.strip(bounds);
    painter.page(moved(layout.page()));
    const PixelRect reach = moved(layout.reach());
    const CanvasClip clip(canvas, {reach.left, reach.top, reach.right, bounds.bottom});
    const auto paintTab = [&](int32_t index) {
        TabFace face = faceOf(index, layout, first);
        face.rect = moved(face.rect);
        face.caption = moved(face.caption);
        painter.tab(face);
    };
    const int32_t last = std::min(layout.lastShown(first), tabs_.count());
    for (int32_t index = first; index <= last; ++index) {
        if (index != tabs_.active()) paintTab(index);
    }
    if (tabs_.active() >= first && tabs_.active() <= last) paintTab(tabs_.active());
    if (state.focused && tabs_.active() == 0) canvas.drawFocusRect(reach.inset(canvas.dpi().scaled(1)));
}

void TabStrip::mouse(const MouseEvent& event) {
    if (event.kind == MouseEvent::Kind::leave)
        forgetHover();
    else
        hoverAt(event.at);
    mouseReported(event);
}

bool TabStrip::takeFocus() {
    Surface* shownOn = surface();
    if (!shownOn || !shownOn->peer() || pixelClip().empty()) return false;
    if (!shownOn->peer()->hasFocus()) shownOn->peer()->focus();
    return shownOn->peer() && shownOn->peer()->hasFocus();
}

void TabStrip::describe(std::vector<AccessibleItem>& items) const {
    const PixelRect own = pixelBounds();
    for (int32_t index = 1; index <= tabs_.count(); ++index) {
        const PixelRect shown = layout_.tab(index, first_).intersected(layout_.view());
        items.push_back({AccessibleItem::Role::pageTab,
                         plainCaption(tabs_.caption(index)),
                         {},
                         shown.moved(own.left, own.top),
                         true,
                         index == tabs_.active()});
    }
}

}  // namespace obk
