#include "app/main_window.h"

#include <QCoreApplication>
#include <QQmlApplicationEngine>
#include <QUrl>

void LoadMainWindow(QQmlApplicationEngine *engine)
{
    const QUrl mainUrl(QStringLiteral("qrc:/Main.qml"), QUrl::TolerantMode);
    // Queued: exit() has no effect before exec() runs.
    QObject::connect(
        engine,
        &QQmlApplicationEngine::objectCreated,
        QCoreApplication::instance(),
        [mainUrl](const QObject *object, const QUrl &url) {
            if (object == nullptr && url == mainUrl) {
                QCoreApplication::exit(-1);
            }
        },
        Qt::QueuedConnection);
    engine->load(mainUrl);
}
