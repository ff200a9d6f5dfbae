#include "app/instance_guard.h"
#include "platform/named_mutex.h"
#include "tests/unit/platform/support/system.h"

#include <gtest/gtest.h>

namespace {

const std::string kName = "ktr_uninstall_version_2023_Ostrel_Torvan";

class InstanceGuard : public testing::Test
{
protected:
    // The error of one more attempt on the same mutex, which another program would get, too.
    static std::uint32_t Try()
    {
        std::uint32_t error = platform::kErrorNone;
        platform::NamedMutex::Create({kName.begin(), kName.end()}, error).Release();
        return error;
    }

    void TearDown() override
    {
        ReleaseInstanceMutex();
    }

    contract::ScratchFolder lockFolder_;
    contract::ScopedVariable runtimeFolder_{"XDG_RUNTIME_DIR", lockFolder_.Path().string()};
};

TEST_F(InstanceGuard, TheFirstHoldsTheMutexUntilItReleasesIt)
{
    EXPECT_FALSE(CheckAlreadyRunning());
    EXPECT_EQ(Try(), platform::kErrorAlreadyExists);
    for (int release = 0; release < 3; ++release) { // without the mutex it does nothing
        ReleaseInstanceMutex();
        EXPECT_EQ(Try(), platform::kErrorNone);
    }
}

TEST_F(InstanceGuard, AnotherHolderMeansAlreadyRunningAndLeavesItsMutexAlone)
{
    std::uint32_t error = platform::kErrorNone;
    auto other = platform::NamedMutex::Create({kName.begin(), kName.end()}, error);
    ASSERT_EQ(error, platform::kErrorNone);
    EXPECT_TRUE(CheckAlreadyRunning());
    ReleaseInstanceMutex();
    EXPECT_EQ(Try(), platform::kErrorAlreadyExists);
    other.Close();
    EXPECT_FALSE(CheckAlreadyRunning());
}

TEST_F(InstanceGuard, AMutexThatMayNotBeOpenedMeansAlreadyRunning)
{
    const auto forbidden = contract::ForbidMutex(kName, lockFolder_.Path());
    const auto dropped = contract::DropPrivileges();
    ASSERT_EQ(Try(), platform::kErrorAccessDenied);
    EXPECT_TRUE(CheckAlreadyRunning());
}

TEST_F(InstanceGuard, AnyOtherFailureMeansNoOtherInstance)
{
    const auto obstructed = contract::ObstructMutex(kName, lockFolder_.Path());
    EXPECT_FALSE(CheckAlreadyRunning());
}

} // namespace
