#include "support/failing_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

thread_local bool limited = false;
thread_local bool ended = false;
thread_local bool once = false;
thread_local uint64_t left = 0;
std::atomic<int64_t> alive{0};

void* allocated(std::size_t size) {
    if (limited) {
        if (left == 0) {
            ended = true;
            limited = !once;
            throw std::bad_alloc();
        }
        --left;
    }
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (!memory) throw std::bad_alloc();
    alive.fetch_add(1, std::memory_order_relaxed);
    return memory;
}
void release(void* memory) noexcept {
    if (memory) alive.fetch_sub(1, std::memory_order_relaxed);
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
    return allocated(size);
}
void* operator new[](std::size_t size) {
    return allocated(size);
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    release(memory);
}

namespace obk::test {

int64_t liveAllocations() {
    return alive;
}

FailingMemory::FailingMemory(uint64_t failing, Ends ends) {
    once = ends == Ends::once;
    left = failing;
    ended = false;
    limited = true;
}

FailingMemory::~FailingMemory() {
    limited = false;
}

bool FailingMemory::failed() const {
    return ended;
}

EnoughMemory::EnoughMemory() : limited_(std::exchange(limited, false)) {}

EnoughMemory::~EnoughMemory() {
    limited = limited_;
}

}  // namespace obk::test
