#include "support/failing_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<int64_t> alive{0};

void* allocated(std::size_t size) {
    auto& limit = obk::test::memoryLimit;
    if (limit.limited && limit.left-- == 0) {
        limit = {.limited = !limit.once, .once = limit.once, .ended = true};
        throw std::bad_alloc();
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

int64_t obk::test::liveAllocations() {
    return alive;
}
