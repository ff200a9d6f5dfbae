#include "services/config/vantor_config_instance.h"
#include "tests/unit/config/log_watch.h"
#include "tests/unit/platform/support/system.h"

#include <gtest/gtest.h>

// Its library is written in C.

namespace {

TEST(ConfigInC, EveryEntryOfTheTableIsWhereTheClientCallsIt)
{
    const LogWatch log;
    CVantorConfigInstance config;
    EXPECT_TRUE(LogWatch::NewLines().contains(
        "CVantorConfigInstance::CVantorConfigInstance() m_bInitRet= true"));
    EXPECT_EQ(config.GetString("some__key", ""), QString("nobody|some|key"));
    config.SetPreFix("prefix");
    EXPECT_EQ(config.GetString("other", ""), QString("prefix|other|"));
    EXPECT_TRUE(config.GetBoolean("switch__on", false));
    EXPECT_FALSE(config.GetBoolean("switch__off", true));
}

TEST(ConfigInC, TheLibraryStaysWhenItsClientHasGone)
{
    const LogWatch log;
    {
        const CVantorConfigInstance config;
    }
    EXPECT_TRUE(contract::IsLibraryLoaded("vantoronlineconfig.dll"));
}

} // namespace
