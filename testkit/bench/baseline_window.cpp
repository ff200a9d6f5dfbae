#include <QCoreApplication>
#include <QGuiApplication>
#include <QIcon>
#include <QLibrary>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QString>
#include <QUrl>

#include <cstring>

namespace {

// Same as in the program.
void PrepareEnvironment()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    qputenv("QML_DISABLE_DISK_CACHE", "1");
}

} // namespace

// Shows one window of the program's size until it is ended from outside: "controls" has each Qt
// control that the interface uses; "content" has the program's images, icon and libraries, too.
// Status 1 without a window or a library.
int main(int argc, char **argv)
{
    const bool content = argc > 1 && std::strcmp(argv[1], "content") == 0;
    PrepareEnvironment();
    const QGuiApplication application(argc, argv);
    if (content) {
        const QString folder = QCoreApplication::applicationDirPath();
        QLibrary telemetry(folder + QStringLiteral("/SkyrelWrap.DLL"));
        QLibrary configuration(QStringLiteral("vantoronlineconfig.dll"));
        if (!telemetry.load() || !configuration.load()) {
            return 1;
        }
        QGuiApplication::setWindowIcon(QIcon(folder + QStringLiteral("/../res/install_box.ico")));
    }
    QQmlApplicationEngine engine;
    engine.load(
        QUrl(content ? QStringLiteral("qrc:/Content.qml") : QStringLiteral("qrc:/Controls.qml")));
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
