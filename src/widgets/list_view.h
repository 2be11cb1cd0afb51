// Texts below each other, drawn as far as they show: one is marked, a bar scrolls.
#pragma once

#include "base/event.h"
#include "widgets/container.h"
#include "widgets/scroll_bar.h"
#include "widgets/wheel_notches.h"

#include <vector>

namespace obk {

class ListView final : public Container {
public:
    // `items` is borrowed; `itemsChanged` says that they are others.
    ListView(Container& parent, const std::vector<Text>& items);

    void setLook(Look look);
    void setFont(const FontDescription& font);
    void itemsChanged();
    // As high as so many items at most, and as wide as the widest needs where that is more than `leastWidth`.
    // Pixels at a scale.
    PixelSize size(Dpi dpi, int32_t leastWidth, int32_t mostItems) const;

    // -1 for none.
    int32_t marked() const { return marked_; }
    // Brings it into sight as well; what is not there marks nothing.
    void mark(int32_t item);
    // The arrows, Home, End and the Page keys mark another item; whether the key is one of those.
    bool walk(int16_t key);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    bool wheel(const WheelEvent& event) override;
    void placed() override;
    AccessibleItem accessible(AccessiblePart part) const override;
    int32_t accessibleParts(AccessiblePart of) const override { return of.whole() ? count() : 0; }
    AccessiblePart accessiblePartAt(PixelPoint at) const override;
    AccessibleId accessibleFocus() override;
    std::vector<AccessiblePart> accessibleSelection() const override;
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    Event<int32_t> chosen;  // the mouse was let go on an item

private:
    int32_t count() const { return static_cast<int32_t>(items_.size()); }
    Text nameInSet(const Text& text, int32_t item) const;
    int32_t rowHeight(Dpi dpi) const;
    int32_t shownRows() const;
    bool scrolls() const { return count() > shownRows(); }
    int32_t itemAt(PixelPoint at) const;  // -1 for none
    PixelRect row(int32_t item, const PixelRect& bounds) const;
    void scrollTo(int64_t first);
    void layOut();

    const std::vector<Text>& items_;
    FontDescription font_;
    int32_t marked_ = -1;
    int32_t first_ = 0;  // item that shows at the top
    ScrollBar bar_;
    WheelNotches wheel_;
    std::vector<Connection> connections_;
};

}  // namespace obk
