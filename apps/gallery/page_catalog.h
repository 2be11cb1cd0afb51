// The pages of the gallery.
#pragma once

#include <span>

#include "scene.h"

namespace obk::gallery {

// One page, of a control mostly, which it is called by. A further control is one more row of the table and
// its scene function.
struct PageEntry {
    const wchar_t* name;         // in the list of pages, and of the picture's file
    const wchar_t* kind;         // under the name in the list
    const wchar_t* description;  // under the title
    int toolboxPicture;          // resource number of the picture in the list; 0: no control's page
    void (*build)(Scene& scene);
};

std::span<const PageEntry> pages();

void buildOrderLine(Scene& scene);       // UpDownTextBox
void buildBooking(Scene& scene);         // DateCalendar
void buildOrderStates(Scene& scene);     // ButtonPalette
void buildAddressRows(Scene& scene);     // ButtonArrow
void buildSettings(Scene& scene);        // PageTab
void buildOrderDesk(Scene& scene);       // GridEdit
void buildSettingsGroups(Scene& scene);  // lns
void buildOwnForm(Scene& scene);

}  // namespace obk::gallery
