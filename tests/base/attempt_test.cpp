#include "base/attempt.h"

#include "support/expect_skipped.h"
#include "support/failing_memory.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace obk::test {
namespace {

using Cause = SkippedStatement::Cause;

void fail() {
    attempt([] { throw std::runtime_error("the host's"); });
}

TEST(AttemptTest, AStatementThatNobodyAnnouncedFailsTheTestAndOneThatIsHasToHappen) {
    EXPECT_NONFATAL_FAILURE(fail(), "the host's");
    EXPECT_NONFATAL_FAILURE({ const ExpectSkipped announced(Cause::other); }, "no statement");
    const ExpectSkipped announced(Cause::other);
    fail();
}

TEST(AttemptTest, WhatIsExpectedToFailFailsNoTestNorDoesMemoryThatATestEnds) {
    EXPECT_FALSE(attempt([] { throw StatementFailed("no date"); }));
    const FailingMemory memory(0);
    EXPECT_FALSE(attempt([] { std::string(100, ' '); }));
}

TEST(AttemptDeathTest, AFaultOfOursEndsTheProgram) {
    const std::optional<int> nothing;
    EXPECT_DEATH(attempt([&] { nothing.value(); }), "attempt_test.cpp:[0-9]+: a fault");
    EXPECT_DEATH(attempt([] { std::string().at(1); }), "attempt_test.cpp:[0-9]+: a fault");
}

}  // namespace
}  // namespace obk::test
