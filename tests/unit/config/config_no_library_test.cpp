#include "services/config/vantor_config_instance.h"
#include "tests/unit/config/log_watch.h"

#include <gtest/gtest.h>

// The loader finds no library.

namespace {

TEST(ConfigWithoutALibrary, AnswersDefaults)
{
    const LogWatch log;
    CVantorConfigInstance config;
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::CVantorConfigInstance() enter",
                           "load vantoronlineconfig.dll error!",
                           "CVantorConfigInstance::CVantorConfigInstance() leave"}));
    EXPECT_EQ(config.GetString("key", "fallback"), QString("fallback"));
    EXPECT_EQ(LogWatch::NewLines().at(1), QString("vantoronlineconfig need Create!"));
    EXPECT_TRUE(config.GetBoolean("key", true));
    EXPECT_FALSE(config.GetBoolean("key", false));
    config.SetPreFix(std::string("tag"));
    config.SetPreFix("prefix");
}

} // namespace
