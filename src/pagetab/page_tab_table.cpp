#include "framework/table_builder.h"
#include "pagetab/page_tab.h"

namespace obk {

const ControlTable& PageTab::memberTable() {
    using C = PageTab;
    constexpr OleColour face{SystemColour::buttonFace};
    static const ControlTable table =
        TableBuilder<C>(
            {.name = u"PageTab",
             .help = u"A strip of tabs to choose a page by",
             .classId = {0x292dcdd0, 0x338c, 0x4d39, {0xa0, 0x21, 0xd7, 0x32, 0x19, 0x08, 0x04, 0x98}},
             .interfaceId = {0x8d1fe7ab, 0x5c8f, 0x448d, {0xbb, 0x53, 0x7f, 0xc5, 0xf5, 0x99, 0xf4, 0x3f}},
             .eventInterfaceId =
                 {0x78b2a11b, 0xb298, 0x40bf, {0x85, 0x5b, 0x8c, 0xc4, 0x43, 0x10, 0x68, 0xf8}},
             .toolboxPicture = 106})

            .property<&C::strPUBSKINCOLORPAGE, &C::SetstrPUBSKINCOLORPAGE>(
                1, u"strPUBSKINCOLORPAGE",
                u"Page colours of the tabs, as decimal numbers with vertical bars between them; seen when the strip is laid out anew")
            .property<&C::lngSELECTEDPAGECOLOR, &C::SetlngSELECTEDPAGECOLOR>(
                2, u"lngSELECTEDPAGECOLOR",
                u"The active tab's number in strPUBSKINCOLORPAGE, in which its page is drawn; 0: drawn in PageColor")
            .property<&C::ActiveTab, &C::SetActiveTab>(
                3, u"ActiveTab",
                u"Index of the active tab, from 1; 0: none. An index without a tab is ignored. The value last read is selected again when the tabs are made anew")
            .method<&C::ActiveTabNameGet>(4, u"ActiveTabNameGet",
                                          u"The caption of a tab; empty where there is none", {u"Index"})
            .method<&C::ActiveTabNameSet>(
                5, u"ActiveTabNameSet",
                u"Makes the last tab with exactly this caption the active one; an empty name none",
                {u"ActiveTabName"})
            .property<&C::ActiveTabs, &C::SetActiveTabs>(
                6, u"ActiveTabs",
                u"The captions with commas between them; putting them makes the tabs anew. Lines count as tabs, too, with captions \"0\". Tabs of AddTab are not in it")
            .method<&C::AddTab>(
                7, u"AddTab",
                u"Appends a tab and makes it the active one; an empty caption becomes \"Tab\" and its index",
                {u"sCaption"})
            .property<&C::BackColorPage, &C::SetBackColorPage>(8, u"BackColorPage",
                                                               u"Colour of the strip behind the tabs")
            .method<&C::ImageDis>(
                9, u"ImageDis",
                u"Shows all tabs disabled, until a tab is selected or another look is asked for")
            .method<&C::ImageHLight>(
                10, u"ImageHLight",
                u"Shows the active tab highlighted, until a tab is selected or another look is asked for")
            .method<&C::ImageSel>(11, u"ImageSel", u"Shows the tabs as usual, the active one selected")
            .method<&C::ObjectMouseUp>(12, u"ObjectMouseUp",
                                       u"Shows the strip as if the mouse were elsewhere")
            .property<&C::PageColor, &C::SetPageColor>(
                13, u"PageColor",
                u"Colour of the shown page. Laying out anew, after loading as well, puts the active tab's page colour or PageMainColor here: what is stored is what was shown")
            .property<&C::TextColor, &C::SetTextColor>(14, u"TextColor", u"Colour of the captions")
            .property<&C::PageMainColor, &C::SetPageMainColor>(
                15, u"PageMainColor", u"Page colour of tabs without one of their own; not stored with a form")
            .method<&C::Refresh>(16, u"Refresh", u"Repaints the strip")
            .method<&C::SetFont>(17, u"SetFont",
                                 u"Font name and size in points of all captions, and of those to come",
                                 {u"New_Font", u"New_FontSize"})
            .property<&C::TabColor, &C::SetTabColor>(18, u"TabColor",
                                                     u"Kept for the host; nothing is drawn in it")

            .event<&C::Click>(1, u"Click", u"A person chose a tab; its caption", {u"TName"})
            .event<&C::dlbClick>(2, u"dlbClick", u"The strip was double-clicked")
            .event<&C::MouseDown>(
                3, u"MouseDown",
                u"A mouse button went down on a tab; X and Y in twips, the active tab's caption",
                {u"Button", u"Shift", u"X", u"Y", u"ActiveTab"})
            .event<&C::MouseDownback>(4, u"MouseDownback",
                                      u"A mouse button went down on the strip beside the tabs",
                                      {u"Button", u"Shift", u"X", u"Y", u"ActiveTab"})
            .event<&C::MouseMove>(5, u"MouseMove", u"The mouse moved over the strip",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseUp>(6, u"MouseUp", u"A mouse button was released",
                                {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::Show>(7, u"Show", u"Follows Click: the page of the active tab is to be shown")

            // Once for the captions and once for the control, which hosts' bags see as two readings.
            .persisted<&C::font, &C::loadFont>({u"Font", AmbientFontDefault{}})
            .loadedAgain<&C::loadFont>()
            .persisted<&C::TextColor, &C::SetTextColor>({u"TextColor", OleColour(SystemColour::buttonText)})
            .loadedAgain<&C::loadTextColor>()
            .persisted<&C::ActiveTabs, &C::loadTabString>({u"TABSTRING", Text()})
            .persisted<&C::activeTab, &C::loadActiveTab, &C::ActiveTab>({u"ActiveTab", 0})
            .persisted<&C::tabColour, &C::loadTabColour>({u"BackColorTAB", face})
            .persisted<&C::BackColorPage, &C::loadBackColorPage>({u"BackColorPage", face})
            .persisted<&C::PageColor, &C::loadPageColor>({u"PageColor", face})
            .savedInOrder<&C::font, &C::ActiveTab, &C::ActiveTabs, &C::tabColour, &C::BackColorPage,
                          &C::PageColor, &C::TextColor>()
            .build();
    return table;
}

}  // namespace obk
