#include "tests/unit/platform/support/system.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// The program without its user interface, in a folder of its own with a handle file of an earlier
// run. Wrappers print its calls, a line each.
TEST(ProgramStart, StepsComeInTheirOrderAndNothingIsDestroyedBeforeTheExit)
{
    const QTemporaryDir folder;
    const QString program = folder.filePath("start_probe");
    ASSERT_TRUE(QFile::copy(START_PROBE, program));
    contract::WriteFile(folder.filePath("hwndFile.ini").toStdString(), "12345678");
    ASSERT_TRUE(QDir(folder.path()).mkdir("temp"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    for (const char *name : {"TMPDIR", "XDG_RUNTIME_DIR", "HOME"}) {
        environment.insert(name, folder.filePath("temp"));
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, QStringList());
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(process.readAllStandardOutput().toStdString(),
              "high-DPI scaling\nhigh-DPI pixmaps\napplication\nfont\nbundle\ncontroller\nengine\n"
              "context property\nicon\ntranslator\nload\nloop\n"
              "mutex released\nhandle file removed\nquit\nexit(0)\n"
              "translator destroyed\nengine destroyed\ncontroller destroyed\n"
              "application destroyed\n");
    EXPECT_FALSE(QFile::exists(folder.filePath("hwndFile.ini"))) << "deleted after a failed load";
}

} // namespace
