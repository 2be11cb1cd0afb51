#include "datecalendar/calendar_panel.h"

#include "base/scoped_value.h"
#include "widgets/drawing.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace obk {

namespace {

constexpr int32_t monthsOfYear = 12;
constexpr Twips panelWidth{2910};
constexpr Twips panelHeight{3405};

DrawnButton::Face arrows(TextView name, ArrowDirection direction, int32_t count) {
    return {Text(name), direction, count};
}

}  // namespace

CalendarPanel::CalendarPanel(Control& outer, Container& parent, const Text& committed)
    : Container(parent),
      committed_(committed),
      lblDAYNO(*this),
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
      cmdTODAY(*this, {u"Today"}),
      cmdCLEAR(*this, {u"Clear"}),
      cmdCLOSE(*this, {u"Close"}),
      tmrUP(imgUP),
      tmrDOWN(imgDOWN) {
    SetBackColor(SystemColour::window);
    lblMONTHYEAR.setBackColour(SystemColour::window);
    lblMONTHYEAR.setForeColour(SystemColour::windowText);
    lblMONTHYEAR.setAlignment(HorizontalAlignment::centre);
    for (unsigned month = 1; month <= monthsOfYear; ++month)
        cboMONTH.add(Text(monthName(std::chrono::month(month))));
    udnYEAR->SetInterval(1);
    udnYEAR->SetMax(lastYear);
    udnYEAR->SetMin(firstYear);
    layOut();
    connectChildren();
    const Date today = platform().clock().today();
    showMonth(today.year() / today.month());
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
    on(cboMONTH.chosen, [this] { CalendarUpdate(); });
    on(udnYEAR->Change, [this] {
        if (!blnCALENDARBUSY) CalendarUpdate();
    });
    on(cmdimgYEARBACK.clicked, [this] { turnBy(-monthsOfYear); });
    on(cmdimgYEARNEXT.clicked, [this] { turnBy(monthsOfYear); });
    on(cmdimgMONTHPREV.clicked, [this] { turnBy(-1); });
    on(cmdimgMONTHNEXT.clicked, [this] { turnBy(1); });
    on(tmrUP.stepped, [this] { turnBy(-monthsOfYear); });
    on(tmrDOWN.stepped, [this] { turnBy(monthsOfYear); });
    on(lblDAYNO.clicked, [this](int32_t cell) {
        lngDAY = cell - lngFIRSTCELL + 1;
        dayChosen();
    });
    on(cmdTODAY.clicked, [this] {
        chooseToday();
        todayChosen();
    });
    on(cmdCLEAR.clicked, [this] { clearPressed(); });
    on(cmdCLOSE.clicked, [this] { closePressed(); });
}

std::vector<DrawnButton*> CalendarPanel::buttons() {
    return {&imgUP,          &imgDOWN,  &cmdimgYEARBACK, &cmdimgMONTHPREV, &cmdimgMONTHNEXT,
            &cmdimgYEARNEXT, &cmdTODAY, &cmdCLEAR,       &cmdCLOSE};
}

void CalendarPanel::setLook(Look look) {
    look_ = look;
    cboMONTH.setLook(look);
    for (DrawnButton* each : buttons()) each->setLook(look);
    invalidate();
}

PixelSize CalendarPanel::size(Dpi dpi) const {
    return {dpi.toPixels(panelWidth), dpi.toPixels(panelHeight)};
}

std::optional<YearMonth> CalendarPanel::shownMonth() const {
    const auto year = yearFromText(udnYEAR->Text());
    if (!year || cboMONTH.selected() < 0) return std::nullopt;
    return std::chrono::year(*year) / std::chrono::month(static_cast<unsigned>(cboMONTH.selected() + 1));
}

void CalendarPanel::CalendarUpdate() {
    const auto month = shownMonth();
    const auto layout = month ? monthLayout(*month) : std::nullopt;
    if (!layout) return;
    const ScopedFlag busy(blnCALENDARBUSY);
    const Date today = platform().clock().today();
    lngFIRSTCELL = layout->firstCell;
    lngDAYSINMONTH = layout->days;
    if (lngDAY > lngDAYSINMONTH) lngDAY = 1;
    if (lngDAY < 1) lngDAY = static_cast<int32_t>(unsigned{today.day()});
    const Text heading = Text(cboMONTH.text()) + u", " + udnYEAR->Text();
    lblMONTHYEAR.setCaption(heading);
    lblDAYNO.show(*layout, heading);
    const bool isThisMonth = *month == today.year() / today.month();
    lblDAYNO.mark(lngDAY, isThisMonth ? static_cast<int32_t>(unsigned{today.day()}) : 0);
    placeCurrentDate(*month);
}

void CalendarPanel::placeCurrentDate(YearMonth shown) {
    // The month is looked for at the start of the text, where the texts of this control have the weekday: of
    // theirs the frame shows from the opening of the panel until the first refill. Hosts know it so.
    const TextView text = trimmed(committed_);
    const bool mentioned = text.substr(0, 3).find(monthAbbreviation(shown.month())) != Text::npos;
    const auto committed = mentioned ? dateFromText(text) : std::nullopt;
    const bool sameYear = committed && udnYEAR->Text().find(yearText(int{committed->year()})) != Text::npos;
    lblCURRENTDATE.setVisible(sameYear);
    if (sameYear)
        lblCURRENTDATE.moveOnto(lngFIRSTCELL + static_cast<int32_t>(unsigned{committed->day()}) - 1);
}

void CalendarPanel::showMonth(YearMonth month) {
    {
        const ScopedFlag busy(blnCALENDARBUSY);
        cboMONTH.select(static_cast<int32_t>(unsigned{month.month()}) - 1);
        udnYEAR->SetText(yearText(int{month.year()}));
    }
    CalendarUpdate();
}

void CalendarPanel::readMonthAndYear(TextView text) {
    constexpr size_t yearLength = 4;
    {
        const ScopedFlag busy(blnCALENDARBUSY);
        if (const auto month = monthMentioned(text))
            cboMONTH.select(static_cast<int32_t>(unsigned{*month}) - 1);
        const TextView last = text.substr(text.size() - std::min(text.size(), yearLength));
        if (const auto year = yearFromText(last)) udnYEAR->SetText(yearText(*year));
    }
    // By the calendar, until the refill counts as this panel does.
    if (const auto month = shownMonth()) lngDAYSINMONTH = daysInMonth(*month);
    CalendarUpdate();
}

void CalendarPanel::showDate(const Date& date) {
    lngDAY = static_cast<int32_t>(unsigned{date.day()});
    showMonth(date.year() / date.month());
    lblCURRENTDATE.moveOnto(lngFIRSTCELL + lngDAY - 1);
    lblCURRENTDATE.setVisible(true);
}

void CalendarPanel::chooseToday() {
    const Date today = platform().clock().today();
    lngDAY = static_cast<int32_t>(unsigned{today.day()});
    showMonth(today.year() / today.month());
}

std::optional<Text> CalendarPanel::chosenText() const {
    const auto month = shownMonth();
    if (!month || lngDAY < 1) return std::nullopt;
    return dateText(*month / std::chrono::day(static_cast<unsigned>(lngDAY)));
}

void CalendarPanel::turnBy(int32_t months) {
    const auto from = shownMonth();
    if (const auto to = from ? turned(*from, months) : std::nullopt) showMonth(*to);
}

bool CalendarPanel::walk(const KeyEvent& event) {
    const bool byYear = event.shift == shift::control;
    const bool turns = event.code == key::pageUp || event.code == key::pageDown;
    if (event.shift != 0 && !(byYear && turns)) return false;
    const auto month = shownMonth();
    if (!month) return false;
    std::optional<ShownDay> to;
    const ShownDay from{*month, lngDAY};
    const auto turnedTo = [&](int32_t months) -> std::optional<ShownDay> {
        const auto other = turned(*month, byYear ? months * monthsOfYear : months);
        // A shorter month has its last day for those it lacks.
        return other ? std::optional(ShownDay{*other, std::min(lngDAY, daysShown(*other))}) : std::nullopt;
    };
    switch (event.code) {
        case key::left:
            to = moved(from, -1);
            break;
        case key::right:
            to = moved(from, 1);
            break;
        case key::up:
            to = moved(from, -cellColumns);
            break;
        case key::down:
            to = moved(from, cellColumns);
            break;
        case key::home:
            to = {*month, 1};
            break;
        case key::end:
            to = {*month, daysShown(*month)};
            break;
        case key::pageUp:
            to = turnedTo(-1);
            break;
        case key::pageDown:
            to = turnedTo(1);
            break;
        default:
            return false;
    }
    // At the ends of time the key has no effect, on the text below neither.
    if (!to) return true;
    const bool framed = lblCURRENTDATE.visible() && to->month == *month;
    lngDAY = to->day;
    showMonth(to->month);
    // A walk inside a month takes nothing away from it.
    lblCURRENTDATE.setVisible(framed || lblCURRENTDATE.visible());
    return true;
}

void CalendarPanel::rest() {
    tmrUP.stop();
    tmrDOWN.stop();
    wheel_.forget();
}

bool CalendarPanel::wheel(const WheelEvent& event) {
    if (event.horizontal) return false;
    wheel_.turn(event.delta);
    while (const int32_t notch = wheel_.take()) turnBy(-notch);
    return true;
}

void CalendarPanel::paint(Canvas& canvas, const PixelRect& bounds) {
    Container::paint(canvas, bounds);
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const int32_t line = canvas.dpi().scaled(1);
    const bool highContrast = platform().appearance().highContrast();
    if (look_ == Look::classic && !highContrast) {
        drawPanelEdges(platform(), canvas, bounds);
    } else {
        canvas.frameRect(bounds, line,
                         colour(highContrast ? SystemColour::windowText : SystemColour::buttonShadow));
    }
}

}  // namespace obk
