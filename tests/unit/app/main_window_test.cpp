#include "app/main_window.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QQmlApplicationEngine>
#include <QUrl>

#include <gtest/gtest.h>

namespace {

constexpr int kNothingEndedIt = 7;

// In this program there is no "qrc:/Main.qml".
class MainWindow : public testing::Test
{
protected:
    /// The event loop's result when it runs until what is queued now has been handled.
    static int RunLoop()
    {
        auto *const application = QCoreApplication::instance();
        // In the round after the next one: our exit would replace one of the same round.
        QMetaObject::invokeMethod(
            application,
            [application] {
                QMetaObject::invokeMethod(
                    application,
                    [] { QCoreApplication::exit(kNothingEndedIt); },
                    Qt::QueuedConnection);
            },
            Qt::QueuedConnection);
        const int result = QCoreApplication::exec();
        QCoreApplication::removePostedEvents(application); // our exit, when another one came first
        return result;
    }

    QQmlApplicationEngine engine_;
};

TEST_F(MainWindow, AFailedLoadEndsTheEventLoopThatStartsLater)
{
    LoadMainWindow(&engine_);
    EXPECT_EQ(RunLoop(), -1);
}

TEST_F(MainWindow, AFailedLoadOfAnotherFileEndsNothing)
{
    LoadMainWindow(&engine_);
    ASSERT_EQ(RunLoop(), -1);
    engine_.load(QUrl(QStringLiteral("qrc:/Other.qml")));
    EXPECT_EQ(RunLoop(), kNothingEndedIt);
}

TEST_F(MainWindow, ALoadThatSucceedsEndsNothing)
{
    LoadMainWindow(&engine_);
    ASSERT_EQ(RunLoop(), -1);
    Q_EMIT engine_.objectCreated(&engine_, QUrl(QStringLiteral("qrc:/Main.qml")));
    EXPECT_EQ(RunLoop(), kNothingEndedIt);
}

} // namespace
