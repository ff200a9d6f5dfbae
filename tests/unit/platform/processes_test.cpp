#include "platform/processes.h"
#include "tests/unit/platform/support/child.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using contract::StartedChild;
using platform::OpenedProcess;

constexpr std::size_t kLongPath = 4096;

TEST(ProcessesContract, SnapshotHasThisProcessOnceWithItsName)
{
    const auto processes = contract::ListedProcesses();
    EXPECT_EQ(std::count_if(
                  processes.begin(),
                  processes.end(),
                  [own = contract::OwnProcessId()](const auto &entry) { return entry.id == own; }),
              1);
    EXPECT_EQ(contract::ImageNameOf(contract::OwnProcessId()),
              contract::ExecutablePath().filename().wstring());
}

TEST(ProcessesContract, AStartedProcessIsListedAndCanBeOpenedUntilItEnds)
{
    platform::ProcessId id = 0;
    {
        StartedChild child;
        id = child.Process().Id();
        EXPECT_EQ(contract::ImageNameOf(id), contract::ChildProgram().filename().wstring());
        ASSERT_TRUE(OpenedProcess::Open(id));
        child.Process().EndAtOnce();
        EXPECT_TRUE(contract::WaitUntil([id] { return !contract::IsRunning(id); }));
    } // a Windows process can be opened as long as a handle on it is open
    EXPECT_TRUE(contract::WaitUntil([id] { return !OpenedProcess::Open(id); }));
}

TEST(ProcessesContract, NameAndPathOfALongNamedProgramAreComplete)
{
    const contract::ScratchFolder folder;
    const auto program = folder / ("contract_child_of_a_long_name" + contract::ProgramExtension());
    contract::CopyChildProgram(program);
    StartedChild child(program);
    EXPECT_EQ(contract::ImageNameOf(child.Process().Id()), program.filename().wstring());
    EXPECT_EQ(OpenedProcess::Open(child.Process().Id()).ImagePath(kLongPath), program.wstring());
}

TEST(ProcessesContract, OpenFindsNoImpossibleProcess)
{
    EXPECT_FALSE(OpenedProcess::Open(0));
    EXPECT_FALSE(OpenedProcess::Open(0xFFFFFFF0U));
}

TEST(ProcessesContract, ImagePathMustFitWithItsTerminatingNul)
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

TEST(ProcessesContract, TerminateEndsOneProcessAndPassesTheExitCodeOnWhereItCan)
{
    StartedChild other;
    for (const std::uint32_t code : {0U, 7U}) {
        StartedChild child;
        OpenedProcess first = OpenedProcess::Open(child.Process().Id());
        const OpenedProcess moved = std::move(first);
        ASSERT_TRUE(moved);
        EXPECT_TRUE(moved.ImagePath(kLongPath));
        moved.Terminate(code);
        EXPECT_EQ(child.Process().WaitForEnd(), contract::StatusOfTerminated(code));
    }
    EXPECT_EQ(other.Ask({"id"}), std::to_string(other.Process().Id()));
}

} // namespace
