#pragma once

#include "platform/named_mutex.h"
#include "tests/unit/platform/support/system.h"

#include <gtest/gtest.h>

namespace contract {

/// A mutex name of the test's own, and a folder of its own for lock files.
class MutexTest : public testing::Test
{
protected:
    platform::NamedMutex Create()
    {
        return platform::NamedMutex::Create({name_.begin(), name_.end()}, error_);
    }

    void ExpectFree()
    {
        EXPECT_TRUE(Create());
        EXPECT_EQ(error_, platform::kErrorNone);
    }

    void ExpectExisting()
    {
        EXPECT_TRUE(Create()) << "another instance gets a handle, too";
        EXPECT_EQ(error_, platform::kErrorAlreadyExists);
    }

    void ExpectAnotherFailure()
    {
        EXPECT_FALSE(Create());
        for (const std::uint32_t other : {platform::kErrorNone,
                                          platform::kErrorAccessDenied,
                                          platform::kErrorAlreadyExists,
                                          kUnset}) {
            EXPECT_NE(error_, other);
        }
    }

    static constexpr std::uint32_t kUnset = 4711;

    ScratchFolder lockFolder_;
    ScopedVariable runtimeFolder_{"XDG_RUNTIME_DIR", lockFolder_.Path().string()};
    std::string name_ = UniqueName("ktr_contract_mutex");
    std::uint32_t error_ = kUnset;
};

} // namespace contract
