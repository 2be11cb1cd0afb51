// What DateCalendar's panel holds: one month of days, its navigation, and what ends the choice.
#pragma once

#include "datecalendar/calendar_model.h"
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
    // In a panel of `outer`; `model` is borrowed.
    CalendarPanel(Control& outer, Container& parent, const CalendarModel& model);

    void setLook(Look look);
    static PixelSize size(Dpi dpi);
    // Shows what the model has now.
    void refresh();
    // Ends what a held button does.
    void rest();

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    bool wheel(const WheelEvent& event) override;

    Event<std::chrono::month> monthChosen;
    Event<TextView> yearTyped;  // or spun, or what `refresh` wrote
    Event<int32_t> monthsTurned;
    Event<int32_t> cellChosen;
    Event<> todayPressed, clearPressed, closePressed;

private:
    void layOut();
    void connectChildren();

    const CalendarModel& model_;
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

    Look look_ = Look::flat;
    WheelNotches wheel_;
    std::vector<Connection> connections_;
};

}  // namespace obk
