#include "controller/uninstall_mgr.h"
#include "testkit/fakes/fake_environment.h"
#include "tests/unit/config/log_watch.h"
#include "tests/unit/controller/object_watch.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <QWindow>

#include <gtest/gtest.h>

namespace {

class MessageWait : public testing::Test
{
protected:
    // What runs inside the wait that starts next.
    template<typename Action> static void Inside(Action action)
    {
        QTimer::singleShot(0, std::move(action));
    }

    FakeEnvironment fake_;
    CUninstallMgr manager_{fake_.Environment()};
};

TEST_F(MessageWait, ReturnsTheCodeThatEndsItAndMinusOneWithoutOne)
{
    int ending = 0;
    Inside([&] { ending = manager_.popMsgBox(false, 2); });
    EXPECT_EQ(manager_.popMsgBox(true), 2);
    EXPECT_EQ(ending, -1);
    Inside([&] { manager_.popMsgBox(false); });
    EXPECT_EQ(manager_.popMsgBox(true, 7), -1);
}

TEST_F(MessageWait, EndingAnIdleWaitHasNoLastingEffect)
{
    EXPECT_EQ(manager_.popMsgBox(false, 5), -1);
    Inside([&] { manager_.popMsgBox(false, 3); });
    EXPECT_EQ(manager_.popMsgBox(true), 3);
}

TEST_F(MessageWait, ReusesItsEventLoop)
{
    const ObjectWatch watch;
    std::map<int, const QEventLoop *> first;
    for (const int code : {1, 2, 3}) {
        Inside([&] { manager_.popMsgBox(false, code); });
        EXPECT_EQ(manager_.popMsgBox(true), code);
        first = first.empty() ? watch.Existing<QEventLoop>() : first;
        EXPECT_EQ(first.size(), 1U);
        EXPECT_EQ(watch.Existing<QEventLoop>(), first);
    }
}

TEST_F(MessageWait, CannotBeEnteredTwiceAndQtDoesNotWarn)
{
    const LogWatch log;
    int second = 0;
    int afterItsEnd = 0;
    Inside([&] {
        second = manager_.popMsgBox(true);
        manager_.popMsgBox(false, 4);
        // It has been ended, and has not returned yet.
        afterItsEnd = manager_.popMsgBox(true);
    });
    EXPECT_EQ(manager_.popMsgBox(true), 4);
    EXPECT_EQ(second, -1);
    EXPECT_EQ(afterItsEnd, -1);
    EXPECT_EQ(LogWatch::NewLines(), QStringList());
}

TEST_F(MessageWait, EachWindowHasItsOwn)
{
    QWindow first;
    QWindow second;
    int inner = 0;
    Inside([&] {
        Inside([&] {
            manager_.popMsgBox(false, 1); // ends neither
            manager_.popMsgBox(false, 20, &second);
            manager_.popMsgBox(false, 10, &first);
        });
        inner = manager_.popMsgBox(true, -1, &second);
    });
    EXPECT_EQ(manager_.popMsgBox(true, -1, &first), 10);
    EXPECT_EQ(inner, 20);
}

TEST_F(MessageWait, ProcessesAllEvents)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (++ticks == 3) {
            manager_.popMsgBox(false, ticks);
        }
    });
    timer.start(1);
    EXPECT_EQ(manager_.popMsgBox(true), 3);
}

} // namespace
