#include "pagetab/page_tab.h"

#include "base/attempt.h"
#include "base/caption_text.h"
#include "framework/colours.h"
#include "framework/kxlib_system.h"
#include "framework/value.h"

#include <utility>

namespace obk {

PageTab::PageTab(Platform& platform) : Control(platform), strip_(root(), model_) {
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(strip_.pressed, [this](int32_t tab, const MouseEvent& event) { press(tab, event); });
    on(strip_.doubleClicked, [this](int32_t tab, const MouseEvent& event) { doubleClick(tab, event); });
    on(strip_.mouseMoved, [this](const MouseEvent& event) { raiseMouse(MouseMove, event); });
    on(strip_.mouseReleased, [this](const MouseEvent& event) { raiseMouse(MouseUp, event); });
    on(strip_.chosen, [this](int32_t tab) { choose(tab); });
    on(strip_.fontChanged, [this] { followedFont_.changed(); });
}

void PageTab::initialize() {
    strip_.setLook(lookOfSystem(platform()));
    setSize({4800}, {375});
}

void PageTab::initProperties() {
    loadFont(ambientFont());
}

void PageTab::loaded() {
    rebuild();
    translateTabColour();
    resize();
    ObjectMouseUp();
}

void PageTab::resize() {
    strip_.move({{0}, {0}, width(), height()});
    strip_.setRightToLeft(rightToLeft());
}

void PageTab::useAmbientFont(const FontRef& font) {
    followedFont_.follow(font, this->font());
}

void PageTab::loadFont(const FontRef& font) {
    strip_.setFont(font);
    followedFont_.took(font, ambientFont());
}

void PageTab::SetActiveTab(int32_t ActiveTab) {
    model_.readActive();
    if (!mark(ActiveTab)) return;
    PropertyChanged<&PageTab::ActiveTab>();
}

void PageTab::SetActiveTabs(const Text& ActiveTabs) {
    attempt([&] { model_.strTABSTRING = ActiveTabs; });
    rebuild();
    PropertyChanged<&PageTab::ActiveTabs>();
}

void PageTab::SetBackColorPage(OleColour BackColorPage) {
    model_.clrPAGEBACK = BackColorPage;
    mark(model_.active());
    PropertyChanged<&PageTab::BackColorPage>();
}

void PageTab::SetPageColor(OleColour PageColor) {
    model_.clrPAGE = PageColor;
    PropertyChanged<&PageTab::PageColor>();
}

void PageTab::SetTextColor(OleColour TextColor) {
    model_.clrTEXT = TextColor;
    mark(model_.active());
    PropertyChanged<&PageTab::TextColor>();
}

void PageTab::SetPageMainColor(OleColour PageMainColor) {
    model_.clrPAGEMAIN = PageMainColor;
    mark(model_.active());
}

Text PageTab::ActiveTabNameGet(int32_t Index) {
    Text name;
    attempt([&] { name = model_.caption(Index); });
    return name;
}

void PageTab::ActiveTabNameSet(const Text& ActiveTabName) {
    // From 0, which has no caption: an empty name makes no tab active. The last match wins.
    for (int32_t index = 0; index <= model_.count(); ++index) {
        if (model_.caption(index) == ActiveTabName) SetActiveTab(index);
    }
}

void PageTab::AddTab(const Text& sCaption) {
    const int32_t before = model_.count();
    attempt([&] { model_.add(sCaption); });
    strip_.announce(AccessibleEvent::structure);
    if (model_.count() > before) strip_.announce(AccessibleEvent::selection, {before, -1});
    mark(model_.active());
    if (accessKeyOf(sCaption)) accessKeysChanged();
}

void PageTab::ObjectMouseUp() {
    strip_.forgetHover();
    select(model_.active());
}

void PageTab::SetFont(const Text& New_Font, const Text& New_FontSize) {
    attempt([&] { model_.setFont(New_Font, toLong(New_FontSize)); });
    strip_.reveal();
}

void PageTab::rebuild() {
    Text keysBefore;
    attempt([&] { keysBefore = model_.accessKeys(); });
    attempt([&] { model_.rebuild(); });
    const bool restored = model_.restore();
    strip_.announce(AccessibleEvent::structure);
    mark(model_.active());
    bool sameKeys = false;
    attempt([&] { sameKeys = model_.accessKeys() == keysBefore; });
    if (!sameKeys) accessKeysChanged();
    if (restored) PropertyChanged<&PageTab::ActiveTab>();
}

bool PageTab::select(int32_t index) {
    const int32_t before = model_.active();
    if (!model_.select(index)) return false;
    strip_.reveal();
    if (index == before || index == 0) return true;
    strip_.announce(AccessibleEvent::selection, {index - 1, -1});
    if (hasFocus()) strip_.announce(AccessibleEvent::focus);
    return true;
}

void PageTab::relay() {
    bool another = false;
    attempt([&] { another = model_.takePageColour(); });
    Refresh();
    if (another) PropertyChanged<&PageTab::PageColor>();
}

bool PageTab::mark(int32_t index) {
    if (!select(index)) return false;
    relay();
    return true;
}

void PageTab::tellChoice(Text name) {
    PropertyChanged<&PageTab::ActiveTab>();
    attempt([&] { Click(name); });
    attempt([&] { Show(); });
}

void PageTab::choose(int32_t index) {
    if (index == model_.active()) return;
    // The host may rebuild the tabs as soon as it hears of anything.
    Text name = ActiveTabNameGet(index);
    if (mark(index)) tellChoice(std::move(name));
}

void PageTab::translateTabColour() {
    model_.clrTAB = Rgb{static_cast<uint32_t>(TranslateOleColor(platform().appearance(), model_.clrTAB))};
    relay();
}

void PageTab::showPieces(PageTabModel::Pieces pieces) {
    model_.pieces = pieces;
    strip_.invalidate();
}

template <typename Raised, typename... More>
void PageTab::raiseMouse(const Raised& event, const MouseEvent& mouse, More&... more) {
    MouseEvent read = mouse;
    if (rightToLeft()) read.at.x = root().pixelBounds().width() - 1 - mouse.at.x;
    MouseArguments arguments = MouseArguments::inTwips(read, root().dpi());
    attempt([&] { arguments.raise(event, more...); });
}

void PageTab::press(int32_t tab, const MouseEvent& event) {
    // The host may rebuild the tabs as soon as it hears of anything.
    Text name = ActiveTabNameGet(tab);
    const bool chosen = event.button == button::left && tab != 0 && mark(tab);
    Text active = ActiveTabNameGet(model_.active());
    if (event.button == button::left) strip_.takeFocus();
    raiseMouse(tab != 0 ? MouseDown : MouseDownback, event, active);
    if (chosen) tellChoice(std::move(name));
}

void PageTab::doubleClick(int32_t tab, const MouseEvent& event) {
    if (event.button != button::left) return;
    // The second press of a quick pair on two tabs chooses like any other.
    if (tab != 0) choose(tab);
    attempt([&] { dlbClick(); });
}

std::span<const KeyGroup> PageTab::keyGroups() const {
    static constexpr KeyClaim tabs[] = {
        keyClaim(key::left, shifts::none, u"the tab on the left"),
        keyClaim(key::right, shifts::none, u"the tab on the right"),
        keyClaim(key::home, shifts::none, u"the first tab"),
        keyClaim(key::end, shifts::none, u"the last tab"),
        keyClaim(key::tab, shifts::control, u"the next tab"),
        keyClaim(key::pageDown, shifts::control, u"the next tab"),
        keyClaim(key::tab, shifts::controlShift, u"the tab before"),
        keyClaim(key::pageUp, shifts::control, u"the tab before"),
        typedCharacters(u"the next tab that begins so"),
    };
    static constexpr KeyGroup groups[] = {{u"where there are tabs", 1, tabs}};
    return groups;
}

KeyRoute PageTab::preTranslate(const KeyEvent& event) {
    // The access keys are as many as the tabs.
    const bool called = event.shift == shift::alt && model_.meantBy(event, rightToLeft());
    return called && hasFocus() ? KeyRoute::child : Control::preTranslate(event);
}

void PageTab::surfaceKeyDown(KeyEvent& event) {
    const auto target = model_.meantBy(event, rightToLeft());
    if (!target) return;
    event.code = 0;
    choose(*target);
}

int16_t PageTab::surfaceKeyPress(int16_t character) {
    const auto typed = static_cast<char16_t>(character);
    const auto target = typed > u' ' ? model_.calledBy(typed) : std::nullopt;
    if (!target) return character;
    choose(*target);
    return 0;
}

void PageTab::useAccessKey(char16_t character) {
    if (const auto target = model_.withAccessKey(character)) choose(*target);
}

std::span<const KeyEvent> PageTab::formKeys() const {
    static constexpr KeyEvent turning[] = {{key::tab, shift::control},
                                           {key::tab, shift::control | shift::shift},
                                           {key::pageDown, shift::control},
                                           {key::pageUp, shift::control}};
    return model_.count() > 0 ? std::span<const KeyEvent>(turning) : std::span<const KeyEvent>();
}

void PageTab::useFormKey(const KeyEvent& event) {
    if (const auto target = model_.meantBy(event, rightToLeft())) choose(*target);
}

AccessibleItem PageTab::describeSurface() const {
    AccessibleItem item = Control::describeSurface();
    item.role = AccessibleItem::Role::pageTabList;
    item.value = plainCaption(model_.caption(model_.active()));
    return item;
}

}  // namespace obk
