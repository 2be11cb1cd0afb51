// How values of properties read in the gallery, and how typed text becomes a value.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "container/type_members.h"

namespace obk::gallery {

// "True", "1 - Fixed", "&H80000005 Window", "Tahoma 8.25, bold".
std::wstring valueText(const container::Variant& value, container::ValueKind kind,
                       const std::vector<container::Choice>& choices);

// Nothing when the text is no value of the kind.
std::optional<container::Variant> parseValue(const std::wstring& text, container::ValueKind kind);

// Arguments typed as `49, True, "1.5"`: numbers, True and False, texts with or without quotes.
std::vector<container::Variant> parseArguments(const std::wstring& text);

// The system's colours as choices: OLE colour value and name.
const std::vector<container::Choice>& systemColours();
// The colour to show for an OLE colour.
COLORREF shownColour(long oleColour);

}  // namespace obk::gallery
