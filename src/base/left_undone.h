// What a host asked for and did not get. A control reports no errors; whoever looks for one may listen here.
#pragma once

#include "base/text.h"

#include <atomic>
#include <cstdint>

namespace obk {

struct LeftUndone {
    enum class Kind : uint8_t {
        statement,  // `subject` is its file and `number` its line
        argument,   // the `number`th of the member that is called; 0: the value of a property
        stored,     // of the key `subject`
        row,        // `number`, where there are `limit`
        column,     // likewise
        icon,       // the name `subject`
        font,       // likewise
        file,       // could not be opened under the path `subject`
        handler,    // of the event `subject`
    };
    Kind kind = Kind::statement;
    TextView subject{};
    TextView came{};    // of an argument and a stored value: what was given, as a person reads it
    TextView reason{};  // what would have been taken instead, or why it failed
    int64_t number = 0;
    int64_t limit = 0;
};

// Is told at once, on the thread where it happened, also in the middle of a statement; what it is given is
// valid for the time of the call. Null tells nobody. Answers who was told before.
using UndoneObserver = void (*)(const LeftUndone& undone) noexcept;
UndoneObserver observeUndone(UndoneObserver observer) noexcept;

namespace detail {
extern std::atomic<UndoneObserver> undoneObserver;
}  // namespace detail

// Whether anybody listens, for what has to be worked out only to be told.
inline bool undoneIsObserved() noexcept {
    return detail::undoneObserver.load(std::memory_order_relaxed) != nullptr;
}

inline void tellUndone(const LeftUndone& undone) noexcept {
    if (const auto told = detail::undoneObserver.load(std::memory_order_relaxed)) told(undone);
}

// Tells of a number that a property does not have; `wanted` says which it has. Answers false.
bool refuseNumber(int64_t number, TextView wanted) noexcept;

}  // namespace obk
