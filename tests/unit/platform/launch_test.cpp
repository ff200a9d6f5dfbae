#include "platform/launch.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>

namespace {

using contract::DetachedChild;
using contract::StartedChild;
using platform::LaunchOptions;
using platform::PriorityClass;
using platform::ShowWindow;

const LaunchOptions kHiddenIdle = {ShowWindow::Hidden, PriorityClass::Idle, false};

class LaunchContract : public testing::Test
{
protected:
    /// Name of the program as a command line can name it without quotes.
    std::string program_ = contract::ChildProgram().string();
    std::filesystem::path directory_ = std::filesystem::current_path();
};

TEST_F(LaunchContract, ArgumentsAreSplitAtBlanksOutsideQuotes)
{
    DetachedChild child;
    child.Launch(program_ + " first  \"second with blanks\" \"\" fourth \"C:/fifth one\"",
                 directory_);
    EXPECT_EQ(child.Ask({"arguments"}),
              program_ + "\nfirst\nsecond with blanks\n\nfourth\nC:/fifth one\n");
}

TEST_F(LaunchContract, TrailingBlanksAreNoArgument)
{
    DetachedChild child;
    child.Launch(program_ + "  ", directory_);
    EXPECT_EQ(child.Ask({"arguments"}), program_ + '\n');
}

TEST_F(LaunchContract, PathWithBlanksNeedsNoQuotes)
{
    const contract::ScratchFolder folder;
    auto program = folder / ("a folder/the child" + contract::ProgramExtension());
    program.make_preferred();
    contract::CopyChildProgram(program);
    {
        DetachedChild child;
        child.Launch(program.string() + " \"an argument\"", directory_);
        EXPECT_EQ(child.Ask({"path"}), program.string());
    }
}

TEST_F(LaunchContract, RunsInTheGivenDirectory)
{
    const contract::ScratchFolder folder;
    {
        DetachedChild child;
        child.Launch(program_, folder.Path());
        EXPECT_TRUE(std::filesystem::equivalent(child.Ask({"directory"}), folder.Path()));
    }
    EXPECT_EQ(std::filesystem::current_path(), directory_);
}

TEST_F(LaunchContract, InheritsTheEnvironment)
{
    const contract::ScopedVariable variable("CONTRACT_VARIABLE", "some value");
    DetachedChild child;
    child.Launch(program_, directory_);
    EXPECT_EQ(child.Ask({"variable", "CONTRACT_VARIABLE"}), "some value");
    EXPECT_EQ(child.Ask({"variable", "CONTRACT_OTHER"}), "(unset)");
}

TEST_F(LaunchContract, RunsAtIdlePriority)
{
    DetachedChild child;
    child.Launch(program_, directory_, kHiddenIdle);
    // It may have started before its priority was lowered.
    EXPECT_TRUE(contract::WaitUntil([&child] { return child.Ask({"priority"}) == "idle"; }));
}

TEST_F(LaunchContract, InheritsThePriorityOtherwise)
{
    DetachedChild child;
    child.Launch(program_, directory_);
    EXPECT_EQ(child.Ask({"priority"}), contract::OwnPriority());
}

TEST_F(LaunchContract, InheritsNoHandle)
{
    const contract::ScratchFolder folder;
    auto file = contract::OpenExclusivelyInheritable(folder / "file");
    ASSERT_NE(file, nullptr);
    DetachedChild child;
    child.Launch(program_, directory_, kHiddenIdle);
    ASSERT_EQ(contract::OpenExclusivelyInheritable(folder / "file"), nullptr);
    file.reset();
    EXPECT_NE(contract::OpenExclusivelyInheritable(folder / "file"), nullptr);
    EXPECT_TRUE(contract::IsRunning(child.Id()));
}

TEST_F(LaunchContract, OutlivesTheProcessThatStartedIt)
{
    DetachedChild launched;
    {
        StartedChild starter;
        ASSERT_EQ(starter.Ask({"launch", launched.Folder().string(), program_}), "launched");
        launched.AwaitStart();
        ASSERT_EQ(starter.Ask({"exit", "5"}), "ending");
        EXPECT_EQ(starter.Process().WaitForEnd(), 5);
    }
    EXPECT_EQ(launched.Ask({"id"}), std::to_string(launched.Id()));
}

TEST_F(LaunchContract, NothingHappensWithoutTheProgram)
{
    const contract::ScratchFolder folder;
    const auto missing = folder / ("missing" + contract::ProgramExtension());
    platform::LaunchDetached(missing.string() + " argument", directory_.string(), kHiddenIdle);
    platform::LaunchDetached("", directory_.string(), kHiddenIdle);
    EXPECT_FALSE(contract::IsImageRunning(missing.filename().wstring()));
}

TEST_F(LaunchContract, NothingHappensWithoutTheWorkingDirectory)
{
    const contract::ScratchFolder folder;
    const auto program = folder / ("child_of_no_directory" + contract::ProgramExtension());
    contract::CopyChildProgram(program);
    const contract::ScopedVariable mailbox(contract::kMailboxVariable, folder.Path().string());
    platform::LaunchDetached(program.string(), (folder / "missing").string(), kHiddenIdle);
    // Another launch, afterwards, has come up: the first one has had its time.
    DetachedChild other;
    other.Launch(program_, directory_);
    EXPECT_FALSE(contract::IsImageRunning(program.filename().wstring()));
}

} // namespace
