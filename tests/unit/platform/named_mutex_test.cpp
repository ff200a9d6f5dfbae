#include "platform/named_mutex.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>
#include <memory>
#include <utility>

namespace {

using contract::DetachedChild;
using contract::StartedChild;
using platform::NamedMutex;

class NamedMutexContract : public testing::Test
{
protected:
    NamedMutex Create()
    {
        return NamedMutex::Create({name_.begin(), name_.end()}, error_);
    }

    contract::ScratchFolder lockFolder_;
    contract::ScopedVariable runtimeFolder_{"XDG_RUNTIME_DIR", lockFolder_.Path().string()};
    std::string name_ = contract::UniqueName("ktr_contract_mutex");
    std::uint32_t error_ = 4711;
};

TEST_F(NamedMutexContract, NewOneIsOwnedWithoutError)
{
    const NamedMutex mutex = Create();
    EXPECT_TRUE(mutex);
    EXPECT_EQ(error_, platform::kErrorNone);
}

TEST_F(NamedMutexContract, OneThatAnotherProcessHoldsAlreadyExistsAndGivesAHandle)
{
    StartedChild owner;
    ASSERT_EQ(owner.Ask({"create-mutex", name_}), "0 handle");
    const NamedMutex mutex = Create();
    EXPECT_EQ(error_, platform::kErrorAlreadyExists);
    EXPECT_TRUE(mutex);
}

TEST_F(NamedMutexContract, OneThatTheSameProcessHoldsAlreadyExists)
{
    const NamedMutex first = Create();
    const NamedMutex second = Create();
    EXPECT_EQ(error_, platform::kErrorAlreadyExists);
}

TEST_F(NamedMutexContract, ReleasedButOpenStillExists)
{
    StartedChild owner;
    ASSERT_EQ(owner.Ask({"create-mutex", name_}), "0 handle");
    ASSERT_EQ(owner.Ask({"release-mutex"}), "released");
    Create().Close();
    EXPECT_EQ(error_, platform::kErrorAlreadyExists);
    ASSERT_EQ(owner.Ask({"close-mutex"}), "closed");
    EXPECT_TRUE(Create());
    EXPECT_EQ(error_, platform::kErrorNone);
}

TEST_F(NamedMutexContract, ClosedByItsOwnerIsFree)
{
    StartedChild owner;
    ASSERT_EQ(owner.Ask({"create-mutex", name_}), "0 handle");
    ASSERT_EQ(owner.Ask({"close-mutex"}), "closed");
    EXPECT_TRUE(Create());
    EXPECT_EQ(error_, platform::kErrorNone);
}

TEST_F(NamedMutexContract, FreeAgainWhenItsOwnerIsEnded)
{
    StartedChild owner;
    ASSERT_EQ(owner.Ask({"create-mutex", name_}), "0 handle");
    owner.Process().EndAtOnce();
    EXPECT_TRUE(Create());
    EXPECT_EQ(error_, platform::kErrorNone);
}

TEST_F(NamedMutexContract, FreeAgainWhenTheObjectGoes)
{
    {
        const NamedMutex mutex = Create();
    }
    StartedChild other;
    EXPECT_EQ(other.Ask({"create-mutex", name_}), "0 handle");
}

TEST_F(NamedMutexContract, NamesAreIndependent)
{
    const NamedMutex mutex = Create();
    StartedChild other;
    EXPECT_EQ(other.Ask({"create-mutex", name_ + "_other"}), "0 handle");
    EXPECT_EQ(other.Ask({"create-mutex", name_}), "183 handle");
}

TEST_F(NamedMutexContract, OfTenProcessesExactlyOneBecomesOwner)
{
    constexpr std::size_t kProcesses = 10;
    std::vector<std::unique_ptr<StartedChild>> children;
    for (std::size_t i = 0; i < kProcesses; ++i) {
        children.push_back(std::make_unique<StartedChild>());
    }
    const std::filesystem::path gate = lockFolder_ / "gate";
    for (const auto &child : children) {
        child->Send({"race-for-mutex", name_, gate.string()});
    }
    contract::WriteFile(gate, "open");
    std::size_t owners = 0;
    std::size_t others = 0;
    for (const auto &child : children) {
        const std::string answer = child->AwaitAnswer();
        owners += answer == "0 handle" ? 1 : 0;
        others += answer == "183 handle" ? 1 : 0;
    }
    EXPECT_EQ(owners, 1U);
    EXPECT_EQ(others, kProcesses - 1);
}

TEST_F(NamedMutexContract, OneThatMayNotBeOpenedIsAccessDenied)
{
    const auto forbidden = contract::ForbidMutex(name_, lockFolder_.Path());
    StartedChild other;
    EXPECT_EQ(other.Ask({"unprivileged", "create-mutex", name_}), "5 empty");
}

TEST_F(NamedMutexContract, AnyOtherFailureIsNeitherOfTheTwoCodes)
{
    const auto obstructed = contract::ObstructMutex(name_, lockFolder_.Path());
    const NamedMutex mutex = Create();
    EXPECT_FALSE(mutex);
    EXPECT_NE(error_, platform::kErrorNone);
    EXPECT_NE(error_, platform::kErrorAccessDenied);
    EXPECT_NE(error_, platform::kErrorAlreadyExists);
    EXPECT_NE(error_, 4711U);
}

TEST_F(NamedMutexContract, AStartedProcessDoesNotInheritIt)
{
    StartedChild owner;
    ASSERT_EQ(owner.Ask({"create-mutex", name_}), "0 handle");
    DetachedChild launched;
    ASSERT_EQ(owner.Ask({"launch", launched.Folder().string(), contract::ChildProgram().string()}),
              "launched");
    launched.AwaitStart();
    owner.Process().EndAtOnce();
    ASSERT_TRUE(contract::IsRunning(launched.Id()));
    EXPECT_TRUE(Create());
    EXPECT_EQ(error_, platform::kErrorNone);
}

TEST_F(NamedMutexContract, MovingHandsItOver)
{
    NamedMutex first = Create();
    NamedMutex second = std::move(first);
    EXPECT_TRUE(second);
    Create().Close();
    EXPECT_EQ(error_, platform::kErrorAlreadyExists);
    second = NamedMutex();
    EXPECT_FALSE(second);
    Create().Close();
    EXPECT_EQ(error_, platform::kErrorNone);
}

TEST_F(NamedMutexContract, EmptyOneDoesNothing)
{
    NamedMutex mutex;
    EXPECT_FALSE(mutex);
    mutex.Release();
    mutex.Close();
    EXPECT_FALSE(mutex);
}

TEST_F(NamedMutexContract, ClosingEmptiesItAndKeepsTheLastError)
{
    constexpr std::uint32_t kSomeError = 11;
    NamedMutex mutex = Create();
    ASSERT_TRUE(mutex);
    contract::SetLastError(kSomeError);
    mutex.Close();
    EXPECT_EQ(contract::LastError(), kSomeError);
    EXPECT_FALSE(mutex);
}

} // namespace
