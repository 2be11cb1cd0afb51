#include "pagetab/tab_strip.h"

#include "base/attempt.h"
#include "base/caption_text.h"
#include "widgets/surface.h"

#include <algorithm>

namespace obk {

TabStrip::TabStrip(Container& parent, const PageTabModel& model)
    : Widget(parent),
      model_(model),
      font_([this] {
          measureAnew();
          fontChanged();
      }),
      buttons_(parent) {
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
    return platform().appearance().measure(plainCaption(tab.caption), tab.font.over(font_.description()),
                                           dpi);
}

void TabStrip::measure(CaptionSizes& captions, Dpi dpi) const {
    // An empty strip is as high as its font wants it.
    if (captions.widths.empty()) captions.height = measured(Tab(), dpi).height;
    while (captions.widths.size() < static_cast<size_t>(model_.count())) {
        const PixelSize size = measured(model_.tab(static_cast<int32_t>(captions.widths.size()) + 1), dpi);
        captions.widths.push_back(size.width);
        captions.height = std::max(captions.height, size.height);
    }
}

void TabStrip::measureAnew() {
    captions_ = {};
    reveal();
}

StripSpace TabStrip::space(const PixelRect& bounds, Dpi dpi) const {
    return {{bounds.width(), bounds.height()}, dpi, rightToLeft_};
}

void TabStrip::reveal() {
    // The window may be on another monitor than the measures are of.
    if (measuredAt_ != dpi() || measured_ != model_.revision()) captions_ = {};
    measuredAt_ = dpi();
    measured_ = model_.revision();
    layout_ = {};
    attempt([&] { measure(captions_, measuredAt_); });
    attempt([&] { layout_ = StripLayout(captions_, space(pixelBounds(), measuredAt_)); });
    scrollTo(layout_.revealing(model_.active(), first_));
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

void TabStrip::showToolTip() {
    Surface* shownOn = surface();
    if (!shownOn) return;
    const PixelRect own = pixelBounds();
    if (hovered_ == none) {
        shownOn->setToolTip(own, {});
        return;
    }
    const PixelRect tab = layout_.tab(hovered_, first_);
    const bool cut =
        captions_.widths[static_cast<size_t>(hovered_) - 1] > layout_.captionPlace(tab).width() ||
        tab.intersected(layout_.view()) != tab;
    attempt([&] {
        shownOn->setToolTip(tab.intersected(layout_.view()).moved(own.left, own.top),
                            cut ? plainCaption(model_.caption(hovered_)) : Text());
    });
}

TabFace TabStrip::faceOf(int32_t index, const StripLayout& layout, int32_t first) const {
    const Tab& tab = model_.tab(index);
    TabFace face;
    face.rect = layout.tab(index, first);
    face.caption = layout.captionPlace(face.rect);
    face.text = lineOfCaption(tab.caption);
    face.font = tab.font.over(font_.description());
    face.selected = index == model_.active();
    face.hovered = index == hovered_ || (face.selected && model_.pieces == PageTabModel::Pieces::highlighted);
    face.enabled = model_.pieces != PageTabModel::Pieces::disabled;
    face.focused = face.selected && showsFocus();
    face.rightToLeft = rightToLeft_;
    return face;
}

void TabStrip::paint(Canvas& canvas, const PixelRect& bounds) {
    // On paper, or before there is a window, in another size or scale than on the screen.
    StripLayout other;
    const bool asShown = layout_.space() == space(bounds, canvas.dpi());
    if (!asShown) {
        CaptionSizes captions;
        measure(captions, canvas.dpi());
        other = StripLayout(captions, space(bounds, canvas.dpi()));
    }
    const StripLayout& layout = asShown ? layout_ : other;
    const int32_t first = layout.revealing(0, first_);
    const auto moved = [&bounds](const PixelRect& rect) { return rect.moved(bounds.left, bounds.top); };

    TabPainter painter(
        canvas, platform(), look_,
        {rgb(model_.clrPAGEBACK), rgb(model_.clrTAB), rgb(model_.shownPageColour()), rgb(model_.clrTEXT)});
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
    const int32_t last = std::min(layout.lastShown(first), model_.count());
    for (int32_t index = first; index <= last; ++index) {
        if (index != model_.active()) paintTab(index);
    }
    if (model_.active() >= first && model_.active() <= last) paintTab(model_.active());
    if (showsFocus() && model_.active() == 0) canvas.drawFocusRect(reach.inset(canvas.dpi().scaled(1)));
}

void TabStrip::mouse(const MouseEvent& event) {
    using Kind = MouseEvent::Kind;
    if (event.kind == Kind::leave) return forgetHover();
    hoverAt(event.at);
    if (event.kind == Kind::move) return mouseMoved(event);
    Surface* shownOn = surface();
    if (event.kind == Kind::up) {
        if (shownOn) shownOn->releaseCapture(*this);
        return mouseReleased(event);
    }
    const int32_t tab = tabAt(event.at);
    // A drag that ends elsewhere is still told as released.
    if (shownOn) shownOn->capture(*this);
    (event.kind == Kind::down ? pressed : doubleClicked)(tab, event);
}

bool TabStrip::showsFocus() const {
    const Surface* shownOn = surface();
    return shownOn && shownOn->hasFocus();
}

bool TabStrip::takeFocus() {
    Surface* shownOn = surface();
    return shownOn && !pixelClip().empty() && shownOn->takeFocus();
}

AccessibleItem TabStrip::accessible(AccessiblePart part) const {
    using Kind = AccessibleAction::Kind;
    if (part.whole()) return {};
    const int32_t index = part.row + 1;
    const PixelRect own = pixelBounds();
    AccessibleItem item = itemOf(AccessibleItem::Role::pageTab, nameOf(index));
    item.bounds = layout_.tab(index, first_).intersected(layout_.view()).moved(own.left, own.top);
    item.position = index;
    item.setSize = model_.count();
    item.set(AccessibleItem::selectable);
    item.set(AccessibleItem::focusable);
    item.set(AccessibleItem::selected, index == model_.active());
    item.accessKey = spokenAccessKey(model_.caption(index));
    item.allow(Kind::press, Kind::select, Kind::show);
    return item;
}

// Captions may repeat, or hold nothing that can be said.
Text TabStrip::nameOf(int32_t index) const {
    const auto spoken = [this](int32_t tab) {
        Text name = plainCaption(model_.caption(tab));
        makeSpoken(name);
        return Text(trimmed(name));
    };
    const Text name = spoken(index);
    bool another = name.empty();
    for (int32_t other = 1; other <= model_.count() && !another; ++other)
        another = other != index && spoken(other) == name;
    return another ? name + (name.empty() ? u"Tab " : u", tab ") + decimalText(index) : name;
}

AccessibleId TabStrip::accessibleFocus() {
    if (!showsFocus() || model_.active() == 0) return {};
    return {this, {model_.active() - 1, -1}};
}

void TabStrip::useAccessible(AccessiblePart part, const AccessibleAction& action) {
    if (action.kind == AccessibleAction::Kind::show)
        scrollTo(layout_.revealing(part.row + 1, first_));
    else
        chosen(part.row + 1);
}

}  // namespace obk
