#include <QCoreApplication>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace {

// The same surroundings as the program gives itself, but with the toolkit's own renderer if so
// wanted.
void PrepareEnvironment(bool ownRenderer)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    if (!ownRenderer) {
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    }
    qputenv("QML_DISABLE_DISK_CACHE", "1");
}

} // namespace

// Shows one window of the program's size until it is ended from outside: an empty one, or with the
// argument "controls" one that has each of the toolkit's controls once. With the argument "opengl"
// the toolkit draws as it does when nobody says anything. Status 1 without a window.
int main(int argc, char **argv)
{
    const QStringList wishes(argv + 1, argv + argc);
    PrepareEnvironment(wishes.contains(QLatin1String("opengl")));
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.load(QUrl(wishes.contains(QLatin1String("controls"))
                         ? QStringLiteral("qrc:/Controls.qml")
                         : QStringLiteral("qrc:/Empty.qml")));
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
