// What a grid's caption bar shows: the columns' captions, and how the rows were sorted last.
#pragma once

#include "flexgrid/grid_model.h"
#include "widgets/accessible_item.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace obk {

class HeaderModel {
public:
    // Empty where none was set. False, and nothing changed, for a column that no grid can have.
    TextView caption(int32_t col) const {
        const auto found = captions_.find(col);
        return found == captions_.end() ? TextView() : found->second;
    }
    // A column as it is spoken of: an empty caption and one that others have, too, tell the column's number.
    Text spoken(int32_t col) const {
        const auto said = [](TextView caption) {
            Text name(caption);
            makeSpoken(name);
            return Text(trimmed(name));
        };
        Text own = said(caption(col)), number = u"column " + decimalText(int64_t{col} + 1);
        if (own.empty()) return number;
        const auto same = [&](const auto& other) { return said(other.second) == own; };
        return std::count_if(captions_.begin(), captions_.end(), same) > 1 ? own + u", " + number : own;
    }
    bool setCaption(int32_t col, Text caption) {
        if (col < 0 || col >= GridModel::mostCols) return false;
        captions_[col] = std::move(caption);
        return true;
    }

    // The column that the rows were sorted by last, and the direction where an indicator stands over it:
    // nothing before the first sort, and for other columns.
    int32_t sortedCol() const { return sortedCol_; }
    std::optional<SortDirection> indicator(int32_t col) const {
        return col == sortedCol_ ? indicator_ : std::nullopt;
    }
    // The direction of the next sort is the other one each time, but not for another column.
    SortDirection nextSort() const {
        return descending_ ? SortDirection::ascending : SortDirection::descending;
    }
    void turnTo(int32_t col) {
        if (col != sortedCol_) descending_ = !descending_;
        moveTo(col);
    }
    void moveTo(int32_t col) { sortedCol_ = col; }
    void sorted(SortDirection direction) {
        descending_ = direction == SortDirection::descending;
        indicator_ = direction;
    }

private:
    std::map<int32_t, Text> captions_;
    int32_t sortedCol_ = 0;
    bool descending_ = false;  // what the next sort turns over
    std::optional<SortDirection> indicator_;
};

}  // namespace obk
