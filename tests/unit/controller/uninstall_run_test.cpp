#include "controller/uninstall_mgr.h"
#include "testkit/fakes/fake_environment.h"

#include <QDir>
#include <QElapsedTimer>
#include <QMetaObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

const char *const kAsk = "ask uninstall.exe";

class UninstallRun : public testing::Test
{
protected:
    // One tick as the timer makes it.
    void Tick()
    {
        QMetaObject::invokeMethod(&manager_, "slotTimeOut", Qt::DirectConnection);
    }

    // The controller's only timer is its member, hence not a child: seen by its effect. Another
    // timer of twice its interval has fired twice by the end: one that runs would have, too.
    bool TimerTicks()
    {
        world_.Forget();
        int rounds = 0;
        QTimer slower;
        QObject::connect(&slower, &QTimer::timeout, [&rounds] { ++rounds; });
        slower.start(400);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return rounds == 2 || !world_.Asked().isEmpty(); }, 60000));
        return !world_.Asked().isEmpty();
    }

    static QString Start()
    {
        return QString("start %1/uninstall.exe [/SP-|/VERYSILENT]").arg(QDir::currentPath());
    }

    FakeEnvironment world_;
    CUninstallMgr manager_{world_.Environment()};
    QSignalSpy changed_{&manager_, &CUninstallMgr::sigValProgressChanged};
};

TEST_F(UninstallRun, SeenAtOnceStartsTheTimerWithoutAPause)
{
    world_.PollsAnswer({true});
    manager_.doUninstall();
    EXPECT_EQ(world_.Asked(), (QStringList{Start(), kAsk}));
    EXPECT_EQ(changed_.count(), 0);
    EXPECT_TRUE(TimerTicks());
}

TEST_F(UninstallRun, AsksThenSleepsThenLetsEventsThrough)
{
    world_.PollsAnswer({false, false, true});
    manager_.doUninstall();
    EXPECT_EQ(world_.Asked(),
              (QStringList{Start(), kAsk, "sleep 200", "pump", kAsk, "sleep 200", "pump", kAsk}));
}

TEST_F(UninstallRun, NeverSeenGivesUpAfterTwentyFivePollsWithoutASignal)
{
    world_.PollsAnswer({false});
    manager_.doUninstall();
    EXPECT_EQ(world_.Asked().filter(kAsk).size(), 25);
    EXPECT_EQ(world_.Asked().filter("sleep 200").size(), 25);
    EXPECT_EQ(world_.Asked().filter("pump").size(), 25);
    EXPECT_EQ(world_.Asked().size(), 1 + 25 * 3);
    EXPECT_EQ(manager_.getValProgress(), 0);
    EXPECT_EQ(changed_.count(), 0);
    EXPECT_FALSE(TimerTicks());
}

TEST_F(UninstallRun, SeenAtTheTwentyFifthPollStillCounts)
{
    QList<bool> answers;
    for (int poll = 0; poll < 24; ++poll) {
        answers << false;
    }
    world_.PollsAnswer(answers << true);
    manager_.doUninstall();
    EXPECT_TRUE(TimerTicks());
}

TEST_F(UninstallRun, TheWorkingDirectoryNamesTheUninstaller)
{
    const QString before = QDir::currentPath();
    const QTemporaryDir elsewhere;
    ASSERT_TRUE(QDir::setCurrent(elsewhere.path()));
    world_.PollsAnswer({true});
    manager_.doUninstall();
    EXPECT_EQ(world_.Asked().first(), Start());
    EXPECT_TRUE(world_.Asked().first().contains(QDir(elsewhere.path()).dirName()));
    QDir::setCurrent(before);
}

TEST_F(UninstallRun, PathOfTheUninstallerInTheRootFolderHasOneSeparator)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(QDir::rootPath()));
    world_.PollsAnswer({true});
    manager_.doUninstall();
    QDir::setCurrent(before);
    ASSERT_TRUE(QDir::rootPath().endsWith('/'));
    EXPECT_EQ(world_.Asked().first(),
              QString("start %1uninstall.exe [/SP-|/VERYSILENT]").arg(QDir::rootPath()));
}

TEST_F(UninstallRun, TheFirstTickComesAfterTheInterval)
{
    world_.PollsAnswer({true});
    manager_.doUninstall();
    world_.Forget();
    QElapsedTimer sinceStart;
    sinceStart.start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return changed_.count() > 0; }, 60000));
    EXPECT_GE(sinceStart.elapsed(), 200);
    EXPECT_EQ(manager_.getValProgress(), 1);
}

TEST_F(UninstallRun, ALittleLongerIntervalFallsBehind)
{
    world_.PollsAnswer({true});
    int rounds = 0;
    QTimer longer;
    longer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&longer, &QTimer::timeout, [&rounds] { ++rounds; });
    manager_.doUninstall();
    longer.start(220);
    ASSERT_TRUE(QTest::qWaitFor([&] { return changed_.count() >= rounds + 2; }, 60000));
}

TEST_F(UninstallRun, IsNotGuardedAgainstASecondCall)
{
    world_.PollsAnswer({true});
    manager_.doUninstall();
    manager_.doUninstall();
    EXPECT_EQ(world_.Asked(), (QStringList{Start(), kAsk, Start(), kAsk}));
    Tick();
    EXPECT_EQ(manager_.getValProgress(), 1);
}

TEST_F(UninstallRun, ClimbsByOneHoldsAtNinetyNineAndEndsOnce)
{
    world_.PollsAnswer({true});
    for (int tick = 1; tick <= 99; ++tick) {
        Tick();
        ASSERT_EQ(manager_.getValProgress(), tick);
    }
    for (int tick = 0; tick < 5; ++tick) {
        Tick();
        ASSERT_EQ(manager_.getValProgress(), 99);
    }
    EXPECT_EQ(changed_.count(), 104);
    world_.PollsAnswer({false});
    Tick();
    EXPECT_EQ(manager_.getValProgress(), 100);
    EXPECT_EQ(changed_.count(), 105);
}

TEST_F(UninstallRun, EachTickAsksOnce)
{
    for (const int value : {0, 98, 99, 100}) {
        for (const bool running : {true, false}) {
            manager_.setValProgress(value);
            world_.PollsAnswer({running});
            world_.Forget();
            Tick();
            EXPECT_EQ(world_.Asked(), QStringList{kAsk}) << value << running;
        }
    }
}

TEST_F(UninstallRun, ATickReadsTheProgressBeforeItAsks)
{
    UninstallEnvironment environment = world_.Environment();
    CUninstallMgr *asking = nullptr;
    environment.isProcessRunning = [&asking](const QString &) {
        asking->setValProgress(50);
        return true;
    };
    CUninstallMgr manager(environment);
    asking = &manager;
    QMetaObject::invokeMethod(&manager, "slotTimeOut", Qt::DirectConnection);
    EXPECT_EQ(manager.getValProgress(), 1);
}

TEST_F(UninstallRun, GoneAtTheFirstTickEndsAtOnceAndForGood)
{
    world_.PollsAnswer({true, false});
    manager_.doUninstall();
    ASSERT_TRUE(QTest::qWaitFor([this] { return manager_.getValProgress() == 100; }, 60000));
    EXPECT_EQ(changed_.count(), 1);
    EXPECT_FALSE(TimerTicks());
    EXPECT_EQ(changed_.count(), 1);
}

// Seen by a run that begins when the end is announced: a timer stopped later would stop that run.
TEST_F(UninstallRun, TheTimerHasStoppedWhenTheEndIsAnnounced)
{
    world_.PollsAnswer({true, false, true});
    bool restarted = false;
    QObject::connect(&manager_, &CUninstallMgr::sigValProgressChanged, [&] {
        if (!restarted) {
            restarted = true;
            manager_.setValProgress(0);
            manager_.doUninstall();
        }
    });
    manager_.doUninstall();
    EXPECT_TRUE(QTest::qWaitFor([this] { return manager_.getValProgress() == 1; }, 10000));
}

TEST_F(UninstallRun, BeyondTheEndTheUninstallersAbsenceStillEndsIt)
{
    world_.PollsAnswer({true, false});
    manager_.setValProgress(150);
    manager_.doUninstall();
    ASSERT_TRUE(QTest::qWaitFor([this] { return manager_.getValProgress() == 100; }, 60000));
    EXPECT_FALSE(TimerTicks());
}

// No branch covers values past the end.
TEST_F(UninstallRun, BeyondTheEndNothingIsSet)
{
    world_.PollsAnswer({true});
    manager_.setValProgress(150);
    Tick();
    EXPECT_EQ(manager_.getValProgress(), 150);
    EXPECT_EQ(changed_.count(), 1);
}

} // namespace
