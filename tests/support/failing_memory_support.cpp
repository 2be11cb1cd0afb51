#include "support/failing_memory.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace {

thread_local bool limited = false;
thread_local bool ended = false;
thread_local bool once = false;
thread_local uint64_t left = 0;

void* allocated(std::size_t size) {
    if (limited) {
        if (left == 0) {
            ended = true;
            limited = !once;
            throw std::bad_alloc();
        }
        --left;
    }
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    return allocated(size);
}
void* operator new[](std::size_t size) {
    return allocated(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace obk::test {

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
