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
    // The timer is a private member and no child object, so only its queries show that it runs. It
    // gets the time of two ticks of a timer with twice its interval.
    bool TimerTicks()
    {
        fake_.Forget();
        int rounds = 0;
        QTimer slower;
        QObject::connect(&slower, &QTimer::timeout, [&rounds] { ++rounds; });
        slower.start(400);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return rounds == 2 || !fake_.Asked().isEmpty(); }, 60000));
        return !fake_.Asked().isEmpty();
    }

    static QString Start()
    {
        const QString program = QDir::cleanPath(QDir::currentPath() + "/uninstall.exe");
        return QString("start %1 [/SP-|/VERYSILENT]").arg(program);
    }

    FakeEnvironment fake_;
    CUninstallMgr manager_{fake_.Environment()};
    QSignalSpy changed_{&manager_, &CUninstallMgr::sigValProgressChanged};
};

TEST_F(UninstallRun, SeenAtOnceStartsTheTimerWithoutAPause)
{
    fake_.PollsAnswer({true});
    manager_.doUninstall();
    EXPECT_EQ(fake_.Asked(), (QStringList{Start(), kAsk}));
    EXPECT_EQ(changed_.count(), 0);
    EXPECT_TRUE(TimerTicks());
}

TEST_F(UninstallRun, PollsTwentyFiveTimesWithASleepAndEventsBetween)
{
    const QStringList poll = {kAsk, "sleep 200", "pump"};
    QStringList expected = {Start()};
    QList<bool> answers;
    for (int count = 1; count < 25; ++count) {
        expected += poll;
        answers << false;
    }
    fake_.PollsAnswer(answers << true);
    manager_.doUninstall();
    EXPECT_EQ(fake_.Asked(), expected + QStringList{kAsk});
    EXPECT_TRUE(TimerTicks()) << "seen at the last poll";
}

TEST_F(UninstallRun, NeverSeenGivesUpAfterTwentyFivePollsWithoutASignal)
{
    fake_.PollsAnswer({false});
    manager_.doUninstall();
    EXPECT_EQ(fake_.Asked().filter(kAsk).size(), 25);
    EXPECT_EQ(fake_.Asked().size(), 1 + 25 * 3);
    EXPECT_EQ(manager_.getValProgress(), 0);
    EXPECT_EQ(changed_.count(), 0);
    EXPECT_FALSE(TimerTicks());
}

TEST_F(UninstallRun, TheUninstallerLiesInTheWorkingDirectory)
{
    const QString before = QDir::currentPath();
    const QTemporaryDir elsewhere;
    fake_.PollsAnswer({true});
    for (const QString &folder : {elsewhere.path(), QDir::rootPath()}) {
        ASSERT_TRUE(QDir::setCurrent(folder));
        fake_.Forget();
        manager_.doUninstall();
        EXPECT_EQ(fake_.Asked().first(), Start());
    }
    QDir::setCurrent(before);
}

TEST_F(UninstallRun, TheFirstTickComesAfterTheInterval)
{
    fake_.PollsAnswer({true});
    manager_.doUninstall();
    QElapsedTimer sinceStart;
    sinceStart.start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return changed_.count() > 0; }, 60000));
    EXPECT_GE(sinceStart.elapsed(), 200);
    EXPECT_EQ(manager_.getValProgress(), 1);
}

TEST_F(UninstallRun, TheIntervalIsShorterThan220Milliseconds)
{
    fake_.PollsAnswer({true});
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
    fake_.PollsAnswer({true});
    manager_.doUninstall();
    manager_.doUninstall();
    EXPECT_EQ(fake_.Asked(), (QStringList{Start(), kAsk, Start(), kAsk}));
}

struct Step
{
    int before;
    bool running;
    int after;
    int changes;
};

// Above 100, a tick changes nothing while the uninstaller runs.
TEST_F(UninstallRun, ATickAsksOnceAndAnnouncesTheProgressUpToTheEnd)
{
    for (const Step &step : {Step{0, true, 1, 1},
                             {98, true, 99, 1},
                             {99, true, 99, 1},
                             {99, false, 100, 1},
                             {0, false, 100, 1},
                             {150, true, 150, 0},
                             {150, false, 100, 1}}) {
        manager_.setValProgress(step.before);
        changed_.clear();
        fake_.PollsAnswer({step.running});
        fake_.Forget();
        QMetaObject::invokeMethod(&manager_, "slotTimeOut", Qt::DirectConnection);
        EXPECT_EQ(manager_.getValProgress(), step.after) << step.before;
        EXPECT_EQ(changed_.count(), step.changes) << step.before;
        EXPECT_EQ(fake_.Asked(), QStringList{kAsk});
    }
}

TEST_F(UninstallRun, ATickReadsTheProgressBeforeItAsks)
{
    fake_.PollsAnswer({true});
    fake_.onAsked = [this](const QString &) {
        manager_.setValProgress(50);
    };
    QMetaObject::invokeMethod(&manager_, "slotTimeOut", Qt::DirectConnection);
    EXPECT_EQ(manager_.getValProgress(), 1);
}

TEST_F(UninstallRun, GoneAtTheFirstTickEndsAtOnceAndForGood)
{
    for (const int before : {0, 150}) {
        fake_.PollsAnswer({true, false});
        manager_.setValProgress(before);
        changed_.clear();
        manager_.doUninstall();
        ASSERT_TRUE(QTest::qWaitFor([this] { return manager_.getValProgress() == 100; }, 60000));
        EXPECT_FALSE(TimerTicks());
        EXPECT_EQ(changed_.count(), 1);
    }
}

// A new run begins inside the signal: if the timer were stopped after it, that run would stop.
TEST_F(UninstallRun, TheTimerHasStoppedWhenTheEndIsAnnounced)
{
    fake_.PollsAnswer({true, false, true});
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

} // namespace
