#include "app/instance_guard.h"
#include "platform/named_mutex.h"
#include "tests/unit/platform/support/scratch_folder.h"
#include "tests/unit/platform/support/system.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

const std::string kName = "ktr_uninstall_version_2023_Ostrel_Torvan";

// Somebody else's lock of that name.
platform::NamedMutex CreateOther(std::uint32_t &error)
{
    return platform::NamedMutex::Create({kName.begin(), kName.end()}, error);
}

class InstanceGuard : public testing::Test
{
protected:
    // Somebody else's attempt on the same lock.
    static std::uint32_t Try()
    {
        std::uint32_t error = platform::kErrorNone;
        platform::NamedMutex other = CreateOther(error);
        other.Release();
        return error;
    }

    void TearDown() override
    {
        ReleaseInstanceMutex();
    }

    contract::ScratchFolder lockFolder_;
    contract::ScopedVariable runtimeFolder_{"XDG_RUNTIME_DIR", lockFolder_.Path().string()};
};

TEST_F(InstanceGuard, TheFirstHoldsTheLockUntilItReleasesIt)
{
    EXPECT_FALSE(CheckAlreadyRunning());
    EXPECT_EQ(Try(), platform::kErrorAlreadyExists);
    ReleaseInstanceMutex();
    EXPECT_EQ(Try(), platform::kErrorNone);
}

TEST_F(InstanceGuard, ReleasingWithoutTheLockDoesNothing)
{
    ReleaseInstanceMutex();
    ReleaseInstanceMutex();
    EXPECT_EQ(Try(), platform::kErrorNone);
}

TEST_F(InstanceGuard, AnotherHolderMeansAlreadyRunningAndLeavesItsLockAlone)
{
    std::uint32_t error = platform::kErrorNone;
    platform::NamedMutex other = CreateOther(error);
    ASSERT_EQ(error, platform::kErrorNone);
    EXPECT_TRUE(CheckAlreadyRunning());
    ReleaseInstanceMutex();
    EXPECT_EQ(Try(), platform::kErrorAlreadyExists);
    other.Release();
    other.Close();
    EXPECT_FALSE(CheckAlreadyRunning());
}

TEST_F(InstanceGuard, ALockThatMayNotBeOpenedMeansAlreadyRunning)
{
    const auto forbidden = contract::ForbidMutex(kName, lockFolder_.Path());
    const auto dropped = contract::DropPrivileges();
    ASSERT_EQ(Try(), platform::kErrorAccessDenied);
    EXPECT_TRUE(CheckAlreadyRunning());
}

TEST_F(InstanceGuard, ALockThatCannotBeTakenOtherwiseMeansNoOtherInstance)
{
    const auto obstructed = contract::ObstructMutex(kName, lockFolder_.Path());
    const std::uint32_t error = Try();
    ASSERT_NE(error, platform::kErrorNone);
    ASSERT_NE(error, platform::kErrorAccessDenied);
    ASSERT_NE(error, platform::kErrorAlreadyExists);
    EXPECT_FALSE(CheckAlreadyRunning());
}

} // namespace
