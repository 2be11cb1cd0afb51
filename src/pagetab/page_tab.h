// A strip of tabs to choose a page by; the pages themselves are the host's.
#pragma once

#include "framework/control.h"
#include "framework/followed_font.h"
#include "framework/mouse_arguments.h"
#include "pagetab/page_tab_model.h"
#include "pagetab/tab_strip.h"

#include <vector>

namespace obk {

class PageTab final : public Control {
public:
    explicit PageTab(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    // Properties; what they mean stands in the table.
    Text strPUBSKINCOLORPAGE() const { return model_.strPUBSKINCOLORPAGE; }
    void SetstrPUBSKINCOLORPAGE(const Text& strPUBSKINCOLORPAGE) {
        model_.strPUBSKINCOLORPAGE = strPUBSKINCOLORPAGE;
    }
    int32_t lngSELECTEDPAGECOLOR() const { return model_.lngSELECTEDPAGECOLOR; }
    void SetlngSELECTEDPAGECOLOR(int32_t lngSELECTEDPAGECOLOR) {
        model_.lngSELECTEDPAGECOLOR = lngSELECTEDPAGECOLOR;
    }
    // What is read last is selected again when the tabs are made anew.
    int32_t ActiveTab() { return model_.readActive(); }
    void SetActiveTab(int32_t ActiveTab);
    Text ActiveTabs() const { return model_.strTABSTRING; }
    void SetActiveTabs(const Text& ActiveTabs);
    OleColour BackColorPage() const { return model_.clrPAGEBACK; }
    void SetBackColorPage(OleColour BackColorPage);
    OleColour PageColor() const { return model_.clrPAGE; }
    void SetPageColor(OleColour PageColor);
    OleColour TextColor() const { return model_.clrTEXT; }
    void SetTextColor(OleColour TextColor);
    OleColour PageMainColor() const { return model_.clrPAGEMAIN; }
    void SetPageMainColor(OleColour PageMainColor);
    Text TabColor() const { return model_.strTABCOLOR; }
    void SetTabColor(const Text& TabColor) { model_.strTABCOLOR = TabColor; }

    // Methods.
    Text ActiveTabNameGet(int32_t Index);
    void ActiveTabNameSet(const Text& ActiveTabName);
    void AddTab(const Text& sCaption);
    void ImageDis() { showPieces(PageTabModel::Pieces::disabled); }
    void ImageHLight() { showPieces(PageTabModel::Pieces::highlighted); }
    void ImageSel() { showPieces(PageTabModel::Pieces::selected); }
    void ObjectMouseUp();
    void Refresh() { strip_.invalidate(); }
    void SetFont(const Text& New_Font, const Text& New_FontSize);

    // Events. X and Y are twips of the control; ActiveTab is the caption of the active tab.
    Event<Text&> Click;  // TName, the caption of the chosen tab
    Event<> dlbClick;
    Event<int16_t&, int16_t&, float&, float&, Text&> MouseDown, MouseDownback;
    Event<int16_t&, int16_t&, float&, float&> MouseMove, MouseUp;
    Event<> Show;

    std::span<const KeyGroup> keyGroups() const override;
    uint16_t keyStates() const override { return model_.count() > 0 ? 1 : 0; }
    Text accessKeys() const override { return model_.accessKeys(); }
    void useAccessKey(char16_t character) override;
    // Those that turn pages.
    std::span<const KeyEvent> formKeys() const override;
    void useFormKey(const KeyEvent& event) override;

private:
    void initialize() override;
    void initProperties() override;
    void loaded() override;
    void resize() override;
    void enterFocus() override { strip_.invalidate(); }
    void exitFocus() override { strip_.invalidate(); }
    void useAmbientFont(const FontRef& font) override;
    KeyRoute preTranslate(const KeyEvent& event) override;
    void surfaceKeyDown(KeyEvent& event) override;
    int16_t surfaceKeyPress(int16_t character) override;
    AccessibleItem describeSurface() const override;

    // Persisted, and loaded without what putting the property does.
    FontRef font() const { return strip_.font(); }
    void loadFont(const FontRef& font);
    int32_t activeTab() const { return model_.active(); }
    void loadActiveTab(int32_t index) { model_.lngRESTORETAB = index; }
    void loadTabString(const Text& text) { model_.strTABSTRING = text; }
    void loadTextColor(OleColour colour) { model_.clrTEXT = colour; }
    void loadBackColorPage(OleColour colour) { model_.clrPAGEBACK = colour; }
    void loadPageColor(OleColour colour) { model_.clrPAGE = colour; }
    OleColour tabColour() const { return model_.clrTAB; }
    void loadTabColour(OleColour colour) { model_.clrTAB = colour; }

    void rebuild();
    // Makes a tab the active one and brings it into view; false, and nothing changed, where there is none.
    bool select(int32_t index);
    // Lays out in the active tab's page colour.
    void relay();
    // Both of these.
    bool mark(int32_t index);
    // By a person: marks a tab that is not the active one, and tells the host.
    void choose(int32_t index);
    void tellChoice(Text name);
    void translateTabColour();
    void showPieces(PageTabModel::Pieces pieces);
    void press(int32_t tab, const MouseEvent& event);
    void doubleClick(int32_t tab, const MouseEvent& event);
    template <typename Raised, typename... More>
    void raiseMouse(const Raised& event, const MouseEvent& mouse, More&... more);

    PageTabModel model_;
    TabStrip strip_;
    FollowedFont followedFont_;
    std::vector<Connection> connections_;
};

}  // namespace obk
