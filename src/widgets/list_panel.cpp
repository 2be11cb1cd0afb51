#include "widgets/list_panel.h"

#include "base/attempt.h"
#include "base/scoped_value.h"
#include "widgets/pop_up_placement.h"

#include <algorithm>

namespace obk {

namespace {

constexpr int32_t mostItems = 20;  // that show at once

}  // namespace

ListPanel::Root::Root(ListPanel& panel)
    : Container(panel.field_.platform(), [&panel] { return panel.field_.keepAlive(); }), panel_(panel) {}

// What no item and no bar takes, all that is outside among it.
void ListPanel::Root::mouse(const MouseEvent& event) {
    const bool press = event.kind == MouseEvent::Kind::down || event.kind == MouseEvent::Kind::doubleClick;
    if (press) panel_.hide();
}

ListPanel::ListPanel(Widget& field, const std::vector<Text>& items)
    : field_(field), root_(*this), view_(root_, items), surface_(root_, *this) {
    chosen_ = view_.chosen.connect([this](int32_t item) {
        hide();
        chosen(item);
    });
}

ListPanel::~ListPanel() {
    close();
}

bool ListPanel::show(int32_t marked) {
    if (open_) return true;
    Surface* const host = field_.surface();
    if (!host || !host->placed() || field_.pixelClip().empty()) return false;
    if (!surface_.isOpen() &&
        !surface_.open({SurfacePlacement::Kind::panel, host->window(), placed(host->dpi(), *host)}))
        return false;
    fit();
    open_ = true;
    field_.announce(AccessibleEvent::expanded);
    view_.mark(-1);
    view_.mark(marked);
    host->beginDropDown(field_);
    // Whoever loses the capture may tell a host, which may close the list or the control.
    surface_.holdCapture();
    if (open_) surface_.setVisible(true);
    if (open_) surface_.update();
    return open_;
}

void ListPanel::itemsChanged() {
    view_.itemsChanged();
    if (open_) fit();
}

void ListPanel::hide() {
    if (!open_) return;
    open_ = false;
    surface_.endCapture();
    surface_.setVisible(false);
    if (Surface* const host = field_.surface()) host->endDropDown(field_);
    attempt([&] { closed(); });
}

void ListPanel::close() {
    hide();
    surface_.close();
}

PixelRect ListPanel::anchor(const Surface& host) const {
    return host.toScreen(field_.pixelBounds());
}

// Below the field or above it, with as many items as there is room for.
PixelRect ListPanel::placed(Dpi dpi, const Surface& host) const {
    const PixelRect beside = anchor(host), area = host.workArea(beside);
    const int32_t room = std::max(beside.top - area.top, area.bottom - beside.bottom);
    const int32_t least = dpi.toPixels(field_.bounds().width);
    PixelSize size = view_.size(dpi, least, mostItems);
    for (int32_t items = mostItems; size.height > room && items > 1;) size = view_.size(dpi, least, --items);
    size.width = std::min(size.width, std::max(area.width(), least));
    return placePopUp(beside, size, area, PopUpSide::below, host.mirrored());
}

// Where it comes to lie may be a monitor of another scale, at which it has another size.
void ListPanel::fit() {
    const Surface* host = field_.surface();
    if (!host || !surface_.isOpen() || fitting_) return;
    const ScopedFlag fitting(fitting_);
    surface_.setBounds(placed(surface_.dpi(), *host));
    const Dpi scale = surface_.dpi();
    const PixelRect place = placed(scale, *host);
    surface_.setBounds(place);
    const TwipsRect all{{0}, {0}, scale.toTwips(place.width()), scale.toTwips(place.height())};
    root_.move(all);
    view_.move(all);
    root_.placed();
    root_.invalidate();
}

KeyRoute ListPanel::preTranslate(const KeyEvent& event) {
    Surface* const host = field_.surface();
    return host ? host->preTranslate(event) : KeyRoute::container;
}

bool ListPanel::offerToContainer(const KeyEvent& event) {
    Surface* const host = field_.surface();
    return host && host->offerToContainer(event);
}

void ListPanel::surfaceCaptureLost() {
    if (Surface* const host = open_ ? field_.surface() : nullptr) host->loseDropDown(field_);
    hide();
}

void ListPanel::surfaceChanged() {
    root_.appearanceChanged();
    fit();
}

AccessibleItem ListPanel::describeSurface() const {
    AccessibleItem item;
    item.role = AccessibleItem::Role::list;
    item.name = field_.accessible({}).name;
    // An editor is called as its cell.
    if (const Container* const around = item.name.empty() ? field_.parent() : nullptr)
        item.name = around->accessible(around->accessiblePlaceOf(field_)).name;
    // The list of an editor that has just closed, while its host is told.
    if (item.name.empty()) item.name = u"Items";
    item.bounds = root_.pixelBounds();
    return item;
}

}  // namespace obk
