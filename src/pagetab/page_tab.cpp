#include "pagetab/page_tab.h"

#include "base/attempt.h"
#include "framework/colours.h"
#include "framework/kxlib_system.h"
#include "framework/value.h"
#include "pagetab/caption_text.h"

#include <algorithm>

namespace obk {

PageTab::PageTab(Platform& platform) : Control(platform), strip_(root(), tabs_) {
    mouse_ = strip_.mouseReported.connect([this](const MouseEvent& event) { stripMouse(event); });
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
    SetBackColorPage(BackColorPage());
    translateTabColour();
    resize();
    relay();
    ObjectMouseUp();
}

void PageTab::resize() {
    strip_.move({{0}, {0}, width(), height()});
    strip_.setRightToLeft(rightToLeft());
}

void PageTab::enterFocus() {
    strip_.state.focused = true;
    strip_.invalidate();
}

void PageTab::exitFocus() {
    strip_.state.focused = false;
    strip_.invalidate();
}

void PageTab::useAmbientFont(const FontRef& font) {
    followedFont_.follow(font, this->font());
}

void PageTab::loadFont(const FontRef& font) {
    strip_.font.set(font);
    followedFont_.took(font, ambientFont());
}

void PageTab::SetlngSELECTEDPAGECOLOR(int32_t lngSELECTEDPAGECOLOR) {
    strip_.state.activePage = OleColour(static_cast<uint32_t>(lngSELECTEDPAGECOLOR));
}

int32_t PageTab::ActiveTab() {
    lngRESTORETAB = tabs_.active();
    return tabs_.active();
}

void PageTab::SetActiveTab(int32_t ActiveTab) {
    lngRESTORETAB = tabs_.active();
    if (!mark(ActiveTab)) return;
    PropertyChanged<&PageTab::ActiveTab>();
}

void PageTab::SetActiveTabs(const Text& ActiveTabs) {
    attempt([&] { strTABSTRING = ActiveTabs; });
    rebuild();
    PropertyChanged<&PageTab::ActiveTabs>();
}

void PageTab::SetBackColorPage(OleColour BackColorPage) {
    strip_.state.strip = BackColorPage;
    relay();
    select(tabs_.active());
    PropertyChanged<&PageTab::BackColorPage>();
}

void PageTab::SetPageColor(OleColour PageColor) {
    strip_.state.page = PageColor;
    PropertyChanged<&PageTab::PageColor>();
}

void PageTab::SetTextColor(OleColour TextColor) {
    strip_.state.text = TextColor;
    relay();
    select(tabs_.active());
    PropertyChanged<&PageTab::TextColor>();
}

void PageTab::SetPageMainColor(OleColour PageMainColor) {
    clrPAGEMAIN = PageMainColor;
    relay();
    select(tabs_.active());
}

Text PageTab::ActiveTabNameGet(int32_t Index) {
    return Text(tabs_.caption(Index));
}

void PageTab::ActiveTabNameSet(const Text& ActiveTabName) {
    // From 0, which has no caption: an empty name makes no tab active. The last match wins.
    for (int32_t index = 0; index <= tabs_.count(); ++index) {
        if (tabs_.caption(index) == ActiveTabName) SetActiveTab(index);
    }
}

void PageTab::AddTab(const Text& sCaption) {
    tabs_.add(sCaption);
    strip_.tabAdded();
    select(tabs_.count());
    relay();
    if (accessKeyOf(sCaption)) accessKeysChanged();
}

void PageTab::ObjectMouseUp() {
    strip_.forgetHover();
    select(tabs_.active());
}

void PageTab::SetFont(const Text& New_Font, const Text& New_FontSize) {
    tabs_.setFont(New_Font, toLong(New_FontSize));
    strip_.tabsChanged();
}

void PageTab::rebuild() {
    const Text keysBefore = tabs_.accessKeys();
    attempt([&] { tabs_.rebuild(strTABSTRING); });
    const bool restored = tabs_.select(lngRESTORETAB);
    attempt([&] { strip_.tabsChanged(); });
    select(tabs_.active());
    relay();
    if (tabs_.accessKeys() != keysBefore) accessKeysChanged();
    if (restored) PropertyChanged<&PageTab::ActiveTab>();
}

bool PageTab::select(int32_t index) {
    if (!tabs_.select(index)) return false;
    strip_.state.pieces = TabStrip::Pieces::selected;
    attempt([&] { strip_.reveal(); });
    return true;
}

void PageTab::relay() {
    TabStrip::State& shown = strip_.state;
    const OleColour before = shown.page;
    shown.activePage = pageColourOf(pageColours_, tabs_.active());
    shown.page = shown.activePage == OleColour() ? clrPAGEMAIN : shown.activePage;
    Refresh();
    if (shown.page != before) PropertyChanged<&PageTab::PageColor>();
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
    // The host may rebuild the tabs as soon as it hears of anything.
    const Text name(tabs_.caption(index));
    if (mark(index)) tellChoice(name);
}

void PageTab::translateTabColour() {
    strip_.state.tab =
        Rgb{static_cast<uint32_t>(TranslateOleColor(platform().appearance(), strip_.state.tab))};
    relay();
}

void PageTab::showPieces(TabStrip::Pieces pieces) {
    strip_.state.pieces = pieces;
    strip_.invalidate();
}

template <typename Raised, typename... More>
void PageTab::raiseMouse(const Raised& event, const MouseEvent& mouse, More... more) {
    MouseArguments arguments = MouseArguments::inTwips(mouse, root().dpi());
    attempt([&] { arguments.raise(event, more...); });
}

void PageTab::stripMouse(const MouseEvent& event) {
    switch (event.kind) {
        case MouseEvent::Kind::down:
            press(event);
            break;
        case MouseEvent::Kind::doubleClick:
            doubleClick(event);
            break;
        case MouseEvent::Kind::move:
            raiseMouse(MouseMove, event);
            break;
        case MouseEvent::Kind::up:
            if (Surface* shownOn = root().surface()) shownOn->releaseCapture(strip_);
            raiseMouse(MouseUp, event);
            break;
        case MouseEvent::Kind::leave:
            break;
    }
}

void PageTab::press(const MouseEvent& event) {
    const int32_t pressed = strip_.tabAt(event.at);
    const Text name(tabs_.caption(pressed));
    // A drag that ends elsewhere is still told as released.
    if (Surface* shownOn = root().surface()) shownOn->capture(strip_);
    const bool chosen = event.button == button::left && pressed != 0 && mark(pressed);
    const Text active(tabs_.caption(tabs_.active()));
    if (event.button == button::left) strip_.takeFocus();
    if (pressed != 0)
        raiseMouse(MouseDown, event, active);
    else
        raiseMouse(MouseDownback, event, active);
    if (chosen) tellChoice(name);
}

void PageTab::doubleClick(const MouseEvent& event) {
    if (Surface* shownOn = root().surface()) shownOn->capture(strip_);
    // The second press of a quick pair on two tabs chooses like any other.
    const int32_t pressed = strip_.tabAt(event.at);
    if (event.button != button::left) return;
    if (pressed != 0 && pressed != tabs_.active()) choose(pressed);
    attempt([&] { dlbClick(); });
}

std::optional<int32_t> PageTab::walkTarget(const KeyEvent& event) const {
    const int32_t count = tabs_.count();
    const int32_t active = tabs_.active();
    if (count == 0) return std::nullopt;
    if (event.shift == shift::alt) {
        // Keys of other kinds have the codes of other characters.
        const bool letter =
            (event.code >= '0' && event.code <= '9') || (event.code >= 'A' && event.code <= 'Z');
        return letter ? tabs_.withAccessKey(static_cast<char16_t>(event.code)) : std::nullopt;
    }
    if (event.code == key::tab) {
        if (event.shift == shift::control) return active % count + 1;
        if (event.shift == (shift::control | shift::shift)) return active > 1 ? active - 1 : count;
    }
    if (event.shift != 0) return std::nullopt;
    const int32_t onward = rightToLeft() ? -1 : 1;
    switch (event.code) {
        case key::left:
            return std::clamp(active - onward, 1, count);
        case key::right:
            return std::clamp(active + onward, 1, count);
        case key::home:
            return 1;
        case key::end:
            return count;
        default:
            return std::nullopt;
    }
}

KeyRoute PageTab::preTranslate(const KeyEvent& event) {
    if (hasFocus() && walkTarget(event)) return KeyRoute::child;
    // What is called with Alt, and is none of the tabs, is the form's.
    if ((event.shift & shift::alt) != 0) return KeyRoute::container;
    return Control::preTranslate(event);
}

void PageTab::surfaceKeyDown(KeyEvent& event) {
    const auto target = walkTarget(event);
    if (!target) return;
    event.code = 0;
    if (*target != tabs_.active()) choose(*target);
}

int16_t PageTab::surfaceKeyPress(int16_t character) {
    const auto typed = static_cast<char16_t>(character);
    const auto target = typed > u' ' ? tabs_.calledBy(typed) : std::nullopt;
    if (!target) return character;
    if (*target != tabs_.active()) choose(*target);
    return 0;
}

void PageTab::useAccessKey(char16_t character) {
    const auto target = tabs_.withAccessKey(character);
    if (target && *target != tabs_.active()) choose(*target);
}

AccessibleItem PageTab::describeSurface() const {
    AccessibleItem item = Control::describeSurface();
    item.role = AccessibleItem::Role::pageTabList;
    item.value = plainCaption(tabs_.caption(tabs_.active()));
    return item;
}

}  // namespace obk
