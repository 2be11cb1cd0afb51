#include "library/property_text.h"
#include "framework/control.h"
#include "framework/member_call.h"
#include "library/library.h"
#include "library/property_pages.h"
#include "platform/headless/headless_platform.h"

#include <gtest/gtest.h>

namespace obk::test {
namespace {

TEST(PropertyText, WhatIsShownOfAPropertyMayBeTypedAsItIs) {
    headless::HeadlessPlatform platform;
    for (const ControlTable* table : library().controls) {
        const auto control = table->create(platform);
        control->initNew();
        for (const Member* property : editableProperties(*table)) {
            const std::string what = toUtf8(Text(table->name).append(u".").append(property->name));
            Value value;
            ASSERT_EQ(getProperty(*control, *property, value), CallStatus::done) << what;
            const Text shown = shownText(*property, value);
            const bool object = property->type == ValueType::font || property->type == ValueType::picture;
            EXPECT_EQ(valueOfText(*property, shown), object ? std::nullopt : std::optional(value))
                << what << " as " << toUtf8(shown);
            for (const PropertyChoice& choice : choicesOf(*property)) {
                EXPECT_EQ(shownText(*property, choice.value), choice.text) << what;
                EXPECT_EQ(valueOfText(*property, choice.text), choice.value) << what;
            }
        }
    }
}

TEST(PropertyText, ColoursGoByTheNamesOfTheSystemsAndAllElseByNumbers) {
    const ControlTable& table = *library().control(u"UpDownTextBox");
    const Member& colour = *table.member(u"BackColor");
    EXPECT_EQ(toUtf8(shownText(colour, OleColour{0x8000000F})), "&H8000000F - Button face");
    EXPECT_EQ(toUtf8(shownText(colour, OleColour{0x0000FF})), "&H000000FF");
    for (const PropertyChoice& choice : systemColourChoices())
        EXPECT_EQ(valueOfText(colour, choice.text), choice.value) << toUtf8(choice.text);
    EXPECT_EQ(valueOfText(colour, u"255"), Value(OleColour{255}));
    EXPECT_EQ(valueOfText(colour, u"red"), std::nullopt);
    EXPECT_EQ(valueOfText(*table.member(u"Max"), u"1e99"), std::nullopt);
    EXPECT_EQ(valueOfText(*table.member(u"Max"), u""), std::nullopt) << "cleared, and nothing typed yet";
    EXPECT_EQ(valueOfText(*table.member(u"Text"), u""), Value(Text()));
    EXPECT_EQ(valueOfText(*table.member(u"Alignment"), u"2 - centre"), Value(int32_t{2}));
}

TEST(PropertyPages, EveryControlWithPropertiesHasOneAndSomeHaveAnother) {
    std::vector<Guid> ids;
    for (const PropertyPageFacts& page : propertyPages()) {
        EXPECT_EQ(&propertyPage(page.kind), &page);
        ids.push_back(page.id);
    }
    for (const ControlTable* table : library().controls) {
        ids.push_back(table->classId);
        const size_t more = table->name == u"PageTab" || table->name == u"ButtonPalette" ? 1 : 0;
        const size_t general = editableProperties(*table).empty() ? 0 : 1;
        EXPECT_EQ(pagesOf(*table).size(), general + more) << toUtf8(table->name);
    }
    for (size_t one = 0; one < ids.size(); ++one) EXPECT_EQ(std::count(ids.begin(), ids.end(), ids[one]), 1);
}

}  // namespace
}  // namespace obk::test
