// What DateCalendar's panel holds: one month of days, its navigation, and what ends the choice.
#pragma once

#include "base/event.h"
#include "datecalendar/day_grid.h"
#include "datecalendar/year_run.h"
#include "framework/hosted_control.h"
#include "updown/up_down_text_box.h"
#include "widgets/decoration.h"
#include "widgets/drop_list.h"
#include "widgets/wheel_notches.h"

namespace obk {

class CalendarPanel final : public Container {
public:
    // In the panel of `outer`, whose committed date text is borrowed.
    CalendarPanel(Control& outer, Container& parent, const Text& committed);

    void setLook(Look look);
    PixelSize size(Dpi dpi) const;

    // Refills the days for the month and year that the list and the year field show; a year that is none
    // leaves them as they are.
    void CalendarUpdate();
    void showMonth(YearMonth month);
    // The month and the year that occur in a text; either stays where there is none.
    void readMonthAndYear(TextView text);
    // The date's month, its day chosen and framed.
    void showDate(const Date& date);
    // Today's day and month.
    void chooseToday();
    // The chosen day; nothing for one that only this panel knows, such as 29 February 1900.
    std::optional<Text> chosenText() const;
    // What a key does while the panel is open: moves the chosen day, or turns months and years. Whether it
    // did.
    bool walk(const KeyEvent& event);
    // Ends what a held button does.
    void rest();

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    bool wheel(const WheelEvent& event) override;

    Event<> dayChosen, todayChosen, clearPressed, closePressed;

private:
    std::optional<YearMonth> shownMonth() const;
    void turnBy(int32_t months);
    void placeCurrentDate(YearMonth shown);
    void layOut();
    void connectChildren();
    std::vector<DrawnButton*> buttons();

    const Text& committed_;
    DayGrid lblDAYNO;
    DayFrame lblCURRENTDATE;
    DropList cboMONTH;
    Hosted<UpDownTextBox> udnYEAR;
    DrawnButton imgUP, imgDOWN;
    DrawnButton cmdimgYEARBACK, cmdimgMONTHPREV;
    Label lblMONTHYEAR;
    DrawnButton cmdimgMONTHNEXT, cmdimgYEARNEXT;
    DrawnButton cmdTODAY, cmdCLEAR, cmdCLOSE;
    YearRun tmrUP, tmrDOWN;

    int32_t lngDAY = 0;  // below 1: none yet, so that today's day is taken
    int32_t lngDAYSINMONTH = 31;
    int32_t lngFIRSTCELL = cellColumns;
    bool blnCALENDARBUSY = false;
    Look look_ = Look::flat;
    WheelNotches wheel_;
    std::vector<Connection> connections_;
};

}  // namespace obk
