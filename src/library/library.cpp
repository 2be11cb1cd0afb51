#include "library/library.h"

#include "datecalendar/date_calendar.h"
#include "grid/grid_check.h"
#include "grid/grid_edit.h"
#include "pagetab/lns.h"
#include "pagetab/page_tab.h"
#include "palette/button_arrow.h"
#include "palette/button_palette.h"
#include "palette/palette_enumerations.h"
#include "updown/up_down_text_box.h"

namespace obk {

const Library& library() {
    static const Library library{
        u"OBKCTRLS",
        u"Orbek Controls",
        u"" OBK_VERSION,
        {0xd62de28a, 0x98b2, 0x4069, {0xbc, 0x98, 0xf5, 0xf9, 0xca, 0x96, 0x61, 0xc2}},
        1,
        0,
        {&UpDownTextBox::memberTable(), &DateCalendar::memberTable(), &ButtonPalette::memberTable(),
         &ButtonArrow::memberTable(), &GridEdit::memberTable(), &PageTab::memberTable(), &lns::memberTable(),
         &GridCheck::memberTable()},
        {&buttonTypes(), &palettes()},
    };
    return library;
}

const ControlTable* Library::control(TextView controlName) const {
    const auto found = std::find_if(
        controls.begin(), controls.end(),
        [controlName](const ControlTable* table) { return equalIgnoringCase(table->name, controlName); });
    return found == controls.end() ? nullptr : *found;
}

}  // namespace obk
