#include "app/main_window.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QQmlApplicationEngine>
#include <QUrl>

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr int kNothingEndedIt = 7;

/// Runs the event loop until the events that are queued now are processed; returns its exit code.
int RunLoop()
{
    auto *const application = QCoreApplication::instance();
    const auto soon = [application](auto action) {
        QMetaObject::invokeMethod(application, action, Qt::QueuedConnection);
    };
    // Queued twice: an exit() in the same iteration would replace the exit code under test.
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

TEST(MainWindow, AFailedLoadEndsTheEventLoopAlsoWhenTheEngineHasGone)
{
    LoadMainWindow(std::make_unique<QQmlApplicationEngine>().get());
    EXPECT_EQ(RunLoop(), -1);
}

} // namespace
