#include "platform/posix/command_line.h"
#include "tests/unit/platform/support/system.h"

#include <gtest/gtest.h>

namespace {

using platform::CommandLine;
using platform::SplitCommandLine;

struct Row
{
    const char *line;  ///< behind the path of a folder
    CommandLine parts; ///< the first one without that path
};

TEST(CommandLineSplit, TakesTheLongestPathOfAFileAndSplitsTheRestAtSpacesOutsideQuotes)
{
    const contract::ScratchFolder folder;
    for (const char *file : {"program", "run", "run me now"}) {
        contract::WriteFile(folder / file, "");
    }
    std::filesystem::create_directory(folder / "folder");
    for (const Row &row : {
             Row{"program", {"program"}},
             {"run me now x", {"run me now", "x"}},
             {"run me x", {"run", "me", "x"}},
             {"run me nowhere", {"run", "me", "nowhere"}},
             {"folder x", {}},
             {"programx y", {}},
             {"program\"x y\"", {}},
             {"missing", {}},
             {"program \"a b\" c\"d e\"f \"\"", {"program", "a b", "cd ef", ""}},
             {"program \"never closed", {"program", "never closed"}},
             {"program $HOME * ; `id` 'a b' \\x %1", // nothing else has a meaning
              {"program", "$HOME", "*", ";", "`id`", "'a", "b'", "\\x", "%1"}},
         }) {
        CommandLine expected = row.parts;
        if (!expected.empty()) {
            expected.front() = (folder / expected.front()).string();
        }
        EXPECT_EQ(SplitCommandLine((folder / row.line).string()), expected);
    }
    for (const char *nothing : {"", "   ", "\""}) {
        EXPECT_EQ(SplitCommandLine(nothing), CommandLine()) << nothing;
    }
}

} // namespace
