#include "app/instance_guard.h"
#include "platform/named_mutex.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

constexpr wchar_t kName[] = L"ktr_uninstall_version_2023_Ostrel_Torvan";

TEST(InstanceLockError, OnlyTakenAndForbiddenMeanAnotherInstance)
{
    EXPECT_TRUE(MeansAlreadyRunning(5));
    EXPECT_TRUE(MeansAlreadyRunning(183));
    for (const std::uint32_t error : {0U, 2U, 4U, 6U, 8U, 182U, 184U, 0xFFFFFFFFU}) {
        EXPECT_FALSE(MeansAlreadyRunning(error)) << error;
    }
}

class InstanceGuard : public testing::Test
{
protected:
    // Somebody else's attempt on the same lock.
    static std::uint32_t Try()
    {
        std::uint32_t error = platform::kErrorNone;
        platform::NamedMutex other = platform::NamedMutex::Create(kName, error);
        other.Release();
        return error;
    }

    void TearDown() override
    {
        ReleaseInstanceMutex();
    }
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
    platform::NamedMutex other = platform::NamedMutex::Create(kName, error);
    ASSERT_EQ(error, platform::kErrorNone);
    EXPECT_TRUE(CheckAlreadyRunning());
    ReleaseInstanceMutex();
    EXPECT_EQ(Try(), platform::kErrorAlreadyExists);
    other.Release();
    other.Close();
    EXPECT_FALSE(CheckAlreadyRunning());
}

} // namespace
