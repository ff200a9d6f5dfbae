#include "platform/module_path.h"

#include "platform/text.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t kLongPath = 4096;

TEST(ModulePathContract, IsTheFullPathOfTheProgram)
{
    const contract::ScratchFolder folder;
    const auto program = folder / ("Some Program" + contract::ProgramExtension());
    contract::CopyChildProgram(program);
    contract::StartedChild child(program);
    EXPECT_EQ(child.Ask({"path"}), program.string());
}

TEST(ModulePathContract, WorksBeforeMain)
{
    contract::StartedChild child;
    EXPECT_EQ(child.Ask({"path-before-main"}), contract::ChildProgram().string());
}

TEST(ModulePathContract, WideAndNarrowAgree)
{
    EXPECT_EQ(platform::ExecutablePath(kLongPath), contract::ExecutablePath().string());
    EXPECT_EQ(platform::ExecutablePathWide(kLongPath),
              contract::WideText(contract::ExecutablePath()));
}

TEST(ModulePathContract, NarrowIsCutToTheCapacity)
{
    const std::string path = platform::ExecutablePath(kLongPath);
    EXPECT_EQ(platform::ExecutablePath(path.size() + 1), path);
    EXPECT_EQ(platform::ExecutablePath(path.size()), path.substr(0, path.size() - 1));
    EXPECT_EQ(platform::ExecutablePath(2), path.substr(0, 1));
    EXPECT_EQ(platform::ExecutablePath(1), "");
    EXPECT_EQ(platform::ExecutablePath(0), "");
}

TEST(ModulePathContract, TheFolderIsExactAsLongAsItsSeparatorFits)
{
    const std::string path = platform::ExecutablePath(kLongPath);
    const std::size_t separator = path.rfind(platform::kNativeSeparator);
    EXPECT_TRUE(platform::IsExecutableFolderExact(kLongPath));
    EXPECT_TRUE(platform::IsExecutableFolderExact(path.size()));
    // The separator and the terminating zero
    EXPECT_TRUE(platform::IsExecutableFolderExact(separator + 2));
    EXPECT_FALSE(platform::IsExecutableFolderExact(separator + 1));
    EXPECT_FALSE(platform::IsExecutableFolderExact(2));
    EXPECT_FALSE(platform::IsExecutableFolderExact(1));
    EXPECT_FALSE(platform::IsExecutableFolderExact(0));
}

TEST(ModulePathContract, WideIsCutToTheCapacity)
{
    const std::wstring path = platform::ExecutablePathWide(kLongPath);
    EXPECT_EQ(platform::ExecutablePathWide(path.size() + 1), path);
    EXPECT_EQ(platform::ExecutablePathWide(path.size()), path.substr(0, path.size() - 1));
    EXPECT_EQ(platform::ExecutablePathWide(2), path.substr(0, 1));
    EXPECT_EQ(platform::ExecutablePathWide(1), L"");
    EXPECT_EQ(platform::ExecutablePathWide(0), L"");
}

} // namespace
