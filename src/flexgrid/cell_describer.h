// What the control around a grid adds to what its cells tell screen readers.
#pragma once

#include "flexgrid/grid_model.h"
#include "widgets/accessible_item.h"

#include <optional>

namespace obk {

class Widget;

class CellDescriber {
public:
    // A cell, of which text, place and states are known.
    virtual void describeCell(AccessibleItem& item, CellAddress cell) const = 0;
    virtual void useCell(CellAddress cell, const AccessibleAction& action) = 0;
    // The cell that a child of the grid stands in.
    virtual std::optional<CellAddress> cellUnder(const Widget& child) const = 0;

protected:
    ~CellDescriber() = default;
};

}  // namespace obk
