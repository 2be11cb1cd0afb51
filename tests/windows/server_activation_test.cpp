#include "server_support.h"

#include "container/text.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

using namespace testing_support;

TEST(ServerActivation, ShowsEveryControlInItsContainer) {
    for (const std::wstring& name : serverClasses()) {
        HostedControl hosted(name);
        hosted.activate();
        ASSERT_TRUE(hosted.site.window()) << container::toUtf8(name);
        EXPECT_TRUE(IsWindowVisible(hosted.site.window()));
    }
}

}  // namespace
}  // namespace obk
