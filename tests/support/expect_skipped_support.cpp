#include "support/expect_skipped.h"

#include "support/failing_memory.h"

#include <gtest/gtest.h>

namespace obk::test {

namespace {

void failTest(const SkippedStatement& statement) noexcept {
    if (AllowSkipped::allows(statement)) return;
    const EnoughMemory memory;
    ADD_FAILURE_AT(statement.place.file, statement.place.line)
        << "a statement was skipped that no test announced: " << statement.reason;
}

// Before the first test begins.
[[maybe_unused]] const SkippedObserver nobody = observeSkipped(failTest);

}  // namespace

ExpectSkipped::~ExpectSkipped() {
    if (allowed_.count() == 0) ADD_FAILURE_AT(place_.file, place_.line) << "no statement was skipped";
}

}  // namespace obk::test
