#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// A path is cut after 259 characters; the program's own name, with its separator, has six.
constexpr int kLongest = 259;
const QString kName = QStringLiteral("/probe");

using Answer = QMap<QString, QString>;

void Plant(const QString &file, const QString &folder, const QString &name)
{
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_TRUE(QFile::copy(file, folder + QLatin1Char('/') + name));
}

Answer AnswerFrom(const QString &folder)
{
    Plant(QStringLiteral(DEEP_FOLDER_PROBE), folder, kName.mid(1));
    QProcess probe;
    probe.start(folder + kName, QStringList());
    EXPECT_TRUE(probe.waitForFinished(60000));
    Answer answer;
    const QString output = QString::fromLocal8Bit(probe.readAllStandardOutput());
    for (const QString &line : output.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        answer.insert(line.section(QLatin1Char('='), 0, 0), line.section(QLatin1Char('='), 1));
    }
    return answer;
}

class DeepFolder : public testing::Test
{
protected:
    /// A folder below the shallow one whose path has so many characters, with a telemetry library.
    QString FolderOf(int length) const
    {
        QString folder = shallow_;
        while (folder.size() < length) {
            const int left = length - folder.size() - 1;
            // A part has at least one character and at most 255.
            const int part = left > 200 ? 100 : left;
            folder += QLatin1Char('/') + QString(part, QLatin1Char('d'));
        }
        Plant(QStringLiteral(TELEMETRY_LIBRARY), folder, QStringLiteral("SkyrelWrap.DLL"));
        return folder;
    }

    static void ExpectOwn(const Answer &answer, const QString &folder)
    {
        EXPECT_EQ(answer[QStringLiteral("handle file")], folder + QStringLiteral("/hwndFile.ini"));
        EXPECT_EQ(answer[QStringLiteral("folder")], folder);
        EXPECT_EQ(answer[QStringLiteral("working directory")], folder);
    }

    const QTemporaryDir temporary_;
    const QString shallow_ = QFileInfo(temporary_.path()).canonicalFilePath();
};

TEST_F(DeepFolder, APathThatFitsIsTheProgramsOwn)
{
    const QString folder = FolderOf(kLongest - kName.size());
    ExpectOwn(AnswerFrom(folder), folder);
}

TEST_F(DeepFolder, TheLibrarysPathHasToFitAsAWhole)
{
    const int length = kLongest - QStringLiteral("/SkyrelWrap.DLL").size();
    EXPECT_EQ(AnswerFrom(FolderOf(length))[QStringLiteral("library")], QStringLiteral("yes"));
    EXPECT_EQ(AnswerFrom(FolderOf(length + 1))[QStringLiteral("library")], QStringLiteral("no"));
}

TEST_F(DeepFolder, ANameThatIsCutLeavesTheFolder)
{
    const QString folder = FolderOf(kLongest - 4);
    // What stands beneath the cut name, "pro", is read like what stands beneath a whole one.
    ASSERT_TRUE(QDir().mkpath(folder + QStringLiteral("/pro")));
    QFile config(folder + QStringLiteral("/pro/config.ini"));
    ASSERT_TRUE(config.open(QIODevice::WriteOnly));
    config.write("[main]\nversionNo=21.5\n");
    config.close();

    const Answer answer = AnswerFrom(folder);
    ExpectOwn(answer, folder);
    EXPECT_EQ(answer[QStringLiteral("version")], QStringLiteral("21.5"));
}

TEST_F(DeepFolder, ASeparatorThatJustFitsLeavesTheFolder)
{
    const QString folder = FolderOf(kLongest - 1);
    ExpectOwn(AnswerFrom(folder), folder);
}

// Where a folder's path is cut, another folder's files lie: its parent's, here.
TEST_F(DeepFolder, FilesOfTheFolderWhereThePathIsCutAreNotTheProgramsOwn)
{
    const QString folder = FolderOf(kLongest);
    const QString parent = QFileInfo(folder).path();
    Plant(QStringLiteral(TELEMETRY_LIBRARY), parent, QStringLiteral("SkyrelWrap.DLL"));

    const Answer answer = AnswerFrom(folder);
    EXPECT_EQ(answer[QStringLiteral("handle file")], QString());
    EXPECT_EQ(answer[QStringLiteral("library")], QStringLiteral("no"));
    EXPECT_EQ(answer[QStringLiteral("folder")], parent);
    EXPECT_EQ(answer[QStringLiteral("working directory")], parent);
}

} // namespace
