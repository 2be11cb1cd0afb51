#include "page_catalog.h"

#include "toolbox.h"

namespace obk::gallery {

namespace {

constexpr PageEntry catalogue[] = {
    {L"UpDownTextBox", L"Numeric field",
     L"A field for numbers from Min to Max: type digits, or step with the arrows, the wheel or the page keys.",
     OBK_TOOLBOX_UPDOWNTEXTBOX, buildOrderLine},
    {L"DateCalendar", L"Date field",
     L"A field for dates: type one, right-click for quick dates, or press the icon (F4, Alt+Down) and pick a day.",
     OBK_TOOLBOX_DATECALENDAR, buildBooking},
    {L"ButtonPalette", L"Colour button",
     L"A button that shows a colour and drops down a palette: press, drag and release, or walk it with the keys.",
     OBK_TOOLBOX_BUTTONPALETTE, buildOrderStates},
    {L"ButtonArrow", L"Arrow button",
     L"A small arrow of fixed size, to stand beside a field that opens something.", OBK_TOOLBOX_BUTTONARROW,
     buildAddressRows},
    {L"PageTab", L"Tab strip",
     L"A strip of tabs to choose a page by: press one, walk with the arrow keys, or call it by its letter.",
     OBK_TOOLBOX_PAGETAB, buildSettings},
    {L"GridEdit", L"Order desk",
     L"Type into a cell and press Enter; each column has its own editor. Press a caption to sort.",
     OBK_TOOLBOX_GRIDEDIT, buildOrderDesk},
    {L"lns", L"Separator line", L"A two-tone line that sets the groups of a form apart.", OBK_TOOLBOX_LNS,
     buildSettingsGroups},
    {L"My form", L"A form of one's own",
     L"Add controls, drag them where they belong, give them properties; save the form, or copy its code.", 0,
     buildOwnForm},
};

}  // namespace

std::span<const PageEntry> pages() {
    return catalogue;
}

}  // namespace obk::gallery
