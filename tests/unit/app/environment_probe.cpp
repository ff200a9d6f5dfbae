#include "app/environment.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QProcessEnvironment>
#include <QQuickWindow>

#include <cstdio>

namespace {

void Say(const char *what, const QString &value)
{
    std::printf("%s=%s\n", what, qUtf8Printable(value)); // the code page may lack its letters
}

} // namespace

int main()
{
    PrepareEnvironment();
    Say("working directory", QDir::currentPath());
    Say("library paths", ';' + QCoreApplication::libraryPaths().join(';') + ';');
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : environment.keys()) {
        Say(qUtf8Printable(name), '[' + environment.value(name) + ']');
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
