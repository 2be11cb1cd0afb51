// What follows from a control's table for the outside world: how its class is named and what containers may
// expect.
#pragma once

#include "library/library.h"

#include <vector>

namespace obk {

// "OBKCTRLS.UpDownTextBox": whichever version is registered.
Text programmaticId(const ControlTable& table);
// "OBKCTRLS.UpDownTextBox.1": this version.
Text versionedProgrammaticId(const ControlTable& table);
// What people read in lists of classes.
Text classDescription(const ControlTable& table);
// "1.0"
Text libraryVersion(const Library& library);

// The status bits of an embedded object, in the platform's numbering (OLEMISC).
uint32_t miscellaneousStatus(const ControlTable& table);
// The same by the names that manifests use, separated by commas.
Text miscellaneousStatusNames(const ControlTable& table);

// The controls that containers can create, in the library's order: none that others host only, and none whose
// table has a fault.
std::vector<const ControlTable*> publicControls(const Library& library);

// "D8CFD887-69FC-498C-8C1C-8A9F2D8431FB"
Text guidDigits(const Guid& guid);

}  // namespace obk
