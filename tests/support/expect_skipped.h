// Announces statements that a test makes fail; every other skipped statement fails the test.
#pragma once

#include "support/skipped_statements.h"

namespace obk::test {

// At least one statement is skipped for this cause while it lives.
class ExpectSkipped {
public:
    explicit ExpectSkipped(SkippedStatement::Cause cause, Place place = Place::here())
        : allowed_(cause), place_(place) {}
    ~ExpectSkipped();

private:
    AllowSkipped allowed_;
    Place place_;
};

}  // namespace obk::test
