// What a column's type makes of a text that is typed or pasted into its cells.
#pragma once

#include "base/text.h"
#include "grid/column_types.h"
#include "widgets/regional.h"

#include <optional>
#include <span>
#include <vector>

namespace obk {

// Every half hour of a day, from "12:00:00 am" to "11:30:00 pm".
const std::vector<Text>& timeList();

// A time as the time list writes it, out of "9:30", "21:30:15", "9:30 PM". Nothing for what is no time of
// day.
std::optional<Text> timeText(TextView text);

// The text that a cell of the type keeps of it; an empty one stays empty. Nothing for what is no such value,
// for what `listItems` does not hold where it is a list's, and for a cell that cannot be edited.
std::optional<Text> cellText(ColumnType type, TextView text, std::span<const Text> listItems,
                             const RegionalFormats& formats);

}  // namespace obk
