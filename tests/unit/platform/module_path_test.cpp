#include "platform/module_path.h"

#include "platform/text.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t kLongPath = 4096;

TEST(ModulePathContract, IsTheFullPathOfTheProgramAlsoBeforeMain)
{
    const contract::ScratchFolder folder;
    const auto program = folder / ("Some Program" + contract::ProgramExtension());
    contract::CopyChildProgram(program);
    contract::StartedChild child(program);
    EXPECT_EQ(child.Ask({"path"}), program.string());
    EXPECT_EQ(child.Ask({"path-before-main"}), program.string());
}

TEST(ModulePathContract, IsCutToTheCapacity)
{
    const std::string path = contract::ExecutablePath().string();
    const std::wstring wide = contract::WideText(contract::ExecutablePath());
    for (const std::size_t capacity : {kLongPath,
                                       path.size() + 1,
                                       path.size(),
                                       std::size_t{2},
                                       std::size_t{1},
                                       std::size_t{0}}) {
        const std::size_t length = capacity == 0 ? 0 : capacity - 1;
        EXPECT_EQ(platform::ExecutablePath(capacity), path.substr(0, length)) << capacity;
        EXPECT_EQ(platform::ExecutablePathWide(capacity), wide.substr(0, length)) << capacity;
    }
}

TEST(ModulePathContract, TheFolderIsExactAsLongAsItsSeparatorFits)
{
    const std::string path = platform::ExecutablePath(kLongPath);
    const std::size_t separator = path.rfind(platform::kNativeSeparator);
    // The separator and the terminating NUL
    for (const std::size_t capacity : {kLongPath, path.size(), separator + 2}) {
        EXPECT_TRUE(platform::IsExecutableFolderExact(capacity)) << capacity;
    }
    for (const std::size_t capacity : {separator + 1, std::size_t{2}, std::size_t{1}}) {
        EXPECT_FALSE(platform::IsExecutableFolderExact(capacity)) << capacity;
    }
    EXPECT_FALSE(platform::IsExecutableFolderExact(0));
}

} // namespace
