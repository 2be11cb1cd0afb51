#include "library/class_facts.h"
#include "framework/table_rows.h"
#include "library/library.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

TEST(ClassFacts, DecorationIsNeverUiActivated) {
    // The platform's numbers for NOUIACTIVATE, ACTIVATEWHENVISIBLE, INSIDEOUT and SETCLIENTSITEFIRST.
    constexpr uint32_t noUiActivate = 0x4000, shown = 0x100 | 0x80 | 0x20000;
    TableRows line, field, button;
    line.table.takesFocus = false;
    button.table.actsLikeButton = true;
    EXPECT_EQ(miscellaneousStatus(line.table) & (noUiActivate | shown), noUiActivate | shown);
    EXPECT_EQ(miscellaneousStatus(field.table) & (noUiActivate | shown), shown);
    EXPECT_EQ(miscellaneousStatus(button.table) & ~miscellaneousStatus(field.table), 0x1000u);
    EXPECT_NE(miscellaneousStatusNames(line.table).find(u"nouiactivate"), Text::npos);
}

TEST(ClassFacts, HostsAreOfferedNeitherPrivateControlsNorThoseWhoseTableHasAFault) {
    TableRows whole, hidden, faulty;
    hidden.table.isPrivate = true;
    faulty.table.faults.push_back(u"its number stands twice");
    Library own = library();
    own.controls = {&hidden.table, &whole.table, &faulty.table};
    EXPECT_EQ(publicControls(own), std::vector<const ControlTable*>{&whole.table});
}

}  // namespace
}  // namespace obk
