// Prints the controls as the languages of their hosts declare them, so that nobody needs an importer there.
#pragma once

#include "library/library.h"

#include <string>

namespace obk {

// A unit for Free Pascal, Lazarus and Delphi: the interfaces, and a class for each control with its events.
std::string writePascalUnit(const Library& library);
// A header for C++17 that needs nothing but the platform's own: a class for each control, events as
// functions.
std::string writeCppHeader(const Library& library);
// A source for C#: the interfaces, the classes, and a control for Windows Forms each.
std::string writeCsharpSource(const Library& library);
// A module for VBA, or a text to include for VBScript: the constants.
std::string writeBasicConstants(const Library& library);
std::string writeScriptConstants(const Library& library);

}  // namespace obk
