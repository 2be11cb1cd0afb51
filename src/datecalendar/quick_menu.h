// The menu of quick dates: its lines, and what each of them stands for.
#pragma once

#include "datecalendar/date_text.h"
#include "widgets/platform.h"

#include <vector>

namespace obk {

std::vector<MenuItem> quickMenu();

// What choosing a line writes: a date's text, or for "Clear" the empty one. Nothing for a position that has
// no command, and for a date that cannot be written.
std::optional<Text> quickMenuText(size_t position, const Date& today);

}  // namespace obk
