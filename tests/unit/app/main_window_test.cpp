#include "app/main_window.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QQmlApplicationEngine>
#include <QUrl>

#include <gtest/gtest.h>

namespace {

constexpr int kNothingEndedIt = 7;

/// The event loop's result when it runs until what is queued now has been handled.
int RunLoop()
{
    auto *const application = QCoreApplication::instance();
    const auto soon = [application](auto action) {
        QMetaObject::invokeMethod(application, action, Qt::QueuedConnection);
    };
    // In the round after the next one: our exit would replace one of the same round.
    soon([soon] { soon([] { QCoreApplication::exit(kNothingEndedIt); }); });
    const int result = QCoreApplication::exec();
    QCoreApplication::removePostedEvents(application); // our exit, when another one came first
    return result;
}

// In this program there is no "qrc:/Main.qml".
TEST(MainWindow, OnlyAFailedLoadOfItsFileEndsTheEventLoopThatStartsLater)
{
    QQmlApplicationEngine engine;
    LoadMainWindow(&engine);
    EXPECT_EQ(RunLoop(), -1);
    engine.load(QUrl("qrc:/Other.qml"));
    EXPECT_EQ(RunLoop(), kNothingEndedIt);
    Q_EMIT engine.objectCreated(&engine, QUrl("qrc:/Main.qml"));
    EXPECT_EQ(RunLoop(), kNothingEndedIt);
}

} // namespace
