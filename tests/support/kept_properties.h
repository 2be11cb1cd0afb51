// Which properties a form keeps of a control, for tests of both systems.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace obk::test {

// State of the moment, fields of the host's own, a choice for the running program, a value stored under one
// key and read under another, and a date, whose stored text is kept without becoming the date again, do not
// come back.
inline bool comesBack(std::string_view control, std::string_view property) {
    constexpr std::pair<std::string_view, std::string_view> gone[] = {
        {"ButtonPalette", " bMOUSEPOSLOC bPOSITIONDEFAULT MaskHLightColor MousePosn "},
        {"DateCalendar", " bMOUSEPOSLOC bPOSITIONDEFAULT BorderStyle MousePosn Text "},
        {"GridEdit", " mstrDragInfo blnPUBSHOWALARM MousePosn "},
        {"PageTab", " PageColor PageMainColor TabColor strPUBSKINCOLORPAGE "},
    };
    const std::string word = " " + std::string(property) + " ";
    return std::ranges::none_of(gone, [&](const auto& row) {
        return row.first == control && row.second.find(word) != std::string_view::npos;
    });
}

}  // namespace obk::test
