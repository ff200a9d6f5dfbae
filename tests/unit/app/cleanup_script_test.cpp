#include "app/cleanup_script.h"
#include "tests/unit/platform/support/system.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

class StagedScript : public testing::Test
{
protected:
    /// What the staged copy holds after staging; empty when there is none.
    std::string Stage()
    {
        StageCleanupScript(
            {QString::fromStdString(source_.string()), QString::fromStdString(staged_.string())});
        return contract::ReadFile(staged_);
    }

    contract::ScratchFolder folder_;
    std::filesystem::path source_ = folder_ / "clearKTR.bat";
    std::filesystem::path staged_ = folder_ / "staged.bat";
};

TEST(CleanupScript, LiesBesideTheProgramAndGoesToTheTempDirectory)
{
    for (const char *programDir : {"C:/X/Y/bin", "/a/%1b/%2"}) {
        const CleanupScript script = LocateCleanupScript(programDir);
        EXPECT_EQ(script.source, QString(programDir) + "/clearKTR.bat");
        EXPECT_EQ(script.staged, QDir::tempPath() + "/clearKTR.bat");
    }
}

// The script's path stays unquoted, its argument is the parent without a trailing separator.
TEST(CleanupScript, CommandNamesTheStagedCopyAndTheParent)
{
    EXPECT_EQ(CleanupCommand({"", "C:/Users/A B/Temp/clearKTR.bat"}, "C:/X/Y/bin"),
              QDir::toNativeSeparators("C:/Users/A B/Temp/clearKTR.bat \"C:/X/Y\""));
    EXPECT_EQ(CleanupCommand({"", "/tmp/%2/c.bat"}, "/a/%1/bin"),
              QDir::toNativeSeparators("/tmp/%2/c.bat \"/a/%1\""));
}

TEST_F(StagedScript, IsCopiedWithItsPermissionsAndReplacesALongerCopy)
{
    contract::WriteFile(source_, "new");
    contract::WriteFile(staged_, "an older and longer one");
    std::filesystem::permissions(source_, std::filesystem::perms::owner_all);
    EXPECT_EQ(Stage(), "new");
    EXPECT_TRUE(QFileInfo(QString::fromStdString(staged_.string())).isExecutable());
    EXPECT_EQ(contract::ReadFile(source_), "new");
}

TEST_F(StagedScript, ReplacesALinkThatLeadsNowhere)
{
    contract::WriteFile(source_, "new");
    if (!contract::CreateLink(staged_, "missing/file")) {
        GTEST_SKIP() << "No link: Wine creates none, and Windows only for users with that right.";
    }
    EXPECT_EQ(Stage(), "new");
    EXPECT_FALSE(QFileInfo(QString::fromStdString(staged_.string())).isSymLink());
}

TEST_F(StagedScript, AMissingScriptLeavesNoCopy)
{
    contract::WriteFile(staged_, "old");
    Stage();
    EXPECT_FALSE(std::filesystem::exists(staged_));
}

} // namespace
