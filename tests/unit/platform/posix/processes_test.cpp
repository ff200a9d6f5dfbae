#include "platform/processes.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>

namespace {

using contract::StartedChild;
using platform::OpenedProcess;

constexpr std::size_t kLongPath = 4096;

TEST(PosixProcesses, ADeletedProgramKeepsItsName)
{
    const contract::ScratchFolder folder;
    const auto program = folder / "short lived";
    contract::CopyChildProgram(program);
    StartedChild child(program);
    std::filesystem::remove(program);
    EXPECT_EQ(contract::ImageNameOf(child.Process().Id()), L"short lived");
    EXPECT_EQ(OpenedProcess::Open(child.Process().Id()).ImagePath(kLongPath), program.wstring());
    EXPECT_EQ(child.Ask({"path"}), program.string());
}

TEST(PosixProcesses, AZombieIsNotListedAndCannotBeOpened)
{
    StartedChild child;
    const auto id = child.Process().Id();
    const OpenedProcess before = OpenedProcess::Open(id);
    ASSERT_TRUE(before);
    child.Ask({"exit", "0"});
    siginfo_t ended = {};
    ASSERT_EQ(::waitid(P_PID, id, &ended, WEXITED | WNOWAIT), 0);
    EXPECT_FALSE(contract::IsRunning(id));
    EXPECT_FALSE(OpenedProcess::Open(id));
    EXPECT_EQ(before.ImagePath(kLongPath), std::nullopt);
}

TEST(PosixProcesses, AProcessOfAnotherUserCannotBeOpened)
{
    EXPECT_EQ(StartedChild().Ask({"unprivileged", "open-process", "1"}), "empty");
}

TEST(PosixProcesses, KernelThreadsAreNotListed)
{
    for (const auto &process : contract::ListedProcesses()) {
        EXPECT_FALSE(process.imageName.empty()) << process.id;
    }
}

/// How many descriptors of this process lead to `folder`.
int OpenOn(const std::filesystem::path &folder)
{
    int count = 0;
    for (const auto &item : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        count += std::filesystem::read_symlink(item.path(), gone) == folder ? 1 : 0;
    }
    return count;
}

TEST(PosixProcesses, EachEntryIsVisitedWhileItAndTheSnapshotAreOpen)
{
    StartedChild child;
    const std::string folder = "/proc/" + std::to_string(child.Process().Id());
    std::set<int> snapshots;
    int openWhileVisited = 0;
    platform::VisitProcesses([&](const auto &) {
        snapshots.insert(OpenOn("/proc"));
        openWhileVisited += OpenOn(folder);
    });
    EXPECT_EQ(snapshots, std::set<int>{1});
    EXPECT_EQ(openWhileVisited, 1);
    EXPECT_EQ(OpenOn("/proc"), 0);
}

TEST(PosixProcesses, NamesWithInvalidBytesStayDistinct)
{
    const contract::ScratchFolder folder;
    contract::CopyChildProgram(folder / "broken\xff");
    contract::CopyChildProgram(folder / "broken\xfe");
    StartedChild first(folder / "broken\xff");
    StartedChild second(folder / "broken\xfe");
    EXPECT_EQ(contract::ImageNameOf(first.Process().Id()), L"broken\xDCFF");
    EXPECT_EQ(contract::ImageNameOf(second.Process().Id()), L"broken\xDCFE");
}

} // namespace
