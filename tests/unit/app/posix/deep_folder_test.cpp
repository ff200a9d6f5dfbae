#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QString AnswerFrom(const QString &folder)
{
    EXPECT_TRUE(QDir().mkpath(folder));
    const QString program = folder + QStringLiteral("/probe");
    EXPECT_TRUE(QFile::copy(QStringLiteral(DEEP_FOLDER_PROBE), program));
    QProcess probe;
    probe.start(program, QStringList());
    EXPECT_TRUE(probe.waitForFinished(60000));
    return QString::fromLocal8Bit(probe.readAllStandardOutput());
}

// Where a path that is cut after 259 characters ends, another folder's files lie.
TEST(DeepFolder, FilesOfTheFolderWhereThePathIsCutAreNotTheProgramsOwn)
{
    const QTemporaryDir temporary;
    const QString shallow = QFileInfo(temporary.path()).canonicalFilePath();
    ASSERT_LT(shallow.size(), 250);
    ASSERT_TRUE(QFile::copy(QStringLiteral(TELEMETRY_LIBRARY),
                            shallow + QStringLiteral("/SkyrelWrap.DLL")));

    EXPECT_EQ(AnswerFrom(shallow), shallow + QStringLiteral("/hwndFile.ini\nlibrary\n"));
    EXPECT_EQ(AnswerFrom(shallow + QLatin1Char('/') + QString(255, QLatin1Char('d'))),
              QStringLiteral("\nno library\n"));
}

} // namespace
