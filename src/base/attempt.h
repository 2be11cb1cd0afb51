// Statements that stand alone: a failing one is skipped, and the next one runs.
#pragma once

#include <utility>

namespace obk {

// Runs one statement; whatever it throws, memory exhaustion included, makes it a skipped statement.
// Answers whether it ran through. Never wrap a block of statements: the third failure would hide the fourth
// step.
template <typename Statement>
bool attempt(Statement&& statement) noexcept {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (...) {
        return false;
    }
}

// Runs a command that ends at its first failure, for the commands whose contract says so.
template <typename Command>
bool attemptSequence(Command&& command) noexcept {
    return attempt(std::forward<Command>(command));
}

// What a failing statement throws when it has no better exception of its own.
struct StatementFailed {};

}  // namespace obk
