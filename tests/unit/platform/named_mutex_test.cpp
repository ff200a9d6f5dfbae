#include "tests/unit/platform/support/child.h"
#include "tests/unit/platform/support/mutex_test.h"

#include <set>
#include <utility>

namespace {

using contract::StartedChild;
using platform::NamedMutex;

using NamedMutexContract = contract::MutexTest;

TEST_F(NamedMutexContract, ExistsWhileAHandleIsOpenReleasedOrNot)
{
    StartedChild owner;
    ASSERT_EQ(owner.Ask({"create-mutex", name_}), "0 handle");
    ExpectExisting();
    ASSERT_EQ(owner.Ask({"release-mutex"}), "released");
    ExpectExisting();
    ASSERT_EQ(owner.Ask({"close-mutex"}), "closed");
    ExpectFree();
}

TEST_F(NamedMutexContract, IsFreeAgainWhenItsOwnerIsEnded)
{
    StartedChild owner;
    ASSERT_EQ(owner.Ask({"create-mutex", name_}), "0 handle");
    owner.Process().EndAtOnce();
    ExpectFree();
}

TEST_F(NamedMutexContract, ASecondOneInTheSameProcessAlreadyExistsUntilTheFirstIsDestroyed)
{
    StartedChild other;
    {
        const NamedMutex first = Create();
        ExpectExisting();
        EXPECT_EQ(other.Ask({"create-mutex", name_}), "183 handle");
        EXPECT_EQ(other.Ask({"create-mutex", name_ + "_other"}), "0 handle");
    }
    EXPECT_EQ(other.Ask({"create-mutex", name_}), "0 handle");
}

TEST_F(NamedMutexContract, OfTenProcessesExactlyOneBecomesOwner)
{
    std::vector<StartedChild> children(10);
    const std::filesystem::path gate = lockFolder_ / "gate";
    for (StartedChild &child : children) {
        child.Send({"race-for-mutex", name_, gate.string()});
    }
    contract::WriteFile(gate, "open");
    std::multiset<std::string> answers;
    for (const StartedChild &child : children) {
        answers.insert(child.AwaitAnswer());
    }
    EXPECT_EQ(answers.count("0 handle"), 1U);
    EXPECT_EQ(answers.count("183 handle"), 9U);
}

TEST_F(NamedMutexContract, OneThatMayNotBeOpenedIsAccessDenied)
{
    const auto forbidden = contract::ForbidMutex(name_, lockFolder_.Path());
    EXPECT_EQ(StartedChild().Ask({"unprivileged", "create-mutex", name_}), "5 empty");
}

TEST_F(NamedMutexContract, AnyOtherFailureIsNeitherOfTheTwoCodes)
{
    const auto obstructed = contract::ObstructMutex(name_, lockFolder_.Path());
    ExpectAnotherFailure();
}

TEST_F(NamedMutexContract, AStartedProcessDoesNotInheritIt)
{
    StartedChild owner;
    ASSERT_EQ(owner.Ask({"create-mutex", name_}), "0 handle");
    const contract::DetachedChild launched([&](const std::string &mailbox) {
        EXPECT_EQ(owner.Ask({"launch", mailbox, contract::ChildProgram().string()}), "launched");
    });
    owner.Process().EndAtOnce();
    ASSERT_TRUE(contract::IsRunning(launched.Id()));
    ExpectFree();
}

TEST_F(NamedMutexContract, MovingHandsItOver)
{
    NamedMutex first = Create();
    NamedMutex second = std::move(first);
    EXPECT_TRUE(second);
    ExpectExisting();
    second = NamedMutex();
    EXPECT_FALSE(second);
    ExpectFree();
}

TEST_F(NamedMutexContract, ClosingEmptiesItAndKeepsTheLastErrorAndAnEmptyOneDoesNothing)
{
    constexpr std::uint32_t kSomeError = 11;
    NamedMutex mutex = Create();
    ASSERT_TRUE(mutex);
    contract::SetLastError(kSomeError);
    mutex.Close();
    EXPECT_EQ(contract::LastError(), kSomeError);
    EXPECT_FALSE(mutex);
    mutex.Release();
    mutex.Close();
    EXPECT_FALSE(mutex);
}

} // namespace
