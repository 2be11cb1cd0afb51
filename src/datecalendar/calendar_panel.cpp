#include "datecalendar/calendar_panel.h"

#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <utility>

namespace obk {

namespace {

constexpr Twips panelWidth{2910};
constexpr Twips panelHeight{3405};

DrawnButton::Face arrows(TextView name, ArrowDirection direction, int32_t count) {
    return {Text(name), direction, count};
}

}  // namespace

void PartRing::moveAround(const TwipsRect& part) {
    const Twips gap{30};
    move({part.left - gap, part.top - gap, part.width + 2 * gap, part.height + 2 * gap});
}

void PartRing::paint(Canvas& canvas, const PixelRect& bounds) {
    canvas.frameRect(bounds, canvas.dpi().scaled(1), systemRgb(platform(), SystemColour::highlight));
}

CalendarPanel::CalendarPanel(Control& outer, Container& parent, const CalendarModel& model)
    : Container(parent),
      model_(model),
      lblDAYNO(*this, model.filled()),
      lblCURRENTDATE(*this),
      cboMONTH(*this, u"Month"),
      udnYEAR(outer, *this),
      imgUP(*this, arrows(u"Years back, while held", ArrowDirection::up, 1)),
      imgDOWN(*this, arrows(u"Years on, while held", ArrowDirection::down, 1)),
      cmdimgYEARBACK(*this, arrows(u"Previous year", ArrowDirection::left, 2)),
      cmdimgMONTHPREV(*this, arrows(u"Previous month", ArrowDirection::left, 1)),
      lblMONTHYEAR(*this),
      cmdimgMONTHNEXT(*this, arrows(u"Next month", ArrowDirection::right, 1)),
      cmdimgYEARNEXT(*this, arrows(u"Next year", ArrowDirection::right, 2)),
      cmdTODAY(*this, {.name = u"Today", .reachedByKeys = true}),
      cmdCLEAR(*this, {.name = u"Clear", .reachedByKeys = true}),
      cmdCLOSE(*this, {.name = u"Close", .reachedByKeys = true}),
      tmrUP(imgUP),
      tmrDOWN(imgDOWN),
      partRing_(*this) {
    SetBackColor(SystemColour::window);
    lblMONTHYEAR.setBackColour(SystemColour::window);
    lblMONTHYEAR.setForeColour(SystemColour::windowText);
    lblMONTHYEAR.setAlignment(HorizontalAlignment::centre);
    for (unsigned month = 1; month <= monthsOfYear; ++month)
        cboMONTH.add(Text(monthName(std::chrono::month(month))));
    udnYEAR->SetInterval(1);
    udnYEAR->SetMax(lastYear);
    udnYEAR->SetMin(firstYear);
    udnYEAR.setAccessibleName(u"Year");
    layOut();
    connectChildren();
    refresh();
}

void CalendarPanel::layOut() {
    move({{0}, {0}, panelWidth, panelHeight});
    lblDAYNO.move({{0}, {0}, panelWidth, panelHeight});
    cboMONTH.move({{105}, {105}, {1275}, {300}});
    udnYEAR.move({{1440}, {105}, {855}, {300}});
    imgUP.move({{2355}, {105}, {210}, {300}});
    imgDOWN.move({{2595}, {105}, {210}, {300}});
    cmdimgYEARBACK.move({{105}, {450}, {270}, {270}});
    cmdimgMONTHPREV.move({{405}, {450}, {270}, {270}});
    lblMONTHYEAR.move({{705}, {450}, {1500}, {270}});
    cmdimgMONTHNEXT.move({{2235}, {450}, {270}, {270}});
    cmdimgYEARNEXT.move({{2535}, {450}, {270}, {270}});
    cmdTODAY.move({{105}, {2985}, {840}, {315}});
    cmdCLEAR.move({{1035}, {2985}, {840}, {315}});
    cmdCLOSE.move({{1965}, {2985}, {840}, {315}});
}

void CalendarPanel::connectChildren() {
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(cboMONTH.chosen,
       [this] { monthChosen(std::chrono::month(static_cast<unsigned>(cboMONTH.selected() + 1))); });
    on(udnYEAR->Change, [this] { yearTyped(udnYEAR->Text()); });
    on(udnYEAR->Click, [this] { turnTo(Part::year); });
    on(cmdimgYEARBACK.clicked, [this] { monthsTurned(-monthsOfYear); });
    on(cmdimgYEARNEXT.clicked, [this] { monthsTurned(monthsOfYear); });
    on(cmdimgMONTHPREV.clicked, [this] { monthsTurned(-1); });
    on(cmdimgMONTHNEXT.clicked, [this] { monthsTurned(1); });
    on(tmrUP.stepped, [this] { monthsTurned(-monthsOfYear); });
    on(tmrDOWN.stepped, [this] { monthsTurned(monthsOfYear); });
    on(lblDAYNO.clicked, [this](int32_t cell) { cellChosen(cell); });
    on(cmdTODAY.clicked, [this] { todayPressed(); });
    on(cmdCLEAR.clicked, [this] { clearPressed(); });
    on(cmdCLOSE.clicked, [this] { closePressed(); });
}

void CalendarPanel::setLook(Look look) {
    look_ = look;
    cboMONTH.setLook(look);
    for (DrawnButton* each : {&imgUP, &imgDOWN, &cmdimgYEARBACK, &cmdimgMONTHPREV, &cmdimgMONTHNEXT,
                              &cmdimgYEARNEXT, &cmdTODAY, &cmdCLEAR, &cmdCLOSE})
        each->setLook(look);
    invalidate();
}

PixelSize CalendarPanel::size(Dpi dpi) {
    return {dpi.toPixels(panelWidth), dpi.toPixels(panelHeight)};
}

void CalendarPanel::refresh() {
    const FilledMonth& month = model_.filled();
    cboMONTH.select(static_cast<int32_t>(unsigned{model_.month()}) - 1);
    udnYEAR->SetText(model_.year());
    lblMONTHYEAR.setCaption(month.heading);
    lblDAYNO.refresh();
    const bool open = surface() && surface()->holdsCapture();
    const bool another = std::exchange(toldMonth_, month.heading) != month.heading;
    if (open && another) lblDAYNO.announce(AccessibleEvent::structure);
    const bool chosen = std::exchange(toldDay_, month.chosen) != month.chosen || another;
    if (open && chosen && month.chosen > 0)
        lblDAYNO.announce(AccessibleEvent::selection, {cellColumns + month.chosen - 1, -1});
    lblCURRENTDATE.setVisible(month.framed != 0);
    if (month.framed != 0) lblCURRENTDATE.moveOnto(month.layout.cellOf(month.framed));
    if (part_ == Part::days) showPart();
}

void CalendarPanel::rest() {
    tmrUP.stop();
    tmrDOWN.stop();
    wheel_.forget();
    cboMONTH.closeList();
    part_ = Part::days;
    showPart();
}

TwipsRect CalendarPanel::place(Part part) const {
    const FilledMonth& month = model_.filled();
    switch (part) {
        case Part::days:
            break;
        case Part::month:
            return cboMONTH.bounds();
        case Part::year:
            return udnYEAR.bounds();
        case Part::today:
            return cmdTODAY.bounds();
        case Part::clear:
            return cmdCLEAR.bounds();
        case Part::close:
            return cmdCLOSE.bounds();
    }
    if (month.chosen != 0) return cellBounds(month.layout.cellOf(month.chosen));
    const TwipsRect first = cellBounds(cellColumns);
    const TwipsRect last = cellBounds(cellCount - cellColumns - 1);
    return {first.left, first.top, last.left + last.width - first.left, last.top + last.height - first.top};
}

void CalendarPanel::showPart() {
    partRing_.moveAround(place(part_));
    // Nobody works with a panel that does not show.
    if (const Surface* shownOn = surface(); shownOn && shownOn->holdsCapture())
        announce(AccessibleEvent::focus);
}

void CalendarPanel::turnTo(Part part) {
    if (part_ == Part::year) yearEnded();
    part_ = part;
    replacesYear_ = part == Part::year;
    showPart();
}

bool CalendarPanel::useKey(const KeyEvent& event) {
    constexpr int32_t parts = static_cast<int32_t>(Part::close) + 1;
    const bool pages = event.code == key::pageUp || event.code == key::pageDown;
    if (event.code == key::tab && (event.shift == 0 || event.shift == shift::shift)) {
        const int32_t by = event.shift == 0 ? 1 : parts - 1;
        turnTo(static_cast<Part>((static_cast<int32_t>(part_) + by) % parts));
        return true;
    }
    if (event.shift == 0) {
        switch (event.code) {
            case 'T':
                if (!event.repeated) todayPressed();
                return true;
            case key::enter:
            case key::space:
                if (!event.repeated) pressPart(event.code);
                return true;
            case key::deleteKey:
                if (part_ == Part::year) break;
                if (!event.repeated) clearPressed();
                return true;
            default:
                break;
        }
        if (part_ == Part::year && yearKey(event.code)) return true;
        if (part_ == Part::month && !pages) {
            KeyEvent own = event;
            cboMONTH.keyDown(own);
            return own.code == 0;
        }
    }
    bool used = false;
    if (part_ == Part::days || pages) walked(event, used);
    return used;
}

void CalendarPanel::pressPart(int16_t code) {
    switch (part_) {
        case Part::days:
            return dayTaken();
        case Part::month:
            return code == key::space ? cboMONTH.open() : dayTaken();
        case Part::year:
            if (code == key::space) return;
            yearEnded();
            return dayTaken();
        case Part::today:
            return todayPressed();
        case Part::clear:
            return clearPressed();
        case Part::close:
            return closePressed();
    }
}

bool CalendarPanel::yearKey(int16_t code) {
    const Text& year = model_.year();
    switch (code) {
        case key::up:
        case key::down:
            yearEnded();
            monthsTurned(code == key::up ? monthsOfYear : -monthsOfYear);
            return true;
        case key::backspace:
        case key::deleteKey:
            udnYEAR->SetText(replacesYear_ || code == key::deleteKey || year.empty()
                                 ? Text()
                                 : year.substr(0, year.size() - 1));
            replacesYear_ = false;
            return true;
        default:
            return false;
    }
}

void CalendarPanel::useCharacter(char16_t character) {
    constexpr size_t yearLength = 4;
    if (part_ == Part::month) cboMONTH.keyPress(static_cast<int16_t>(character));
    if (part_ != Part::year || character < u'0' || character > u'9') return;
    const bool begins = std::exchange(replacesYear_, false) || model_.year().size() >= yearLength;
    udnYEAR->SetText((begins ? Text() : model_.year()) + character);
}

bool CalendarPanel::keyInList(const KeyEvent& event) {
    if (!cboMONTH.listOpen() || event.code == key::tab) return false;
    KeyEvent own = event;
    cboMONTH.keyDown(own);
    return own.code == 0;
}

// Keys go there, although the panel never has the keyboard.
AccessibleId CalendarPanel::accessibleFocus() {
    if (cboMONTH.listOpen()) return {};
    Widget* const parts[] = {&lblDAYNO, &cboMONTH, &udnYEAR, &cmdTODAY, &cmdCLEAR, &cmdCLOSE};
    const int32_t day = part_ == Part::days ? model_.filled().chosen : 0;
    return {parts[static_cast<size_t>(part_)],
            day > 0 ? AccessiblePart{cellColumns + day - 1, -1} : AccessiblePart{}};
}

bool CalendarPanel::wheel(const WheelEvent& event) {
    if (event.horizontal) return false;
    wheel_.turn(event.delta);
    while (const int32_t notch = wheel_.take()) monthsTurned(-notch);
    return true;
}

void CalendarPanel::paint(Canvas& canvas, const PixelRect& bounds) {
    Container::paint(canvas, bounds);
    if (look_ == Look::classic && !platform().appearance().highContrast())
        drawPanelEdges(platform(), canvas, bounds);
    else
        canvas.frameRect(bounds, canvas.dpi().scaled(1), outlineOn(platform(), rgb(BackColor())));
}

}  // namespace obk
