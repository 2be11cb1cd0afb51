// What was left undone, as a line that says in which control it happened, and in which member of it.
#pragma once

#include "base/attempt.h"
#include "base/left_undone.h"
#include "framework/value.h"

namespace obk {

class Control;

// Says which control is at work on this thread; costs nothing while nobody listens. Whoever makes one holds
// the control for its time.
class AtWork {
public:
    // `member` is the name of what is called, or empty; it outlives this object.
    explicit AtWork(const Control& control, TextView member = {}) {
        if (undoneIsObserved()) enter(control, member);
    }
    AtWork(const AtWork&) = delete;
    AtWork& operator=(const AtWork&) = delete;
    ~AtWork() {
        if (control_) leave();
    }

private:
    friend Text traceLine(TextView time, const LeftUndone& undone);
    void enter(const Control& control, TextView member);
    void leave();

    const Control* control_ = nullptr;
    TextView member_;
    AtWork* outer_ = nullptr;
};

// "<time> GridEdit grdOrders CellTextSet: row 12 refused, there are 2", with "-" for what is not known. Texts
// are cut at 40 characters. Asks the host for the control's name.
Text traceLine(TextView time, const LeftUndone& undone);

// Tells of a value that does not convert to the type that is wanted; fills the rest of `undone` in.
void tellUnconverted(LeftUndone undone, const Value& came, ValueType wanted) noexcept;

// Observes skipped statements and tells of them as of all else that was left undone.
void tellSkippedAsUndone(const SkippedStatement& statement) noexcept;

}  // namespace obk
