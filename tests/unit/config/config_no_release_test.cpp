#include "services/config/vantor_config_instance.h"
#include "tests/unit/config/log_watch.h"

#include <gtest/gtest.h>

#include <memory>

// Its library cannot take its object back.

namespace {

TEST(ConfigNoRelease, TheObjectIsUsedAndThenLeftAlone)
{
    const LogWatch log;
    auto config = std::make_unique<CVantorConfigInstance>();
    EXPECT_TRUE(LogWatch::NewLines().contains(
        "CVantorConfigInstance::CVantorConfigInstance() m_bInitRet= true"));
    EXPECT_EQ(config->GetString("a", "b"), QString("b"));
    LogWatch::NewLines();
    config.reset();
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::~CVantorConfigInstance enter",
                           "CVantorConfigInstance::~CVantorConfigInstance leave"}));
}

} // namespace
