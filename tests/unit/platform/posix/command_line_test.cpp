#include "platform/posix/command_line.h"
#include "tests/unit/platform/support/scratch_folder.h"

#include <gtest/gtest.h>

namespace {

using platform::CommandLine;
using platform::SplitCommandLine;

class CommandLineSplit : public testing::Test
{
protected:
    /// Path of a new file.
    std::string File(const std::string &name)
    {
        contract::WriteFile(folder_ / name, "");
        return (folder_ / name).string();
    }

    contract::ScratchFolder folder_;
};

TEST_F(CommandLineSplit, ProgramAlone)
{
    const std::string program = File("program");
    EXPECT_EQ(SplitCommandLine(program), CommandLine{program});
}

TEST_F(CommandLineSplit, LongestLeadingPartThatIsAFileIsTheProgram)
{
    const std::string shorter = File("run");
    const std::string longer = File("run me now");
    EXPECT_EQ(SplitCommandLine(longer + " x"), (CommandLine{longer, "x"}));
    EXPECT_EQ(SplitCommandLine(shorter + " me x"), (CommandLine{shorter, "me", "x"}));
    EXPECT_EQ(SplitCommandLine(shorter + " me nowhere"), (CommandLine{shorter, "me", "nowhere"}));
}

TEST_F(CommandLineSplit, AFolderIsNoProgram)
{
    std::filesystem::create_directory(folder_ / "folder");
    EXPECT_TRUE(SplitCommandLine((folder_ / "folder").string() + " x").empty());
}

TEST_F(CommandLineSplit, TheProgramEndsAtASpace)
{
    const std::string program = File("program");
    EXPECT_TRUE(SplitCommandLine(program + "x y").empty());
    EXPECT_TRUE(SplitCommandLine(program + "\"x y\"").empty());
}

TEST_F(CommandLineSplit, QuotesJoinAndGo)
{
    const std::string program = File("program");
    EXPECT_EQ(SplitCommandLine(program + " \"a b\" c\"d e\"f \"\""),
              (CommandLine{program, "a b", "cd ef", ""}));
    EXPECT_EQ(SplitCommandLine(program + " \"never closed"),
              (CommandLine{program, "never closed"}));
}

TEST_F(CommandLineSplit, NothingElseHasAMeaning)
{
    const std::string program = File("program");
    EXPECT_EQ(SplitCommandLine(program + " $HOME * ; `id` 'a b' \\x %1"),
              (CommandLine{program, "$HOME", "*", ";", "`id`", "'a", "b'", "\\x", "%1"}));
}

TEST_F(CommandLineSplit, NothingIsNothing)
{
    EXPECT_TRUE(SplitCommandLine("").empty());
    EXPECT_TRUE(SplitCommandLine("   ").empty());
    EXPECT_TRUE(SplitCommandLine("\"").empty());
    EXPECT_TRUE(SplitCommandLine((folder_ / "missing").string()).empty());
}

} // namespace
