#include "controller/uninstall_environment.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

// The world as the program meets it, not a test's.
class SystemEnvironment : public testing::Test
{
protected:
    QString Script(const QString &name, const QByteArray &content)
    {
        const QString path = folder_.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + content);
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        return path;
    }

    QTemporaryDir folder_;
    const UninstallEnvironment system_ = UninstallEnvironment::System();
};

TEST_F(SystemEnvironment, AsksTheTaskListOfTheSearchPath)
{
    Script(QStringLiteral("tasklist"), "echo '\"uninstall.exe\",\"1\"'\n");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", folder_.path().toLocal8Bit() + ':' + path);
    EXPECT_TRUE(system_.isProcessRunning(QStringLiteral("uninstall.exe")));
    EXPECT_FALSE(system_.isProcessRunning(QStringLiteral("KTRUI.exe")));
    qputenv("PATH", path);
}

TEST_F(SystemEnvironment, StartsAProgramWithItsArgumentsAsTheyAre)
{
    const QString program = Script(QStringLiteral("a program"),
                                   "printf '[%s]' \"$@\" > \"$0.new\"\n"
                                   "mv \"$0.new\" \"$0.out\"\n");
    system_.startDetached(program, {QStringLiteral("/SP-"), QStringLiteral("a b\"c")});
    QFile out(program + QStringLiteral(".out"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return out.exists(); }, 60000));
    ASSERT_TRUE(out.open(QIODevice::ReadOnly));
    EXPECT_EQ(out.readAll(), QByteArray("[/SP-][a b\"c]"));
}

TEST_F(SystemEnvironment, AMissingProgramHasNoEffect)
{
    testing::internal::CaptureStderr();
    system_.startDetached(folder_.filePath(QStringLiteral("none")), {});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(SystemEnvironment, SleepsWithoutLettingEventsThroughAndLetsThemThroughAfterwards)
{
    bool arrived = false;
    QTimer::singleShot(0, [&arrived] { arrived = true; });
    QElapsedTimer elapsed;
    elapsed.start();
    system_.sleep(20);
    EXPECT_GE(elapsed.elapsed(), 20);
    EXPECT_FALSE(arrived);
    system_.processEvents();
    EXPECT_TRUE(arrived);
}

TEST_F(SystemEnvironment, TellsTheKernelsVersion)
{
    EXPECT_EQ(system_.kernelVersion(), QSysInfo::kernelVersion());
    EXPECT_FALSE(system_.kernelVersion().isEmpty());
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
    QDesktopServices::setUrlHandler(QStringLiteral("ktrtest"), &opener, "Open");
    const QUrl url(QStringLiteral("ktrtest://offer/?x-url=a%20b"));
    system_.openUrl(url);
    QDesktopServices::unsetUrlHandler(QStringLiteral("ktrtest"));
    EXPECT_EQ(opener.opened, QList<QUrl>{url});
}

} // namespace

#include "uninstall_environment_test.moc"
