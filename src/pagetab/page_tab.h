// A strip of tabs to choose a page by; the pages themselves are the host's.
#pragma once

#include "framework/control.h"
#include "framework/followed_font.h"
#include "framework/mouse_arguments.h"
#include "pagetab/tab_set.h"
#include "pagetab/tab_strip.h"

namespace obk {

class PageTab final : public Control {
public:
    explicit PageTab(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    // Properties; what they mean stands in the table.
    Text strPUBSKINCOLORPAGE() const { return pageColours_; }
    void SetstrPUBSKINCOLORPAGE(const Text& strPUBSKINCOLORPAGE) { pageColours_ = strPUBSKINCOLORPAGE; }
    int32_t lngSELECTEDPAGECOLOR() const { return static_cast<int32_t>(strip_.state.activePage.value); }
    void SetlngSELECTEDPAGECOLOR(int32_t lngSELECTEDPAGECOLOR);
    int32_t ActiveTab();
    void SetActiveTab(int32_t ActiveTab);
    Text ActiveTabs() const { return strTABSTRING; }
    void SetActiveTabs(const Text& ActiveTabs);
    OleColour BackColorPage() const { return strip_.state.strip; }
    void SetBackColorPage(OleColour BackColorPage);
    OleColour PageColor() const { return strip_.state.page; }
    void SetPageColor(OleColour PageColor);
    OleColour TextColor() const { return strip_.state.text; }
    void SetTextColor(OleColour TextColor);
    OleColour PageMainColor() const { return clrPAGEMAIN; }
    void SetPageMainColor(OleColour PageMainColor);
    Text TabColor() const { return strTABCOLOR; }
    void SetTabColor(const Text& TabColor) { strTABCOLOR = TabColor; }

    // Methods.
    Text ActiveTabNameGet(int32_t Index);
    void ActiveTabNameSet(const Text& ActiveTabName);
    void AddTab(const Text& sCaption);
    void ImageDis() { showPieces(TabStrip::Pieces::disabled); }
    void ImageHLight() { showPieces(TabStrip::Pieces::highlighted); }
    void ImageSel() { showPieces(TabStrip::Pieces::selected); }
    void ObjectMouseUp();
    void Refresh() { strip_.invalidate(); }
    void SetFont(const Text& New_Font, const Text& New_FontSize);

    // Events. X and Y are twips of the control; ActiveTab is the caption of the active tab.
    Event<Text&> Click;  // TName, the caption of the chosen tab
    Event<> dlbClick;
    Event<int16_t&, int16_t&, float&, float&, Text&> MouseDown, MouseDownback;
    Event<int16_t&, int16_t&, float&, float&> MouseMove, MouseUp;
    Event<> Show;

    Text accessKeys() const override { return tabs_.accessKeys(); }
    void useAccessKey(char16_t character) override;

private:
    void initialize() override;
    void initProperties() override;
    void loaded() override;
    void resize() override;
    void enterFocus() override;
    void exitFocus() override;
    void useAmbientFont(const FontRef& font) override;
    KeyRoute preTranslate(const KeyEvent& event) override;
    void surfaceKeyDown(KeyEvent& event) override;
    int16_t surfaceKeyPress(int16_t character) override;
    AccessibleItem describeSurface() const override;

    // Persisted, and loaded without what putting the property does.
    FontRef font() const { return strip_.font.font(); }
    void loadFont(const FontRef& font);
    int32_t activeTab() const { return tabs_.active(); }
    void loadActiveTab(int32_t index) { lngRESTORETAB = index; }
    void loadTabString(const Text& text) { strTABSTRING = text; }
    void loadTextColor(OleColour colour) { strip_.state.text = colour; }
    void loadBackColorPage(OleColour colour) { strip_.state.strip = colour; }
    void loadPageColor(OleColour colour) { strip_.state.page = colour; }
    OleColour tabColour() const { return strip_.state.tab; }
    void loadTabColour(OleColour colour) { strip_.state.tab = colour; }

    void rebuild();
    // Makes a tab the active one and brings it into view; false, and nothing changed, where there is none.
    bool select(int32_t index);
    // Lays out in the active tab's page colour.
    void relay();
    // Both of these.
    bool mark(int32_t index);
    // By a person: marks a tab and tells the host.
    void choose(int32_t index);
    void tellChoice(Text name);
    std::optional<int32_t> walkTarget(const KeyEvent& event) const;
    void translateTabColour();
    void showPieces(TabStrip::Pieces pieces);
    void stripMouse(const MouseEvent& event);
    void press(const MouseEvent& event);
    void doubleClick(const MouseEvent& event);
    template <typename Raised, typename... More>
    void raiseMouse(const Raised& event, const MouseEvent& mouse, More... more);

    TabSet tabs_;
    TabStrip strip_;
    int32_t lngRESTORETAB = 0;  // selected again after a rebuild: what a host last knew as the active tab
    Text strTABSTRING;
    Text strTABCOLOR;
    Text pageColours_;
    OleColour clrPAGEMAIN{SystemColour::buttonFace};
    FollowedFont followedFont_;
    Connection mouse_;
};

}  // namespace obk
