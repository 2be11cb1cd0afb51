// Prints the reference pages: what each control offers, for people who host it.
#pragma once

#include "framework/control.h"
#include "library/library.h"

#include <string>

namespace obk {

// One control's page, Markdown in UTF-8. `fresh` is a newly placed control, for the values that one has.
std::string writeReference(Control& fresh);
// The list of all pages.
std::string writeReferenceIndex(const Library& library);

}  // namespace obk
