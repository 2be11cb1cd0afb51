#include "library/class_facts.h"

#include "library/library.h"

#include <algorithm>

namespace obk {

namespace {

struct StatusBit {
    uint32_t bit;
    const char16_t* name;
};

constexpr StatusBit recomposeOnResize{0x1, u"recomposeonresize"};
constexpr StatusBit cantLinkInside{0x10, u"cantlinkinside"};
constexpr StatusBit insideOut{0x80, u"insideout"};
constexpr StatusBit activateWhenVisible{0x100, u"activatewhenvisible"};
constexpr StatusBit actsLikeButton{0x1000, u"actslikebutton"};
constexpr StatusBit noUiActivate{0x4000, u"nouiactivate"};
constexpr StatusBit setClientSiteFirst{0x20000, u"setclientsitefirst"};

std::vector<StatusBit> statusBits(const ControlTable& table) {
    std::vector<StatusBit> bits{recomposeOnResize, cantLinkInside, insideOut, activateWhenVisible};
    if (table.actsLikeButton) bits.push_back(actsLikeButton);
    if (!table.takesFocus) bits.push_back(noUiActivate);
    // The ambient font is wanted before anything is loaded.
    bits.push_back(setClientSiteFirst);
    return bits;
}

void appendHexadecimal(Text& text, uint32_t number, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += u"0123456789ABCDEF"[number >> shift & 0xF];
}

}  // namespace

Text programmaticId(const ControlTable& table) {
    return library().name + u"." + table.name;
}

Text versionedProgrammaticId(const ControlTable& table) {
    return programmaticId(table) + u"." + decimalText(library().majorVersion);
}

Text classDescription(const ControlTable& table) {
    return library().description + u" " + table.name;
}

Text libraryVersion(const Library& library) {
    return decimalText(library.majorVersion) + u"." + decimalText(library.minorVersion);
}

uint32_t miscellaneousStatus(const ControlTable& table) {
    uint32_t status = 0;
    for (const StatusBit& bit : statusBits(table)) status |= bit.bit;
    return status;
}

Text miscellaneousStatusNames(const ControlTable& table) {
    Text names;
    for (const StatusBit& bit : statusBits(table)) {
        if (!names.empty()) names += u',';
        names += bit.name;
    }
    return names;
}

std::vector<const ControlTable*> publicControls(const Library& library) {
    std::vector<const ControlTable*> controls = library.controls;
    std::erase_if(controls,
                  [](const ControlTable* table) { return table->isPrivate || !table->faults.empty(); });
    return controls;
}

Text guidDigits(const Guid& guid) {
    Text text;
    appendHexadecimal(text, guid.first, 8);
    text += u'-';
    appendHexadecimal(text, guid.second, 4);
    text += u'-';
    appendHexadecimal(text, guid.third, 4);
    for (size_t at = 0; at < guid.rest.size(); ++at) {
        if (at == 0 || at == 2) text += u'-';
        appendHexadecimal(text, guid.rest[at], 2);
    }
    return text;
}

}  // namespace obk
