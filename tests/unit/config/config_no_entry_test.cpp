#include "services/config/vantor_config_instance.h"

#include <gtest/gtest.h>

// The loader finds a library without "create_config", whose address is called as it is.

namespace {

TEST(ConfigWithoutItsEntryDeathTest, EndsTheProcess)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(CVantorConfigInstance(), "CVantorConfigInstance\\(\\) enter");
}

} // namespace
