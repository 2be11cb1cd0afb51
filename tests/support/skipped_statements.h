// No statement of a control is skipped unseen: who does not announce one learns of it.
#pragma once

#include "base/attempt.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace obk::test {

// While it lives, statements may be skipped for this cause. Those that are expected to fail need none, and
// faults of this library have none.
class AllowSkipped {
public:
    explicit AllowSkipped(SkippedStatement::Cause cause) : cause_(cause), before_(skipped(cause).count) {
        ++skipped(cause).allowed;
    }
    AllowSkipped(const AllowSkipped&) = delete;
    AllowSkipped& operator=(const AllowSkipped&) = delete;
    ~AllowSkipped() { --skipped(cause_).allowed; }

    // How many were skipped for it since then.
    int count() const { return skipped(cause_).count - before_; }

    // What an observer does first: ends the program where the library is at fault, and answers whether the
    // statement may be skipped otherwise.
    static bool allows(const SkippedStatement& statement) noexcept {
        using Cause = SkippedStatement::Cause;
        if (statement.cause == Cause::logic) {
            print("a fault of the library", statement);
            std::abort();
        }
        Skipped& same = skipped(statement.cause);
        ++same.count;
        return statement.cause == Cause::expected || same.allowed > 0;
    }
    static void print(const char* what, const SkippedStatement& statement) noexcept {
        std::fprintf(stderr, "%s:%d: %s: %s\n", statement.place.file, statement.place.line, what,
                     statement.reason);
    }

private:
    struct Skipped {
        int allowed = 0;
        int count = 0;
    };
    static Skipped& skipped(SkippedStatement::Cause cause) {
        static thread_local std::array<Skipped, 4> causes;
        return causes[static_cast<size_t>(cause)];
    }

    SkippedStatement::Cause cause_;
    int before_;
};

}  // namespace obk::test
