#include "app/process_utils.h"
#include "platform/module_path.h"
#include "platform/text.h"
#include "tests/unit/platform/support/child.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

using contract::StartedChild;

// Real processes of chosen names in chosen folders.
class ProcessUtils : public testing::Test
{
protected:
    /// A path below the folder of the test.
    std::filesystem::path Path(const char *relative) const
    {
        return (folder_ / relative).make_preferred();
    }

    static StartedChild Run(const std::filesystem::path &program)
    {
        std::filesystem::create_directories(program.parent_path());
        std::filesystem::copy_file(CONTRACT_CHILD, program);
        return StartedChild(program);
    }

    static bool Runs(StartedChild &child)
    {
        return contract::IsRunning(child.Process().Id());
    }
    static bool Terminated(StartedChild &child)
    {
        return child.Process().WaitForEnd() == contract::StatusOfTerminated(0);
    }

    /// Copies the helper program under a name of its own, for use in a command line.
    QString CommandProgram(const std::string &name) const
    {
        const auto program = Path((name + contract::ProgramExtension()).c_str());
        std::filesystem::copy_file(CONTRACT_CHILD, program);
        return QString::fromLocal8Bit(program.string().c_str());
    }

    contract::ScratchFolder folder_;
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

TEST_F(ProcessUtils, EveryProcessOfTheNamedImageInTheNamedDirectoryIsEndedAndNoOther)
{
    StartedChild first = Run(Path("inside/helper.exe"));
    StartedChild second(Path("inside/helper.exe"));
    StartedChild otherName = Run(Path("inside/helper.exe.x"));
    StartedChild elsewhere = Run(Path("outside/helper.exe"));
    StartedChild deeper = Run(Path("inside/below/helper.exe"));

    EXPECT_TRUE(KillProcessInDir(L"helper.exe", Path("inside").wstring()));
    EXPECT_TRUE(Terminated(first));
    EXPECT_TRUE(Terminated(second));
    for (StartedChild *other : {&otherName, &elsewhere, &deeper}) {
        EXPECT_TRUE(Runs(*other));
    }
    EXPECT_FALSE(KillProcessInDir(L"helper.exe", Path("inside").wstring()));
}

TEST_F(ProcessUtils, NameAndDirectoryAreComparedAsPlainTextWithoutCase)
{
    StartedChild target = Run(Path("InSide/HELPER.exe"));
    const std::wstring inside = Path("InSide").wstring();
    const std::wstring separator(1, platform::kNativeSeparatorWide);
    for (const std::wstring &other :
         {inside + separator, inside + separator + L".." + separator + L"InSide", std::wstring()}) {
        EXPECT_FALSE(KillProcessInDir(L"helper.exe", other));
    }
    EXPECT_TRUE(Runs(target));
    const std::wstring upper = QString::fromStdWString(inside).toUpper().toStdWString();
    EXPECT_TRUE(KillProcessInDir(L"helper.EXE", upper));
    EXPECT_TRUE(Terminated(target));
}

TEST_F(ProcessUtils, TelemetryHelpersOfTheProgramDirectoryAreEndedAndOthersAreNot)
{
    const auto program = contract::ExecutablePath().parent_path() / "SKYRELwrapexe.exe";
    std::filesystem::remove(program);
    StartedChild inside = Run(program);
    StartedChild outside = Run(Path("other/SkyrelWrapExe.exe"));
    KillTelemetryHelper();
    EXPECT_TRUE(Terminated(inside));
    EXPECT_TRUE(Runs(outside));
    contract::WaitUntil([&program] {
        std::error_code error;
        return std::filesystem::remove(program, error);
    });
}

TEST(CleanupLaunch, IsHiddenAtIdlePriorityAndWithoutABoost)
{
    EXPECT_EQ(kCleanupLaunch.show, platform::ShowWindow::Hidden);
    EXPECT_EQ(kCleanupLaunch.priority, platform::PriorityClass::Idle);
    EXPECT_FALSE(kCleanupLaunch.priorityBoost);
}

TEST_F(ProcessUtils, TheCleanupCommandRunsHiddenAndIdleInTheTempDirectory)
{
    const QString program = CommandProgram("clear");
    contract::DetachedChild child(
        [&](const std::string &) { LaunchCleanupCommand(program + " \"a b\""); });
    EXPECT_EQ(child.Ask({"arguments"}), (program + "\na b\n").toLocal8Bit().toStdString());
    EXPECT_EQ(
        QFileInfo(QString::fromLocal8Bit(child.Ask({"directory"}).c_str())).canonicalFilePath(),
        QFileInfo(QDir::tempPath()).canonicalFilePath());
    // It may have started before its priority was lowered.
    EXPECT_TRUE(contract::WaitUntil([&child] { return child.Ask({"priority"}) == "idle"; }));
    EXPECT_TRUE(contract::IsHidden(child.Ask({"facts"})));
}

// An unpaired surrogate stands for any character that the code page lacks.
TEST_F(ProcessUtils, ACleanupCommandWithCharactersBeyondTheCodePageIsNotRun)
{
    const QString unconvertible = CommandProgram(contract::UniqueName("unconvertible"));
    const QString convertible = CommandProgram("convertible");
    const contract::DetachedChild child([&](const std::string &) {
        LaunchCleanupCommand(unconvertible + " \"" + QChar(0xD800) + '"');
        LaunchCleanupCommand(convertible);
    });
    EXPECT_EQ(contract::ImageNameOf(child.Id()), QFileInfo(convertible).fileName().toStdWString());
    EXPECT_FALSE(contract::IsImageRunning(QFileInfo(unconvertible).fileName().toStdWString()));
}

TEST_F(ProcessUtils, ACommandThatCannotBeLaunchedHasNoEffect)
{
    testing::internal::CaptureStderr();
    LaunchCleanupCommand("/no/such/script \"x\"");
    LaunchCleanupCommand(QString());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
