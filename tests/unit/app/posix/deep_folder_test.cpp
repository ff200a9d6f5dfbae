#include "tests/unit/platform/support/system.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Answer = QMap<QString, QString>;

void CopyInto(const QString &file, const QString &folder, const QString &name)
{
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_TRUE(QFile::copy(file, folder + '/' + name));
}

/// A folder below `folder` whose path has `length` characters.
QString Extended(QString folder, int length)
{
    while (folder.size() < length) {
        const int left = length - folder.size() - 1;
        folder += '/' + QString(left > 200 ? 100 : left, 'd'); // a part has 1 to 255 characters
    }
    return folder;
}

Answer AnswerOf(const QString &program)
{
    QProcess probe;
    probe.start(program, QStringList());
    EXPECT_TRUE(probe.waitForFinished(60000));
    Answer answer;
    for (const QString &line : QString::fromLocal8Bit(probe.readAllStandardOutput()).split('\n')) {
        answer.insert(line.section('=', 0, 0), line.section('=', 1));
    }
    return answer;
}

struct Row
{
    const char *name;
    int length;   ///< of the folder's path
    bool library; ///< whether it is loaded
    bool own;     ///< whether the program finds its own folder, not the parent
    const char *version;
};

// A path is cut after 259 characters; the names of probe and library, with a separator, have six
// and fifteen.
TEST(DeepFolder, ACutNameKeepsTheFolderAndACutFolderMeansItsParent)
{
    for (const Row &row : {Row{"all fits", 244, true, true, "18.0"},
                           Row{"the library's path is cut", 245, false, true, "18.0"},
                           Row{"the program's path just fits", 253, false, true, "18.0"},
                           // config.ini is read below the truncated path ".../pro".
                           Row{"the name is cut to three letters", 255, false, true, "21.5"},
                           Row{"the separator just fits", 258, false, true, "18.0"},
                           // The parent's files are not the program's own.
                           Row{"the separator is cut", 259, false, false, "18.0"}}) {
        SCOPED_TRACE(row.name);
        const QTemporaryDir temporary;
        const QString folder =
            Extended(QFileInfo(temporary.path()).canonicalFilePath(), row.length);
        const QString found = row.own ? folder : QFileInfo(folder).path();
        CopyInto(TELEMETRY_LIBRARY, found, "SkyrelWrap.DLL");
        CopyInto(DEEP_FOLDER_PROBE, folder, "probe");
        ASSERT_TRUE(QDir().mkpath(folder + "/pro"));
        contract::WriteFile((folder + "/pro/config.ini").toStdString(), "[main]\nversionNo=21.5\n");

        Answer answer = AnswerOf(folder + "/probe");
        EXPECT_EQ(answer["handle file"], row.own ? folder + "/hwndFile.ini" : "");
        EXPECT_EQ(answer["library"], row.library ? "yes" : "no");
        EXPECT_EQ(answer["folder"], found);
        EXPECT_EQ(answer["working directory"], found);
        EXPECT_EQ(answer["version"], row.version);
    }
}

} // namespace
