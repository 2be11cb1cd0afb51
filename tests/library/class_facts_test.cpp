#include "library/class_facts.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

TEST(ClassFacts, DecorationIsNeverUiActivated) {
    // The platform's numbers for NOUIACTIVATE, ACTIVATEWHENVISIBLE, INSIDEOUT and SETCLIENTSITEFIRST.
    constexpr uint32_t noUiActivate = 0x4000, shown = 0x100 | 0x80 | 0x20000;
    ControlTable line, field, button;
    line.takesFocus = false;
    button.actsLikeButton = true;
    EXPECT_EQ(miscellaneousStatus(line) & (noUiActivate | shown), noUiActivate | shown);
    EXPECT_EQ(miscellaneousStatus(field) & (noUiActivate | shown), shown);
    EXPECT_EQ(miscellaneousStatus(button) & ~miscellaneousStatus(field), 0x1000u);
    EXPECT_NE(miscellaneousStatusNames(line).find(u"nouiactivate"), Text::npos);
}

}  // namespace
}  // namespace obk
