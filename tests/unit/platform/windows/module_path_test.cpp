#include "platform/module_path.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>

namespace {

/// What a program in a folder of this name (UTF-8) says of the folder in its own path.
std::string IsExactIn(const char *folder)
{
    const contract::ScratchFolder scratch;
    const auto program =
        scratch / std::filesystem::u8path(folder) / ("program" + contract::ProgramExtension());
    contract::CopyChildProgram(program);
    contract::StartedChild child(program);
    return child.Ask({"folder-is-exact"});
}

// For a letter that the code page lacks, the system puts a similar one or a question mark.
TEST(ModulePathOnWindows, TheFolderIsExactWhenTheCodePageHasEveryLetter)
{
    EXPECT_EQ(IsExactIn("plain"), "yes");
    EXPECT_EQ(IsExactIn("\u00dcml\u00e4ute \u00e9"), "yes");
    EXPECT_EQ(IsExactIn("\u0141\u00f3d\u017a"), "no");
    EXPECT_EQ(IsExactIn("\u4e2d\u6587"), "no");
}

} // namespace
