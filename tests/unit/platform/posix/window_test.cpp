#include "platform/window.h"
#include "tests/unit/platform/support/system.h"

#include <gtest/gtest.h>

namespace {

class NoDisplay : public testing::TestWithParam<const char *>
{
};

TEST_P(NoDisplay, HasNoWindowsAndNoShadows)
{
    const contract::ScopedVariable display("DISPLAY", GetParam());
    EXPECT_FALSE(platform::WindowExists(1));
    platform::BringToFront(1); // comes back
    EXPECT_FALSE(platform::DropShadowEnabled());
}

INSTANTIATE_TEST_SUITE_P(Names,
                         NoDisplay,
                         testing::Values("", "nonsense", "unix:/nowhere/socket:0"));

} // namespace
