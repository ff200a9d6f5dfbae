#include "app/environment.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QQuickWindow>

#include <cstdio>

namespace {

void Say(const char *what, const QString &value)
{
    std::printf("%s=%s\n", what, qPrintable(value));
}

QString Variable(const char *name)
{
    return qEnvironmentVariableIsSet(name)
               ? QLatin1Char('[') + qEnvironmentVariable(name) + QLatin1Char(']')
               : QStringLiteral("unset");
}

} // namespace

int main()
{
    PrepareEnvironment();
    Say("working directory", QDir::currentPath());
    Say("library paths", QCoreApplication::libraryPaths().join(QLatin1Char(';')));
    Say("QT_PLUGIN_PATH", Variable("QT_PLUGIN_PATH"));
    Say("QML2_IMPORT_PATH", Variable("QML2_IMPORT_PATH"));
    for (const char *const name : {"QT_QPA_PLATFORM_PLUGIN_PATH",
                                   "QT_QUICK_CONTROLS_CONF",
                                   "QT_QUICK_CONTROLS_FALLBACK_STYLE",
                                   "QT_QUICK_CONTROLS_STYLE"}) {
        Say(name, Variable(name));
    }
    Say("QT_AUTO_SCREEN_SCALE_FACTOR", Variable("QT_AUTO_SCREEN_SCALE_FACTOR"));
    Say("QML_DISABLE_DISK_CACHE", Variable("QML_DISABLE_DISK_CACHE"));
    Say("QML_FORCE_DISK_CACHE", Variable("QML_FORCE_DISK_CACHE"));
    Say("scaling", QString::number(QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling)));
    Say("high-density pixmaps",
        QString::number(QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps)));
    Say("pass-through",
        QString::number(QGuiApplication::highDpiScaleFactorRoundingPolicy() ==
                        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough));
    Say("renderer", QQuickWindow::sceneGraphBackend());
    return 0;
}
