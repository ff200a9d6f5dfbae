#include <QCoreApplication>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QString>
#include <QUrl>

namespace {

// The same surroundings as the program gives itself. A renderer that is asked for by name keeps its
// say, and so does a cache of compiled QML.
void PrepareEnvironment()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    if (qgetenv("QT_QUICK_BACKEND").isEmpty()) {
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    }
    if (!qEnvironmentVariableIsSet("QML_DISABLE_DISK_CACHE")) {
        qputenv("QML_DISABLE_DISK_CACHE", "1");
    }
}

} // namespace

// Shows one window of the program's size until it is ended from outside: an empty one, or with the
// argument "controls" one that has each of the toolkit's controls once. Status 1 without a window.
int main(int argc, char **argv)
{
    PrepareEnvironment();
    const QGuiApplication application(argc, argv);
    const bool withControls = QCoreApplication::arguments().value(1) == QLatin1String("controls");
    QQmlApplicationEngine engine;
    engine.load(QUrl(withControls ? QStringLiteral("qrc:/Controls.qml")
                                  : QStringLiteral("qrc:/Empty.qml")));
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
