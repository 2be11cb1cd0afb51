#include "datecalendar/date_calendar.h"

#include "base/attempt.h"
#include "base/scoped_value.h"
#include "datecalendar/quick_menu.h"
#include "framework/kxlib_system.h"
#include "framework/whole_line.h"
#include "widgets/text_line_keys.h"

#include <utility>

namespace obk {

namespace {

constexpr Twips lineHeight{285};
constexpr Twips iconWidth{315};
constexpr TextView defaultToolTip = u"Calendar: click here or press F4. Quick dates: right click.";

// Whether a text window acts on a key by itself; what it types comes as a character.
bool editsText(const KeyEvent& event) {
    constexpr TextView commands = u"ACVXZ";
    if (event.shift == shift::control && commands.find(static_cast<char16_t>(event.code)) != TextView::npos)
        return true;
    const bool moves = event.code >= key::pageUp && event.code <= key::down;
    return moves || event.code == key::insert || event.code == key::deleteKey || event.code == key::backspace;
}

Text shownAs(TextView date) {
    return Text(date).append(displayBlanks);
}

}  // namespace

DateCalendar::DateCalendar(Platform& platform)
    : Control(platform),
      model_(platform.clock()),
      fraBORDER(root()),
      picfraBOX(root()),
      picfraICON(picfraBOX),
      txtfraBORDER(picfraBOX),
      panel_(*this, [](Dpi scale) { return CalendarPanel::size(scale); }),
      picDROPDOWNPANEL(*this, panel_.root(), model_) {
    panel_.setAccessible(AccessibleItem::Role::client, u"Calendar");
    picfraBOX.SetBackColor(SystemColour::window);
    connectChildren();
    connectPanel();
}

void DateCalendar::initialize() {
    const Look look = lookOfSystem(platform());
    fraBORDER.setLook(look);
    picDROPDOWNPANEL.setLook(look);
    setSize({2115}, {315});
}

void DateCalendar::initProperties() {
    loadFont(ambientFont());
}

void DateCalendar::loaded() {
    if (model_.date().empty()) {
        // An empty date shows an empty field whatever was stored, and yet is stored again as it was.
        obk::Text stored = model_.typed();
        attempt([&] { showText({}); });
        attempt([&] { model_.write(std::move(stored)); });
        const Date today = platform().clock().today();
        attempt([&] { model_.show(today.year() / today.month()); });
        return;
    }
    const auto date = dateFromText(model_.date());
    const auto text = date ? dateText(*date) : std::nullopt;
    if (!text) return;
    attempt([&] { showText(shownAs(*text)); });
    attempt([&] { model_.show(date->year() / date->month()); });
}

void DateCalendar::connectChildren() {
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(txtfraBORDER.changed, [this] {
        const TextView text = trimmed(txtfraBORDER.text());
        writing_ ? model_.write(obk::Text(text)) : model_.type(text);
        announceSurface(AccessibleEvent::value);
    });
    on(txtfraBORDER.keyWentDown, [this](KeyEvent& event) { keyDown(event); });
    on(txtfraBORDER.characterTyped, [this](int16_t& character) {
        if (!panel_.visible()) return;
        picDROPDOWNPANEL.useCharacter(static_cast<char16_t>(std::exchange(character, int16_t{0})));
    });
    on(txtfraBORDER.keyWentUp, [this](KeyEvent& event) { attempt([&] { KeyUp(event.code, event.shift); }); });
    on(txtfraBORDER.mousePressed, [this](const MouseEvent& event) { press(txtfraBORDER, event); });
    on(txtfraBORDER.mouseMoved, [this](const MouseEvent& event) { moveMouse(txtfraBORDER, event); });
    on(txtfraBORDER.mouseReleased, [this](const MouseEvent& event) { release(txtfraBORDER, event); });
    on(txtfraBORDER.mouseLeft, [this] { leaveMouse(); });
    on(txtfraBORDER.clicked, [this] {
        // The text is for typing: a click there tells the host and opens nothing.
        attempt([&] { PopUp(); });
        attempt([&] { Click(); });
    });
    on(txtfraBORDER.doubleClicked, [this] { attempt([&] { DblClick(); }); });
    on(txtfraBORDER.wheelTurned, [this](const WheelEvent& event, bool& used) {
        used = panel_.visible() && picDROPDOWNPANEL.wheel(event);
    });
    on(txtfraBORDER.fontChanged, [this] {
        followedFont_.changed();
        resize();
        if (!settingFont_) PropertyChanged<&DateCalendar::Font>();
    });
    const auto menuAsked = [this](const Widget& asked) {
        return [this, &asked](std::optional<PixelPoint> at, bool& shown) {
            shown = true;
            const PixelRect place = asked.pixelBounds();
            openQuickMenu(at ? PixelRect{at->x, at->y, at->x, at->y}.moved(place.left, place.top) : place);
        };
    };
    on(txtfraBORDER.menuAsked, menuAsked(txtfraBORDER));
    on(picfraICON.menuAsked, menuAsked(picfraICON));
    on(picfraICON.mouseReported, [this](const MouseEvent& event) { iconMouse(event); });
    on(picfraICON.asked, [this] { UserControl_Click(); });
    on(picfraICON.captureTaken, [this] {
        drop_.pressed = false;
        drop_.mouseHeld = false;
        showIcon();
    });
}

void DateCalendar::connectPanel() {
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(panel_.dismissed, [this] { dismiss(); });
    on(panel_.mouseElsewhere, [this](const MouseEvent& event) {
        const bool presses =
            event.kind == MouseEvent::Kind::down || event.kind == MouseEvent::Kind::doubleClick;
        if (presses && panel_.visible()) dismiss();
    });
    on(model_.changed, [this] { picDROPDOWNPANEL.refresh(); });
    on(picDROPDOWNPANEL.monthChosen, [this](std::chrono::month month) { model_.chooseMonth(month); });
    on(picDROPDOWNPANEL.yearTyped, [this](TextView year) { model_.typeYear(year); });
    on(picDROPDOWNPANEL.yearEnded, [this] { model_.endYear(); });
    on(picDROPDOWNPANEL.walked, [this](const KeyEvent& event, bool& used) { used = model_.walk(event); });
    on(picDROPDOWNPANEL.dayTaken, [this] { pickDay(); });
    on(picDROPDOWNPANEL.monthsTurned, [this](int32_t months) { model_.turn(months); });
    on(picDROPDOWNPANEL.cellChosen, [this](int32_t cell) {
        model_.chooseCell(cell);
        pickDay();
    });
    on(picDROPDOWNPANEL.todayPressed, [this] {
        attemptSequence([&] {
            model_.chooseToday();
            write(shownAs(model_.chosenText()));
        });
    });
    on(picDROPDOWNPANEL.clearPressed, [this] {
        // Unlike the menu's command it leaves the text that is shown.
        model_.commit({});
        attempt([&] { DateUpdated(); });
        HidePopUp();
    });
    on(picDROPDOWNPANEL.closePressed, [this] { HidePopUp(); });
}

void DateCalendar::SetBackColor(OleColour BackColor) {
    txtfraBORDER.setBackColour(BackColor);
    picfraBOX.SetBackColor(BackColor);
    fraBORDER.setBackColour(BackColor);
    PropertyChanged<&DateCalendar::BackColor>();
}

void DateCalendar::SetBorderStyle(int32_t BorderStyle) {
    fraBORDER.setBorderStyle(BorderStyle);
    PropertyChanged<&DateCalendar::BorderStyle>();
}

void DateCalendar::SetEnabled(bool Enabled) {
    // A field that the user cannot reach any more drops nothing down either.
    if (!Enabled && panel_.visible()) attempt([&] { HidePopUp(); });
    fraBORDER.setEnabled(Enabled);
    picfraICON.setEnabled(Enabled);
    txtfraBORDER.setEnabled(Enabled);
    announceSurface(AccessibleEvent::state);
    PropertyChanged<&DateCalendar::Enabled>();
}

void DateCalendar::SetFont(const FontRef& Font) {
    {
        const ScopedFlag setting(settingFont_);
        attempt([&] { txtfraBORDER.setFont(Font); });
    }
    PropertyChanged<&DateCalendar::Font>();
}

void DateCalendar::SetPopupEnabled(bool PopupEnabled) {
    drop_.popupEnabled = PopupEnabled;
    PropertyChanged<&DateCalendar::PopupEnabled>();
}

obk::Text DateCalendar::Text() const {
    return shownAs(model_.date());
}

void DateCalendar::SetText(const obk::Text& Text) {
    attempt([&] { model_.commit(trimmed(Text)); });
    attempt([&] { showText(shownAs(trimmed(Text))); });
    PropertyChanged<&DateCalendar::Text>();
}

void DateCalendar::HidePopUp() {
    if (panel_.visible()) {
        panel_.hide();
        picDROPDOWNPANEL.rest();
        showIcon();
    }
    drop_.mouseHeld = false;
    attempt([&] { FocusHidden(); });
}

void DateCalendar::dismiss() {
    dismissed_ = true;
    HidePopUp();
}

void DateCalendar::ShowPopUp() {
    if (panel_.visible()) return;
    dismissed_ = false;
    if (!drop_.popupEnabled) {
        attempt([&] { PopUp(); });
        return;
    }
    attemptSequence([&] { model_.showDate(); });
    panel_.show(drop_.firstSide());
    showIcon();
}

void DateCalendar::UserControl_Click() {
    if (Enabled()) {
        if (panel_.visible())
            HidePopUp();
        else if (drop_.popupEnabled)
            dropDown();
        attempt([&] { PopUp(); });
        attempt([&] { Click(); });
    }
    if (Surface* shownOn = root().surface()) shownOn->releaseCapture(picfraICON);
    drop_.mouseOver = true;
}

void DateCalendar::UserControl_ExitFocus() {
    drop_.leave(FocusLost, MouseUp);
}

void DateCalendar::UserControlMouseOut(int16_t& Button, int16_t& Shift, float& X, float& Y) {
    // The capture of the mouse, by which such a control would see it leave, would keep the text box from its
    // own mouse; the window system tells of the leaving instead.
    drop_.mouseOver =
        !(X < 0 || X > static_cast<float>(width().value) || Y < 0 || Y > static_cast<float>(height().value));
    attempt([&] { MouseOut(Button, Shift, X, Y); });
}

void DateCalendar::standOverText() {
    overText_ = true;
    txtfraBORDER.centreAbove(1);
    resize();
}

void DateCalendar::resize() {
    const Dpi dpi = root().dpi();
    // The border's two lines, in whole pixels as it draws them; over a text there is none.
    const Twips edge = overText_ ? Twips{0} : dpi.toTwips(2 * dpi.scaled(1));
    const Twips inner = height() - 2 * edge;
    fraBORDER.move({{0}, {0}, width(), height()});
    picfraBOX.move({edge, edge, width() - 2 * edge, inner});
    picfraICON.move({{0}, {0}, iconWidth, inner});
    const Twips fieldWidth = picfraBOX.bounds().width - iconWidth;
    if (overText_)
        txtfraBORDER.move({iconWidth, {0}, fieldWidth, height()});
    else
        txtfraBORDER.move(
            wholeLine(txtfraBORDER, {iconWidth, 0.5 * (height() - lineHeight), fieldWidth, lineHeight}));
}

void DateCalendar::enterFocus() {
    fraBORDER.setFocused(focusRect_);
}

void DateCalendar::exitFocus() {
    fraBORDER.setFocused(false);
    endEditing();
    UserControl_ExitFocus();
}

// What was typed is the date, whatever it is.
void DateCalendar::endEditing() {
    if (std::exchange(dismissed_, false))
        drop_.mouseHeld = false;
    else
        HidePopUp();
    if (!model_.edited()) return model_.endStandIn();
    attempt([&] { model_.commit(txtfraBORDER.text()); });
    attempt([&] { DateUpdated(); });
}

void DateCalendar::dropDown() {
    if (model_.edited()) endEditing();
    ShowPopUp();
}

void DateCalendar::showText(const obk::Text& shown) {
    const ScopedFlag writing(writing_);
    txtfraBORDER.setText(shown);
}

void DateCalendar::useAmbientFont(const FontRef& font) {
    followedFont_.follow(font, txtfraBORDER.font());
}

void DateCalendar::loadFont(const FontRef& font) {
    txtfraBORDER.setFont(font);
    followedFont_.took(font, ambientFont());
}

void DateCalendar::loadTypedText(const obk::Text& text) {
    attempt([&] { showText(text); });
    attempt([&] { model_.write(text); });
}

std::span<const KeyGroup> DateCalendar::keyGroups() const {
    static constexpr KeyClaim field[] = {
        keyClaim(key::f4, shifts::none, u"opens the calendar, or closes it"),
        keyClaim(key::down, shifts::alt, u"opens the calendar, or closes it"),
    };
    static constexpr TextView walk = u"walk through the calendar", page = u"turn its pages";
    static constexpr KeyClaim calendar[] = {
        keyClaim(key::tab, shifts::none | shifts::shift, u"go to another part of the calendar"),
        {key::left, key::down, shifts::none, walk},
        {key::end, key::home, shifts::none | shifts::control,
         u"go to the ends of the month; with Ctrl, of the year"},
        {key::pageUp, key::pageDown, shifts::none | shifts::control, page},
        keyClaim(key::enter, shifts::none, u"takes the day, or presses the button"),
        keyClaim(key::space, shifts::none, u"takes the day, presses the button, or opens the list of months"),
        keyClaim('T', shifts::none, u"goes to today and takes that"),
        keyClaim(key::deleteKey, shifts::none, u"clears the date; from the year, that"),
        keyClaim(key::escape, shifts::none, u"closes it"),
        keyClaim(key::up, shifts::alt, u"closes it"),
    };
    static constexpr KeyGroup groups[] = {{{}, 0, textLineKeys},
                                          {{}, 0, textLineArrows},
                                          {{}, 0, field},
                                          {u"while the calendar is open", 1, calendar}};
    return groups;
}

KeyRoute DateCalendar::preTranslate(const KeyEvent& event) {
    dismissed_ = false;
    if (drop_.keepsKey(event, panel_.visible()) && hasFocus()) return KeyRoute::child;
    // A default button that Enter presses finds what was typed stored.
    if (event.code == key::enter && !panel_.visible() && hasFocus() && model_.edited()) endEditing();
    return Control::preTranslate(event);
}

void DateCalendar::surfacePressedElsewhere() {
    // So does what a tool bar or a menu does, although neither takes the focus.
    if (model_.edited()) endEditing();
}

AccessibleItem DateCalendar::describeSurface() const {
    using Kind = AccessibleAction::Kind;
    AccessibleItem item = Control::describeSurface();
    item.role = AccessibleItem::Role::comboBox;
    item.value = trimmed(txtfraBORDER.text());
    item.set(AccessibleItem::valued);
    item.set(AccessibleItem::focusable);
    item.set(AccessibleItem::expandable);
    item.set(AccessibleItem::disabled, !Enabled());
    item.set(AccessibleItem::expanded, panel_.visible());
    item.allow(Kind::focus, Kind::write, panel_.visible() ? Kind::collapse : Kind::expand);
    return item;
}

void DateCalendar::useSurface(const AccessibleAction& action) {
    if (action.kind == AccessibleAction::Kind::collapse) return HidePopUp();
    txtfraBORDER.takeFocus();
    if (action.kind == AccessibleAction::Kind::expand) dropDown();
    if (action.kind != AccessibleAction::Kind::write) return;
    // As what is typed and then left.
    txtfraBORDER.setText(action.text);
    if (model_.edited()) endEditing();
}

void DateCalendar::write(const obk::Text& shown) {
    showText(shown);
    commitShown();
}

void DateCalendar::pickDay() {
    attemptSequence([&] {
        showText(shownAs(model_.chosenText()));
        HidePopUp();
        commitShown();
    });
}

void DateCalendar::commitShown() {
    model_.commit(txtfraBORDER.text());
    DateUpdated();
}

void DateCalendar::openQuickMenu(const PixelRect& beside) {
    Surface* shownOn = root().surface();
    if (!shownOn || !Enabled()) return;
    if (panel_.visible()) HidePopUp();
    const auto chosen = shownOn->chooseFromMenu(quickMenu(), beside);
    const auto text = chosen ? quickMenuText(*chosen, platform().clock().today()) : std::nullopt;
    if (text) attemptSequence([&] { write(text->empty() ? *text : shownAs(*text)); });
}

void DateCalendar::keyDown(KeyEvent& event) {
    const bool open = panel_.visible();
    const bool used = drop_.keepsKey(event, open) || actOn(event);
    drop_.keyUsed(event, open && used);
    const bool discarded = used || (panel_.visible() && editsText(event));
    attempt([&] { KeyDown(event.code, event.shift); });
    // The key has done its work, or was for an open calendar; the text window would type it or move its caret
    // by it.
    if (discarded) event.code = 0;
}

bool DateCalendar::actOn(const KeyEvent& event) {
    if (picDROPDOWNPANEL.keyInList(event)) return true;
    const bool drops = (event.code == key::f4 && event.shift == 0) ||
                       (event.code == key::down && event.shift == shift::alt) ||
                       (event.code == key::up && event.shift == shift::alt && panel_.visible());
    if (drops) {
        // A key that is held must not open and close the panel again and again.
        if (event.repeated) return true;
        if (panel_.visible())
            HidePopUp();
        else
            dropDown();
        return true;
    }
    if (!panel_.visible()) return false;
    if (event.shift == 0 && event.code == key::escape) {
        HidePopUp();
        return true;
    }
    return picDROPDOWNPANEL.useKey(alongReading(event));
}

void DateCalendar::iconMouse(const MouseEvent& event) {
    if (!Enabled()) return;
    Surface* shownOn = root().surface();
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
            if (event.button == button::left) {
                drop_.pressed = true;
                if (shownOn) shownOn->capture(picfraICON);
                txtfraBORDER.takeFocus();
                showIcon();
            }
            press(picfraICON, event);
            if (event.kind == MouseEvent::Kind::doubleClick) attempt([&] { DblClick(); });
            break;
        case MouseEvent::Kind::up: {
            const PixelRect own = picfraICON.pixelBounds();
            const bool click = drop_.pressed && event.button == button::left &&
                               PixelRect{0, 0, own.width(), own.height()}.contains(event.at);
            if (event.button == button::left) drop_.pressed = false;
            if (shownOn) shownOn->releaseCapture(picfraICON);
            showIcon();
            release(picfraICON, event);
            if (click) UserControl_Click();
            break;
        }
        case MouseEvent::Kind::move:
            if (shownOn)
                shownOn->setToolTip(picfraICON.pixelBounds(),
                                    toolTip_.empty() ? defaultToolTip : TextView(toolTip_));
            moveMouse(picfraICON, event);
            break;
        case MouseEvent::Kind::leave:
            leaveMouse();
            break;
    }
}

void DateCalendar::press(const Widget& on, const MouseEvent& event) {
    dismissed_ = false;
    drop_.mouseHeld = event.button != button::right;
    raiseMouse(MouseDown, on, event);
}

void DateCalendar::release(const Widget& on, const MouseEvent& event) {
    drop_.mouseHeld = false;
    raiseMouse(MouseUp, on, event);
}

void DateCalendar::moveMouse(const Widget& on, const MouseEvent& event) {
    if (!drop_.mouseHeld) {
        MouseArguments at = MouseArguments::inTwips(event, on, root());
        UserControlMouseOut(at.Button, at.Shift, at.X, at.Y);
    }
    raiseMouse(MouseMove, on, event);
}

void DateCalendar::leaveMouse() {
    if (!drop_.mouseOver || drop_.mouseHeld) return;
    MouseArguments outside{0, 0, -1, -1};
    UserControlMouseOut(outside.Button, outside.Shift, outside.X, outside.Y);
}

void DateCalendar::raiseMouse(const MouseRaised& event, const Widget& on, const MouseEvent& mouse) {
    MouseArguments arguments = MouseArguments::inTwips(mouse, on, root());
    attempt([&] { arguments.raise(event); });
}

void DateCalendar::showIcon() {
    picfraICON.setPressed(drop_.pressed || panel_.visible());
}

}  // namespace obk
