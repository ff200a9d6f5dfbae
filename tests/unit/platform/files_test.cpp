#include "platform/files.h"
#include "tests/unit/platform/support/child.h"

#include <fstream>
#include <gtest/gtest.h>

namespace {

class FilesContract : public testing::Test
{
protected:
    contract::ScratchFolder folder_;
    std::filesystem::path file_ = folder_ / "shared";
};

TEST_F(FilesContract, RemoveFileRemovesAFileAndNothingElse)
{
    std::filesystem::create_directory(folder_ / "empty");
    contract::WriteFile(folder_ / "other", "content");
    contract::WriteFile(file_, "content");
    for (const auto &path : {file_, folder_ / "missing", folder_ / "empty"}) {
        platform::RemoveFile(path.string());
    }
    platform::RemoveFile("");
    EXPECT_FALSE(std::filesystem::exists(file_));
    EXPECT_TRUE(std::filesystem::is_directory(folder_ / "empty"));
    EXPECT_TRUE(std::filesystem::exists(folder_ / "other"));
}

// What the window-handle file relies on: one start writes it, another reads it, at any moment.
TEST_F(FilesContract, StreamsShareAFileThatIsBeingRead)
{
    contract::WriteFile(file_, "one");
    std::ifstream reader(file_, std::ios::binary);
    ASSERT_TRUE(reader.is_open());
    contract::StartedChild other;
    EXPECT_EQ(other.Ask({"append-to-file", file_.string(), " two"}), "written");
    EXPECT_EQ(contract::ReadFile(file_), "one two");
}

TEST_F(FilesContract, StreamsShareAFileThatIsBeingWrittenAndThatCanBeRemovedOnceItIsClosed)
{
    std::ofstream writer(file_, std::ios::binary | std::ios::trunc);
    writer << "one" << std::flush;
    contract::StartedChild other;
    EXPECT_EQ(other.Ask({"read-file", file_.string()}), "one");
    EXPECT_EQ(other.Ask({"append-to-file", file_.string(), " two"}), "written");
    EXPECT_EQ(contract::ReadFile(file_), "one two");
    writer.close();
    platform::RemoveFile(file_.string());
    EXPECT_FALSE(std::filesystem::exists(file_));
}

} // namespace
