// Memory that ends when a test says so.
#pragma once

#include "base/scoped_value.h"
#include "support/skipped_statements.h"

#include <cstdint>

namespace obk::test {

// Of this thread. An allocation fails when it is limited and none is left.
struct MemoryLimit {
    bool limited = false, once = false, ended = false;
    uint64_t left = 0;
};
constinit inline thread_local MemoryLimit memoryLimit;

// While it lives, the allocation numbered `failing` (from 0) on this thread throws std::bad_alloc, and so do
// all after it unless there is memory again. Statements that are skipped for that are announced.
class FailingMemory {
public:
    enum class Ends { forGood, once };
    explicit FailingMemory(uint64_t failing, Ends ends = Ends::forGood) {
        memoryLimit = {.limited = true, .once = ends == Ends::once, .left = failing};
    }
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;
    ~FailingMemory() { memoryLimit.limited = false; }

    bool failed() const { return memoryLimit.ended; }

private:
    AllowSkipped skipped_{SkippedStatement::Cause::memory};
};

// While it lives, there is memory again: for what a test itself has to say.
class EnoughMemory : ScopedValue<bool> {
public:
    EnoughMemory() : ScopedValue(memoryLimit.limited, false) {}
};

// How many allocations of this program are alive.
int64_t liveAllocations();

// Runs `statement` with memory that ends at its first allocation, then at its second and so on, until it runs
// through; `check` sees the state after each failure. Answers how often it failed.
template <typename Statement, typename Check>
int failAtEveryAllocation(Statement&& statement, Check&& check) {
    for (int failures = 0;; ++failures) {
        bool failed = false;
        {
            FailingMemory memory(static_cast<uint64_t>(failures));
            try {
                statement();
            } catch (...) {
                failed = true;
            }
            // What swallowed the failure itself must be whole all the same.
            failed = failed || memory.failed();
        }
        if (!failed) return failures;
        check();
    }
}

}  // namespace obk::test
