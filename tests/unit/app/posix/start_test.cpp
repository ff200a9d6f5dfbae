#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// The program without its user interface, in a folder of its own.
class ProgramStart : public testing::Test
{
protected:
    /// The calls that the program notes, from start to end.
    QStringList Run()
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
        return QString::fromLatin1(process.readAllStandardOutput())
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
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
    const QStringList expected = {QStringLiteral("high-DPI scaling"),
                                  QStringLiteral("high-DPI pixmaps"),
                                  QStringLiteral("application"),
                                  QStringLiteral("font"),
                                  QStringLiteral("bundle"),
                                  QStringLiteral("controller"),
                                  QStringLiteral("engine"),
                                  QStringLiteral("context property"),
                                  QStringLiteral("icon"),
                                  QStringLiteral("translator"),
                                  QStringLiteral("load"),
                                  QStringLiteral("loop"),
                                  QStringLiteral("mutex released"),
                                  QStringLiteral("handle file removed"),
                                  QStringLiteral("quit"),
                                  QStringLiteral("exit(0)"),
                                  QStringLiteral("translator destroyed"),
                                  QStringLiteral("engine destroyed"),
                                  QStringLiteral("controller destroyed"),
                                  QStringLiteral("application destroyed")};
    EXPECT_EQ(Run().join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')));
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
