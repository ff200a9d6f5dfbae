#include "controller/offers.h"
#include "controller/ui_utility.h"
#include "services/config/vantor_config_instance.h"
#include "tests/unit/config/log_watch.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>

// The loader finds no library.

namespace {

bool outOfMemory = false;

} // namespace

// Replaces the form of `new` that reports a lack of memory by a null pointer.
void *operator new(std::size_t size, const std::nothrow_t & /*tag*/) noexcept
{
    return outOfMemory ? nullptr : ::operator new(size);
}

namespace {

TEST(ConfigWithoutALibrary, AnswersDefaults)
{
    const LogWatch log;
    auto config = std::make_unique<CVantorConfigInstance>();
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::CVantorConfigInstance() enter",
                           "load vantoronlineconfig.dll error!",
                           "CVantorConfigInstance::CVantorConfigInstance() leave"}));
    EXPECT_EQ(config->GetString("key", "fallback"), QString("fallback"));
    EXPECT_EQ(LogWatch::NewLines().at(1), QString("vantoronlineconfig need Create!"));
    EXPECT_TRUE(config->GetBoolean("key", true));
    EXPECT_FALSE(config->GetBoolean("key", false));
    config->SetPreFix(std::string("tag"));
    config->SetPreFix("prefix");
    LogWatch::NewLines();
    config.reset();
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::~CVantorConfigInstance enter",
                           "CVantorConfigInstance::~CVantorConfigInstance leave"}));
}

// The one instance of this process is created here, so it stays null.
TEST(ConfigWithoutMemory, ThereIsNoInstanceAndNoOffersAreConfigured)
{
    outOfMemory = true;
    EXPECT_FALSE(OfferSources::System().configured());
    outOfMemory = false;
    EXPECT_EQ(UIUtility::instance()->configInstance(), nullptr);
    EXPECT_EQ(CVantorConfigInstance::Instance(), nullptr);
}

} // namespace
