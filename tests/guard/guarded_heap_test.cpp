// The programs and the server of this build run on the guarded heap.
#include "server_support.h"

#include <gtest/gtest.h>

#include <memory>

namespace obk {
namespace {

using namespace testing_support;

DWORD stateOf(const void* address) {
    MEMORY_BASIC_INFORMATION about{};
    VirtualQuery(address, &about, sizeof about);
    return about.State;
}
const void* pageAfter(const void* address) {
    return reinterpret_cast<const void*>((reinterpret_cast<uintptr_t>(address) | 4095) + 1);
}

TEST(GuardedHeap, ABlockEndsAtAPageThatFaultsAndFaultsItselfOnceItIsFreed) {
    auto block = std::make_unique<char[]>(100);
    const char* const address = block.get();
    EXPECT_EQ(stateOf(address), DWORD{MEM_COMMIT});
    EXPECT_EQ((reinterpret_cast<uintptr_t>(address) + 112) % 4096, 0u);
    EXPECT_EQ(stateOf(address + 112), DWORD{MEM_RESERVE});
    block.reset();
    EXPECT_EQ(stateOf(address), DWORD{MEM_RESERVE});
}

TEST(GuardedHeap, TheServerHasOneOfItsOwn) {
    const LoadedServer server;
    const auto control = server.create(L"GridEdit");
    EXPECT_EQ(stateOf(control.get()), DWORD{MEM_COMMIT});
    EXPECT_EQ(stateOf(pageAfter(control.get())), DWORD{MEM_RESERVE});
}

}  // namespace
}  // namespace obk
