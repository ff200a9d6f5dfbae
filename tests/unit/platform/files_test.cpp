#include "platform/files.h"
#include "tests/unit/platform/support/child.h"

#include <fstream>
#include <gtest/gtest.h>

namespace {

class FilesContract : public testing::Test
{
protected:
    contract::ScratchFolder folder_;
};

TEST_F(FilesContract, RemoveFileRemovesAFile)
{
    contract::WriteFile(folder_ / "file", "content");
    platform::RemoveFile((folder_ / "file").string());
    EXPECT_FALSE(std::filesystem::exists(folder_ / "file"));
}

TEST_F(FilesContract, RemoveFileIgnoresWhatIsMissing)
{
    contract::WriteFile(folder_ / "other", "content");
    platform::RemoveFile((folder_ / "missing").string());
    platform::RemoveFile("");
    EXPECT_TRUE(std::filesystem::exists(folder_ / "other"));
}

TEST_F(FilesContract, RemoveFileLeavesFoldersAlone)
{
    std::filesystem::create_directory(folder_ / "empty");
    platform::RemoveFile((folder_ / "empty").string());
    EXPECT_TRUE(std::filesystem::is_directory(folder_ / "empty"));
}

// What the window-handle file relies on: one start writes it, another reads it, at any moment.
TEST_F(FilesContract, StreamsShareAFileThatIsBeingRead)
{
    const auto file = folder_ / "shared";
    contract::WriteFile(file, "one");
    std::ifstream reader(file, std::ios::binary);
    ASSERT_TRUE(reader.is_open());
    contract::StartedChild other;
    EXPECT_EQ(other.Ask({"append-to-file", file.string(), " two"}), "written");
    EXPECT_EQ(contract::ReadFile(file), "one two");
}

TEST_F(FilesContract, StreamsShareAFileThatIsBeingWritten)
{
    const auto file = folder_ / "shared";
    std::ofstream writer(file, std::ios::binary | std::ios::trunc);
    writer << "one" << std::flush;
    contract::StartedChild other;
    EXPECT_EQ(other.Ask({"read-file", file.string()}), "one");
    EXPECT_EQ(other.Ask({"append-to-file", file.string(), " two"}), "written");
    EXPECT_EQ(contract::ReadFile(file), "one two");
}

TEST_F(FilesContract, RemoveFileSucceedsOnceAStreamHasClosedIt)
{
    const auto file = folder_ / "shared";
    {
        std::ofstream writer(file, std::ios::binary | std::ios::trunc);
        writer << "one";
    }
    platform::RemoveFile(file.string());
    EXPECT_FALSE(std::filesystem::exists(file));
}

} // namespace
