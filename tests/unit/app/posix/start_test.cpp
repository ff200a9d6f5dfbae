#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

namespace {

// The program without its user interface, in a folder of its own.
class ProgramStart : public testing::Test
{
protected:
    /// The calls that the program notes, from start to end, a line each.
    std::string Run()
    {
        const QString program = File(QStringLiteral("start_probe"));
        EXPECT_TRUE(QFile::copy(QStringLiteral(START_PROBE), program));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        EXPECT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("temp")));
        for (const char *folder : {"TMPDIR", "XDG_RUNTIME_DIR", "HOME"}) {
            environment.insert(QLatin1String(folder), File(QStringLiteral("temp")));
        }
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(program, QStringList());
        EXPECT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
        return process.readAllStandardOutput().toStdString();
    }

    QString File(const QString &name) const
    {
        return folder_.filePath(name);
    }

private:
    QTemporaryDir folder_;
};

TEST_F(ProgramStart, StepsComeInTheirOrderAndNothingIsDestroyedBeforeTheExit)
{
    EXPECT_EQ(Run(),
              "high-DPI scaling\nhigh-DPI pixmaps\napplication\nfont\nbundle\ncontroller\nengine\n"
              "context property\nicon\ntranslator\nload\nloop\n"
              "mutex released\nhandle file removed\nquit\nexit(0)\n"
              "translator destroyed\nengine destroyed\ncontroller destroyed\n"
              "application destroyed\n");
}

TEST_F(ProgramStart, AHandleFileOfAnEarlierRunIsDeletedAlsoAfterAFailedLoad)
{
    QFile stale(File(QStringLiteral("hwndFile.ini")));
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.close();
    Run();
    EXPECT_FALSE(stale.exists());
}

} // namespace
