// Announces statements that a test makes fail; every other skipped statement fails the test.
#pragma once

#include "support/failing_memory.h"
#include "support/skipped_statements.h"

#include <gtest/gtest.h>

namespace obk::test {

// At least one statement is skipped for this cause while it lives.
class ExpectSkipped {
public:
    explicit ExpectSkipped(SkippedStatement::Cause cause, Place place = Place::here())
        : allowed_(cause), place_(place) {}
    ~ExpectSkipped() {
        if (allowed_.count() == 0) ADD_FAILURE_AT(place_.file, place_.line) << "no statement was skipped";
    }

private:
    AllowSkipped allowed_;
    Place place_;
};

// Before the first test begins.
[[maybe_unused]] inline const SkippedObserver nobody =
    observeSkipped([](const SkippedStatement& statement) noexcept {
        if (AllowSkipped::allows(statement)) return;
        const EnoughMemory memory;
        ADD_FAILURE_AT(statement.place.file, statement.place.line)
            << "a statement was skipped that no test announced: " << statement.reason;
    });

}  // namespace obk::test
