// Statements that stand alone: a failing one is skipped, the next one runs, and whoever listens is told.
#pragma once

#include <cstdint>
#include <exception>
#include <utility>

namespace obk {

// Where something stands in the source; as a parameter's default, where the caller stands.
struct Place {
    const char* file = "";
    int line = 0;

    static constexpr Place here(const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
        return {file, line};
    }
};

// What a statement throws that was expected to fail for some of what it is given: a text that is no number, a
// month without a day. Nobody's fault, and no reason for a test to fail.
class StatementFailed : public std::exception {
public:
    // `reason` is a literal.
    explicit StatementFailed(const char* reason) : reason_(reason) {}
    const char* what() const noexcept override { return reason_; }

private:
    const char* reason_;
};

// A statement that was not done, or not to its end.
struct SkippedStatement {
    enum class Cause : uint8_t {
        expected,  // a StatementFailed
        memory,    // it ended
        logic,     // a fault of this library: the wrong alternative, an empty optional, an index out of range
        other,     // whatever else was thrown, by a host's handler above all
    };
    Place place;
    Cause cause = Cause::other;
    const char* reason = "";  // what was thrown says so; valid for the time of the call
};

// Is told of every skipped statement of the process, at once, on the thread where it was skipped. Null tells
// nobody. Answers who was told before. An observer throws nothing and must work without memory.
using SkippedObserver = void (*)(const SkippedStatement& statement) noexcept;
SkippedObserver observeSkipped(SkippedObserver observer) noexcept;

namespace detail {
// Inside a handler: tells the observer of the exception that is being handled.
void tellSkipped(const Place& place) noexcept;
}  // namespace detail

// Runs one statement; whatever it throws, the end of memory included, makes it a skipped statement. Answers
// whether it ran through. Never wrap a block of statements: the third failure would hide the fourth step.
template <typename Statement>
bool attempt(Statement&& statement, Place place = Place::here()) noexcept {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (...) {
        detail::tellSkipped(place);
        return false;
    }
}

// Runs a command that ends at its first failure, for the commands whose contract says so.
template <typename Command>
bool attemptSequence(Command&& command, Place place = Place::here()) noexcept {
    return attempt(std::forward<Command>(command), place);
}

}  // namespace obk
