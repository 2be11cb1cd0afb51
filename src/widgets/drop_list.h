// A field that shows one of a fixed list of texts; a press opens the list as a menu to choose from.
#pragma once

#include "base/event.h"
#include "widgets/widget.h"

#include <vector>

namespace obk {

class DropList final : public Widget {
public:
    // `name` is for screen readers.
    DropList(Container& parent, Text name);

    void add(Text item) { items_.push_back(std::move(item)); }
    int32_t count() const { return static_cast<int32_t>(items_.size()); }
    // The position of the item that is shown; -1 for none.
    int32_t selected() const { return selected_; }
    // False, and nothing changed, for a position that the list does not have. Raises nothing.
    bool select(int32_t item);
    // The item that is shown; empty for none.
    TextView text() const;
    void setLook(Look look);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    void describe(std::vector<AccessibleItem>& items) const override;

    Event<> chosen;  // by the user, the item that is shown already among them

private:
    void hover(bool inside);
    void open();

    Text name_;
    std::vector<Text> items_;
    int32_t selected_ = -1;
    Look look_ = Look::flat;
    bool hot_ = false;
};

}  // namespace obk
