#include "app/cleanup_script.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

void Write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

QByteArray Read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

class StagedScript : public testing::Test
{
protected:
    QTemporaryDir folder_;
    CleanupScript script_ = {folder_.filePath(QStringLiteral("clearKTR.bat")),
                             folder_.filePath(QStringLiteral("staged.bat"))};
};

TEST(CleanupScript, LiesBesideTheProgramAndGoesToTheTempDirectory)
{
    const CleanupScript script = LocateCleanupScript(QStringLiteral("C:/X/Y/bin"));
    EXPECT_EQ(script.source, QStringLiteral("C:/X/Y/bin/clearKTR.bat"));
    EXPECT_EQ(script.staged, QDir::tempPath() + QStringLiteral("/clearKTR.bat"));
}

TEST(CleanupScript, APathThatHoldsAMarkerStaysAsItIs)
{
    const CleanupScript script = LocateCleanupScript(QStringLiteral("/a/%1b/%2"));
    EXPECT_EQ(script.source, QStringLiteral("/a/%1b/%2/clearKTR.bat"));
    EXPECT_EQ(
        CleanupCommand({QString(), QStringLiteral("/tmp/%2/c.bat")}, QStringLiteral("/a/%1/bin")),
        QDir::toNativeSeparators(QStringLiteral("/tmp/%2/c.bat \"/a/%1\"")));
}

// The script's path stays unquoted, its argument is the parent without a trailing separator.
TEST(CleanupScript, CommandNamesTheStagedCopyAndTheParent)
{
    const CleanupScript script = {QStringLiteral("C:/X/Y/bin/clearKTR.bat"),
                                  QStringLiteral("C:/Users/A B/Temp/clearKTR.bat")};
    EXPECT_EQ(CleanupCommand(script, QStringLiteral("C:/X/Y/bin")),
              QDir::toNativeSeparators(QStringLiteral("C:/Users/A B/Temp/clearKTR.bat")) +
                  QStringLiteral(" \"") + QDir::toNativeSeparators(QStringLiteral("C:/X/Y")) +
                  QStringLiteral("\""));
}

TEST_F(StagedScript, IsCopiedWithItsPermissions)
{
    Write(script_.source, "new");
    QFile::setPermissions(script_.source, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    StageCleanupScript(script_);
    EXPECT_EQ(Read(script_.staged), QByteArray("new"));
    EXPECT_TRUE(QFileInfo(script_.staged).isExecutable());
    EXPECT_EQ(Read(script_.source), QByteArray("new"));
}

TEST_F(StagedScript, ReplacesAnOlderCopy)
{
    Write(script_.source, "new");
    Write(script_.staged, "an older and longer one");
    StageCleanupScript(script_);
    EXPECT_EQ(Read(script_.staged), QByteArray("new"));
}

TEST_F(StagedScript, ReplacesALinkThatLeadsNowhere)
{
    Write(script_.source, "new");
    ASSERT_TRUE(QFile::link(QStringLiteral("missing/file"), script_.staged));
    StageCleanupScript(script_);
    EXPECT_FALSE(QFileInfo(script_.staged).isSymLink());
    EXPECT_EQ(Read(script_.staged), QByteArray("new"));
}

TEST_F(StagedScript, AMissingScriptLeavesNoCopy)
{
    Write(script_.staged, "old");
    StageCleanupScript(script_);
    EXPECT_FALSE(QFile::exists(script_.staged));
}

} // namespace
