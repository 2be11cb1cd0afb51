#include "library/import_writers.h"

namespace obk {

namespace {

Text constants(const Library& library, TextView comment, TextView declaration, TextView type) {
    Text text;
    for (const Enumeration* enumeration : library.enumerations) {
        text += u"\n" + Text(comment) + enumeration->name + u": " + enumeration->help + u"\n";
        for (const EnumerationValue& value : enumeration->values)
            text += Text(declaration) + value.name + Text(type) + u" = " + decimalText(value.value) + u"\n";
    }
    return text;
}

}  // namespace

std::string writeBasicConstants(const Library& library) {
    return toUtf8(u"Attribute VB_Name = \"" + library.name + u"_Constants\"\nOption Explicit\n' " +
                  library.description + u" " + library.release +
                  u": for code that creates the controls by name. With a reference to the type\n"
                  u"' library the same names are known already.\n" +
                  constants(library, u"' ", u"Public Const ", u" As Long"));
}

std::string writeScriptConstants(const Library& library) {
    return toUtf8(u"' " + library.description + u" " + library.release + u": constants for scripts.\n" +
                  constants(library, u"' ", u"Const ", u""));
}

}  // namespace obk
