#include "controller/uninstall_environment.h"

#include "platform/window.h"
#include "tests/unit/config/log_watch.h"
#include "tests/unit/controller/fake_task_list.h"
#include "tests/unit/platform/support/child.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QSysInfo>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

// Tests the real environment, not the fake one.
class SystemEnvironment : public testing::Test
{
protected:
    const UninstallEnvironment system_ = UninstallEnvironment::System();
};

TEST_F(SystemEnvironment, AsksTheTaskListOfTheSearchPath)
{
    // Windows looks beside the program before it looks anywhere else.
    const FakeTaskList fake(contract::ExecutablePath().parent_path(), "tasklist");
    fake.Tell("root=nowhere\nshow=uninstall.exe\n");
    const QByteArray path = qgetenv("PATH");
    const QString first = QCoreApplication::applicationDirPath() + QDir::listSeparator();
    qputenv("PATH", first.toLocal8Bit() + path);
    EXPECT_TRUE(system_.isProcessRunning("uninstall.exe"));
    EXPECT_FALSE(system_.isProcessRunning("KTRUI.exe"));
    qputenv("PATH", path);
}

TEST_F(SystemEnvironment, StartsAProgramWithItsArgumentsAsTheyAre)
{
    const contract::ScratchFolder folder;
    const auto program = folder / ("a program" + contract::ProgramExtension());
    std::filesystem::copy_file(CONTRACT_CHILD, program);
    const QStringList arguments = {"/SP-",
                                   "/VERYSILENT",
                                   "a b\"c",
                                   "",
                                   R"(\)",
                                   R"(in \"quotes\\)",
                                   R"(with space \)",
                                   "$HOME %PATH%"};
    contract::DetachedChild child([&](const std::string &) {
        system_.startDetached(QString::fromStdString(program.u8string()), arguments);
    });
    const std::string seen = child.Ask({"arguments"}); // the program's name comes first
    EXPECT_EQ(seen.substr(seen.find('\n') + 1), (arguments.join('\n') + '\n').toStdString());
}

TEST_F(SystemEnvironment, AMissingProgramHasNoEffect)
{
    const contract::ScratchFolder folder;
    const LogWatch log;
    testing::internal::CaptureStderr();
    system_.startDetached(QString::fromStdString((folder / "none").u8string()), {});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(LogWatch::NewLines(), QStringList());
}

TEST_F(SystemEnvironment, SleepsWithoutLettingEventsThroughAndLetsThemThroughAfterwards)
{
    bool arrived = false;
    QTimer::singleShot(0, [&arrived] { arrived = true; });
    QElapsedTimer elapsed;
    elapsed.start();
    system_.sleep(60);
    EXPECT_GE(elapsed.elapsed(), 40); // Windows counts in steps
    EXPECT_FALSE(arrived);
    system_.processEvents();
    EXPECT_TRUE(arrived);
}

TEST_F(SystemEnvironment, TellsTheKernelsVersion)
{
    EXPECT_EQ(system_.kernelVersion(), QSysInfo::kernelVersion());
    EXPECT_FALSE(system_.kernelVersion().isEmpty());
}

// Compares the functions: what they return could agree by chance.
TEST_F(SystemEnvironment, AsksThePlatformForTheDropShadow)
{
    const auto *const asked = system_.dropShadowEnabled.target<bool (*)()>();
    ASSERT_NE(asked, nullptr);
    EXPECT_EQ(*asked, &platform::DropShadowEnabled);
}

class Opener : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> opened;
public Q_SLOTS:
    void Open(const QUrl &url)
    {
        opened << url;
    }
};

TEST_F(SystemEnvironment, HandsALinkToTheUsersHandler)
{
    Opener opener;
    QDesktopServices::setUrlHandler("ktrtest", &opener, "Open");
    const QUrl url("ktrtest://offer/?x-url=a%20b");
    system_.openUrl(url);
    QDesktopServices::unsetUrlHandler("ktrtest");
    EXPECT_EQ(opener.opened, QList<QUrl>{url});
}

} // namespace

#include "uninstall_environment_test.moc"
