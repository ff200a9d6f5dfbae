#include "platform/launch.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>

namespace {

using contract::DetachedChild;
using contract::StartedChild;

const platform::LaunchOptions kHiddenIdle = {
    platform::ShowWindow::Hidden, platform::PriorityClass::Idle, false};

class LaunchContract : public testing::Test
{
protected:
    /// Path of the program as a command line can name it without quotes.
    std::string program_ = contract::ChildProgram().string();
    std::filesystem::path directory_ = std::filesystem::current_path();
    contract::ScratchFolder folder_;
};

TEST_F(LaunchContract, ArgumentsAreSplitAtSpacesOutsideQuotes)
{
    // Nothing else has a meaning: no shell reads the line.
    DetachedChild child(program_ + " first  \"second with spaces\" \"\" $HOME ; `id` 'a");
    EXPECT_EQ(child.Ask({"arguments"}),
              program_ + "\nfirst\nsecond with spaces\n\n$HOME\n;\n`id`\n'a\n");
    EXPECT_EQ(DetachedChild(program_ + "  ").Ask({"arguments"}), program_ + '\n');
}

TEST_F(LaunchContract, PathWithSpacesNeedsNoQuotes)
{
    auto program = folder_ / ("a folder/the child" + contract::ProgramExtension());
    program.make_preferred();
    contract::CopyChildProgram(program);
    EXPECT_EQ(DetachedChild(program.string() + " \"an argument\"").Ask({"path"}), program.string());
}

TEST_F(LaunchContract, RunsInTheGivenDirectoryWithTheEnvironmentOfItsParent)
{
    const contract::ScopedVariable variable("CONTRACT_VARIABLE", "some value");
    DetachedChild child(program_, folder_.Path());
    EXPECT_TRUE(std::filesystem::equivalent(child.Ask({"directory"}), folder_.Path()));
    EXPECT_EQ(std::filesystem::current_path(), directory_);
    EXPECT_EQ(child.Ask({"variable", "CONTRACT_VARIABLE"}), "some value");
    EXPECT_EQ(child.Ask({"variable", "CONTRACT_OTHER"}), "(unset)");
}

TEST_F(LaunchContract, RunsAtIdlePriorityOrInheritsIt)
{
    DetachedChild idle(program_, directory_, kHiddenIdle);
    // It may have started before its priority was lowered.
    EXPECT_TRUE(contract::WaitUntil([&idle] { return idle.Ask({"priority"}) == "idle"; }));
    EXPECT_EQ(DetachedChild(program_).Ask({"priority"}), contract::OwnPriority());
}

TEST_F(LaunchContract, InheritsNoHandle)
{
    auto file = contract::OpenExclusivelyInheritable(folder_ / "file");
    ASSERT_NE(file, nullptr);
    const DetachedChild child(program_, directory_, kHiddenIdle);
    ASSERT_EQ(contract::OpenExclusivelyInheritable(folder_ / "file"), nullptr);
    file.reset();
    EXPECT_NE(contract::OpenExclusivelyInheritable(folder_ / "file"), nullptr);
    EXPECT_TRUE(contract::IsRunning(child.Id()));
}

TEST_F(LaunchContract, OutlivesTheProcessThatStartedIt)
{
    StartedChild starter;
    DetachedChild launched([&](const std::string &mailbox) {
        EXPECT_EQ(starter.Ask({"launch", mailbox, program_}), "launched");
    });
    EXPECT_EQ(starter.Ask({"exit", "5"}), "ending");
    EXPECT_EQ(starter.Process().WaitForEnd(), 5);
    EXPECT_EQ(launched.Ask({"id"}), std::to_string(launched.Id()));
}

TEST_F(LaunchContract, NothingHappensWithoutTheProgramOrTheWorkingDirectory)
{
    const auto missing = folder_ / ("missing" + contract::ProgramExtension());
    const auto program = folder_ / ("child_of_no_directory" + contract::ProgramExtension());
    contract::CopyChildProgram(program);
    const contract::ScopedVariable mailbox(contract::kMailboxVariable, folder_.Path().string());
    platform::LaunchDetached(missing.string() + " argument", directory_.string(), kHiddenIdle);
    platform::LaunchDetached("", directory_.string(), kHiddenIdle);
    platform::LaunchDetached(program.string(), (folder_ / "nowhere").string(), kHiddenIdle);
    // A later launch has answered, so the earlier ones have had their time.
    const DetachedChild other(program_);
    EXPECT_FALSE(contract::IsImageRunning(missing.filename().wstring()));
    EXPECT_FALSE(contract::IsImageRunning(program.filename().wstring()));
}

} // namespace
