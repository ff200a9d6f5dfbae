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

} // namespace

int main(int argc, char **argv)
{
    PrepareEnvironment();
    Say("working directory", QDir::currentPath());
    Say("library paths", ';' + QCoreApplication::libraryPaths().join(';') + ';');
    for (int argument = 1; argument < argc; ++argument) {
        const char *const name = argv[argument];
        Say(name,
            qEnvironmentVariableIsSet(name) ? '[' + qEnvironmentVariable(name) + ']' : "unset");
    }
    Say("scaling", QString::number(QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling)));
    Say("high-density pixmaps",
        QString::number(QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps)));
    Say("pass-through",
        QString::number(QGuiApplication::highDpiScaleFactorRoundingPolicy() ==
                        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough));
    Say("renderer", QQuickWindow::sceneGraphBackend());
    return 0;
}
