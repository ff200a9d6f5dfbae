#include "app/process_utils.h"
#include "platform/module_path.h"
#include "platform/text.h"
#include "tests/unit/platform/support/child.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

// The child ends when its standard input does.
struct EndChild
{
    void operator()(QProcess *process) const
    {
        process->closeWriteChannel();
        process->waitForFinished(60000);
        delete process;
    }
};
using Child = std::unique_ptr<QProcess, EndChild>;

// Real processes of chosen names in chosen folders.
class ProcessUtils : public testing::Test
{
protected:
    QString Folder(const QString &name)
    {
        const QString path = QFileInfo(root_.path()).canonicalFilePath() + QLatin1Char('/') + name;
        EXPECT_TRUE(QDir().mkpath(path));
        return path;
    }

    static Child Run(const QString &folder, const QString &name)
    {
        const QString program = folder + QLatin1Char('/') + name;
        QFile::remove(program);
        EXPECT_TRUE(QFile::copy(QStringLiteral(APP_CHILD), program));
        return Start(program);
    }

    static Child Start(const QString &program)
    {
        Child process(new QProcess);
        process->start(program, QStringList());
        EXPECT_TRUE(process->waitForReadyRead(60000)) << program.toStdString();
        return process;
    }

    static bool Runs(QProcess &process)
    {
        return !process.waitForFinished(0);
    }
    static bool Ended(QProcess &process)
    {
        return process.state() == QProcess::NotRunning || process.waitForFinished(60000);
    }
    static std::wstring Native(const QString &path)
    {
        return QDir::toNativeSeparators(path).toStdWString();
    }

    QTemporaryDir root_;
};

TEST(DirectoryOfPath, EndsBeforeTheLastSeparator)
{
    EXPECT_EQ(DirectoryOf(L"/a/b/c.exe"), L"/a/b");
    EXPECT_EQ(DirectoryOf(L"/c.exe"), L"");
    EXPECT_EQ(DirectoryOf(L"/a/b/"), L"/a/b");
    EXPECT_EQ(DirectoryOf(L"c.exe"), L"");
    EXPECT_EQ(DirectoryOf(L""), L"");
    const std::wstring native(1, platform::kNativeSeparatorWide);
    EXPECT_EQ(DirectoryOf(L"C:" + native + L"x/y" + native + L"c.exe"), L"C:" + native + L"x/y");
    EXPECT_EQ(DirectoryOf(L"C:" + native + L"x/c.exe"), L"C:" + native + L"x");
}

TEST(ModuleDirectory, IsTheExecutablesFolderWithoutATrailingSeparator)
{
    EXPECT_EQ(QDir::fromNativeSeparators(QString::fromStdWString(GetModuleDirW())),
              QCoreApplication::applicationDirPath());
}

TEST_F(ProcessUtils, EndsOnlyTheNamedImageInTheNamedDirectory)
{
    const QString inside = Folder(QStringLiteral("inside"));
    const QString outside = Folder(QStringLiteral("outside"));
    const QString below = Folder(QStringLiteral("inside/below"));
    const auto target = Run(inside, QStringLiteral("helper.exe"));
    const auto second = Run(inside, QStringLiteral("helper.exe.x"));
    const auto elsewhere = Run(outside, QStringLiteral("helper.exe"));
    const auto deeper = Run(below, QStringLiteral("helper.exe"));

    EXPECT_TRUE(KillProcessInDir(L"helper.exe", Native(inside)));
    EXPECT_TRUE(Ended(*target));
    EXPECT_TRUE(Runs(*second));
    EXPECT_TRUE(Runs(*elsewhere));
    EXPECT_TRUE(Runs(*deeper));
    EXPECT_FALSE(KillProcessInDir(L"helper.exe", Native(inside)));
}

TEST_F(ProcessUtils, EndsEveryMatchingProcess)
{
    const QString inside = Folder(QStringLiteral("inside"));
    const auto first = Run(inside, QStringLiteral("helper.exe"));
    const auto second = Start(inside + QStringLiteral("/helper.exe"));
    EXPECT_TRUE(KillProcessInDir(L"helper.exe", Native(inside)));
    EXPECT_TRUE(Ended(*first));
    EXPECT_TRUE(Ended(*second));
}

TEST_F(ProcessUtils, ComparesNameAndDirectoryWithoutCase)
{
    const QString inside = Folder(QStringLiteral("InSide"));
    const auto target = Run(inside, QStringLiteral("HELPER.exe"));
    EXPECT_TRUE(KillProcessInDir(L"helper.EXE", Native(inside.toUpper())));
    EXPECT_TRUE(Ended(*target));
}

TEST_F(ProcessUtils, ComparesTheDirectoryAsPlainText)
{
    const QString inside = Folder(QStringLiteral("inside"));
    const auto target = Run(inside, QStringLiteral("helper.exe"));
    EXPECT_FALSE(KillProcessInDir(L"helper.exe", Native(inside + QLatin1Char('/'))));
    EXPECT_FALSE(KillProcessInDir(L"helper.exe", Native(inside + QStringLiteral("/../inside"))));
    EXPECT_FALSE(KillProcessInDir(L"helper.exe", std::wstring()));
    EXPECT_TRUE(Runs(*target));
}

TEST_F(ProcessUtils, APathBeyondTheLimitIsPassedOver)
{
    const QString inside =
        Folder(QString(100, QLatin1Char('a')) + QLatin1Char('/') + QString(200, QLatin1Char('b')));
    const auto target = Run(inside, QStringLiteral("helper.exe"));
    EXPECT_FALSE(KillProcessInDir(L"helper.exe", Native(inside)));
    EXPECT_TRUE(Runs(*target));
}

TEST_F(ProcessUtils, TelemetryHelpersOfTheProgramDirectoryAreEndedAndOthersAreNot)
{
    const QString programDir = QCoreApplication::applicationDirPath();
    const auto inside = Run(programDir, QStringLiteral("SKYRELwrapexe.exe"));
    const auto outside = Run(Folder(QStringLiteral("other")), QStringLiteral("SkyrelWrapExe.exe"));
    KillTelemetryHelper();
    EXPECT_TRUE(Ended(*inside));
    EXPECT_TRUE(Runs(*outside));
    QFile::remove(programDir + QStringLiteral("/SKYRELwrapexe.exe"));
}

TEST(CleanupLaunch, IsHiddenAtIdlePriorityAndWithoutABoost)
{
    EXPECT_EQ(kCleanupLaunch.show, platform::ShowWindow::Hidden);
    EXPECT_EQ(kCleanupLaunch.priority, platform::PriorityClass::Idle);
    EXPECT_FALSE(kCleanupLaunch.priorityBoost);
}

TEST_F(ProcessUtils, TheCleanupCommandRunsHiddenAndIdleInTheTempDirectory)
{
    const contract::ScratchFolder folder;
    const std::string program = (folder / ("clear" + contract::ProgramExtension())).string();
    std::filesystem::copy_file(CONTRACT_CHILD, program);
    contract::DetachedChild child;
    {
        const contract::ScopedVariable mailbox(contract::kMailboxVariable, child.Folder().string());
        LaunchCleanupCommand(QString::fromLocal8Bit((program + " \"a b\"").c_str()));
    }
    child.AwaitStart();
    EXPECT_EQ(child.Ask({"arguments"}), program + "\na b\n");
    EXPECT_EQ(
        QFileInfo(QString::fromLocal8Bit(child.Ask({"directory"}).c_str())).canonicalFilePath(),
        QFileInfo(QDir::tempPath()).canonicalFilePath());
    // It may have started before its priority was lowered.
    EXPECT_TRUE(contract::WaitUntil([&child] { return child.Ask({"priority"}) == "idle"; }));
    EXPECT_TRUE(contract::IsHidden(child.Ask({"facts"})));
}

// Half a letter stands for all that a code page lacks.
TEST_F(ProcessUtils, ACleanupCommandThatTheCodePageCannotSayIsNotRun)
{
    const contract::ScratchFolder folder;
    const auto copy = [&folder](const std::string &name) {
        const std::string program =
            (folder / (contract::UniqueName(name) + contract::ProgramExtension())).string();
        std::filesystem::copy_file(CONTRACT_CHILD, program);
        return QString::fromLocal8Bit(program.c_str());
    };
    const QString unsaid = copy("unsaid");
    const QString said = copy("said");
    contract::DetachedChild child;
    {
        const contract::ScopedVariable mailbox(contract::kMailboxVariable, child.Folder().string());
        LaunchCleanupCommand(unsaid + QStringLiteral(" \"") + QChar(0xD800) + QLatin1Char('"'));
        LaunchCleanupCommand(said);
    }
    child.AwaitStart();
    EXPECT_EQ(contract::ImageNameOf(child.Id()), QFileInfo(said).fileName().toStdWString());
    EXPECT_FALSE(contract::IsImageRunning(QFileInfo(unsaid).fileName().toStdWString()));
}

TEST_F(ProcessUtils, ACommandThatCannotBeLaunchedHasNoEffect)
{
    testing::internal::CaptureStderr();
    LaunchCleanupCommand(QStringLiteral("/no/such/script \"x\""));
    LaunchCleanupCommand(QString());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
