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

#include <vector>

namespace obk {

// Around what keys go to; lets the mouse through.
class PartRing final : public Widget {
public:
    explicit PartRing(Container& parent) : Widget(parent) {}

    void moveAround(const TwipsRect& part);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    Widget* hitTest(PixelPoint) override { return nullptr; }
};

class CalendarPanel final : public Container {
public:
    // In a panel of `outer`; `model` is borrowed.
    CalendarPanel(Control& outer, Container& parent, const CalendarModel& model);

    void setLook(Look look);
    static PixelSize size(Dpi dpi);
    // Shows what the model has now.
    void refresh();
    // Ends what a held button does, and closes the list of months; keys go to the days again.
    void rest();
    // Keys go to one part after the other, by Tab: none of them ever has the focus. Whether it was used.
    bool useKey(const KeyEvent& event);
    void useCharacter(char16_t character);
    // Whether a key was for the list of months, which is open.
    bool keyInList(const KeyEvent& event);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    bool wheel(const WheelEvent& event) override;
    AccessibleId accessibleFocus() override;

    Event<std::chrono::month> monthChosen;
    Event<TextView> yearTyped;  // or spun, or what `refresh` wrote
    Event<> yearEnded;          // what was typed is all
    // A key for the days; the answer of the last listener says whether it was used.
    Event<const KeyEvent&, bool&> walked;
    Event<> dayTaken;
    Event<int32_t> monthsTurned;
    Event<int32_t> cellChosen;
    Event<> todayPressed, clearPressed, closePressed;

private:
    enum class Part : uint8_t { days, month, year, today, clear, close };

    void layOut();
    void connectChildren();
    void turnTo(Part part);
    void showPart();
    void pressPart(int16_t code);
    bool yearKey(int16_t code);
    TwipsRect place(Part part) const;

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
    PartRing partRing_;

    Part part_ = Part::days;
    bool replacesYear_ = false;  // the next digit begins a new one
    Look look_ = Look::flat;
    Text toldMonth_;
    int32_t toldDay_ = 0;
    WheelNotches wheel_;
    std::vector<Connection> connections_;
};

}  // namespace obk
