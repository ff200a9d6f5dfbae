#include "platform/processes.h"
#include "tests/unit/platform/support/child.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using contract::StartedChild;
using platform::OpenedProcess;

constexpr std::size_t kLongPath = 4096;

std::filesystem::path LongNamed(const contract::ScratchFolder &folder)
{
    return folder / ("contract_child_of_a_long_name" + contract::ProgramExtension());
}

TEST(ProcessesContract, SnapshotNamesThisProcess)
{
    EXPECT_EQ(contract::ImageNameOf(contract::OwnProcessId()),
              contract::ExecutablePath().filename().wstring());
}

TEST(ProcessesContract, SnapshotHasEveryProcessOnce)
{
    const auto processes = contract::ListedProcesses();
    const auto own = contract::OwnProcessId();
    EXPECT_EQ(std::count_if(processes.begin(),
                            processes.end(),
                            [own](const auto &process) { return process.id == own; }),
              1);
}

TEST(ProcessesContract, SnapshotHasAStartedProcessUntilItEnds)
{
    StartedChild child;
    const auto id = child.Process().Id();
    EXPECT_EQ(contract::ImageNameOf(id), contract::ChildProgram().filename().wstring());
    child.Process().EndAtOnce();
    EXPECT_TRUE(contract::WaitUntil([id] { return !contract::IsRunning(id); }));
}

TEST(ProcessesContract, ImageNameIsNeverShortened)
{
    const contract::ScratchFolder folder;
    contract::CopyChildProgram(LongNamed(folder));
    StartedChild child(LongNamed(folder));
    EXPECT_EQ(contract::ImageNameOf(child.Process().Id()), LongNamed(folder).filename().wstring());
}

TEST(ProcessesContract, OpenFindsNoProcessZero)
{
    EXPECT_FALSE(OpenedProcess::Open(0));
}

TEST(ProcessesContract, OpenFindsNoProcessThatHasEnded)
{
    platform::ProcessId id = 0;
    {
        StartedChild child;
        id = child.Process().Id();
        ASSERT_TRUE(OpenedProcess::Open(id));
    }
    EXPECT_TRUE(contract::WaitUntil([id] { return !OpenedProcess::Open(id); }));
}

TEST(ProcessesContract, OpenFindsNoProcessOfAnImpossibleIdentifier)
{
    EXPECT_FALSE(OpenedProcess::Open(0xFFFFFFF0U));
}

TEST(ProcessesContract, ImagePathIsTheFullPath)
{
    const contract::ScratchFolder folder;
    contract::CopyChildProgram(LongNamed(folder));
    StartedChild child(LongNamed(folder));
    const OpenedProcess process = OpenedProcess::Open(child.Process().Id());
    ASSERT_TRUE(process);
    EXPECT_EQ(process.ImagePath(kLongPath), LongNamed(folder).wstring());
}

TEST(ProcessesContract, ImagePathMustFitWithItsTerminatingZero)
{
    StartedChild child;
    const OpenedProcess process = OpenedProcess::Open(child.Process().Id());
    ASSERT_TRUE(process);
    const auto path = process.ImagePath(kLongPath);
    ASSERT_TRUE(path);
    EXPECT_EQ(process.ImagePath(path->size() + 1), path);
    EXPECT_EQ(process.ImagePath(path->size()), std::nullopt);
    EXPECT_EQ(process.ImagePath(1), std::nullopt);
}

TEST(ProcessesContract, TerminateEndsTheProcessAtOnce)
{
    constexpr std::uint32_t kCode = 0;
    StartedChild child;
    const OpenedProcess process = OpenedProcess::Open(child.Process().Id());
    ASSERT_TRUE(process);
    process.Terminate(kCode);
    EXPECT_EQ(child.Process().WaitForEnd(), contract::StatusOfTerminated(kCode));
}

TEST(ProcessesContract, TerminatePassesTheExitCodeOnWhereItCan)
{
    constexpr std::uint32_t kCode = 7;
    StartedChild child;
    OpenedProcess::Open(child.Process().Id()).Terminate(kCode);
    EXPECT_EQ(child.Process().WaitForEnd(), contract::StatusOfTerminated(kCode));
}

TEST(ProcessesContract, TerminateLeavesOthersAlone)
{
    StartedChild one;
    StartedChild other;
    OpenedProcess::Open(one.Process().Id()).Terminate(0);
    one.Process().WaitForEnd();
    EXPECT_EQ(other.Ask({"id"}), std::to_string(other.Process().Id()));
}

TEST(ProcessesContract, MovingHandsTheProcessOver)
{
    StartedChild child;
    OpenedProcess first = OpenedProcess::Open(child.Process().Id());
    const OpenedProcess second = std::move(first);
    EXPECT_TRUE(second);
    EXPECT_TRUE(second.ImagePath(kLongPath));
}

} // namespace
