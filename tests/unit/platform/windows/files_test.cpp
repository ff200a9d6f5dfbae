#include "platform/files.h"
#include "tests/unit/platform/support/scratch_folder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace {

TEST(WindowsFiles, AFileThatAStreamHoldsOpenStaysUntilItIsClosed)
{
    const contract::ScratchFolder folder;
    const auto file = folder / "shared";
    contract::WriteFile(file, "content");
    {
        const std::ifstream reader(file, std::ios::binary);
        ASSERT_TRUE(reader.is_open());
        platform::RemoveFile(file.string());
        EXPECT_TRUE(std::filesystem::exists(file));
    }
    platform::RemoveFile(file.string());
    EXPECT_FALSE(std::filesystem::exists(file));
}

} // namespace
