#include "app/environment.h"

#include "platform/files.h"
#include "platform/module_path.h"
#include "platform/text.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QQuickWindow>

#include <string>

namespace {

void EnterProgramDirectory()
{
    const std::wstring executable = platform::ExecutablePathWide(platform::kPathCapacity);
    const std::size_t cut = executable.rfind(platform::kNativeSeparatorWide);
    // Deliberately without effect: what is handed over is what remains at the cut, not before it.
    platform::ChangeDirectory(cut == std::wstring::npos ? nullptr : L"");

    const QString directory =
        QDir::toNativeSeparators(QString::fromStdWString(executable.substr(0, cut)));
    QDir::setCurrent(directory);
    QCoreApplication::addLibraryPath(directory);
}

void RemoveWhenNotEmpty(const char *variable)
{
    if (!qEnvironmentVariableIsEmpty(variable)) {
        qunsetenv(variable);
    }
}

// What other programs have set for their own Qt would bring foreign controls and plug-ins into
// ours.
void KeepOutForeignParts()
{
    for (const char *variable : {"QT_QPA_PLATFORM_PLUGIN_PATH",
                                 "QT_QUICK_CONTROLS_CONF",
                                 "QT_QUICK_CONTROLS_FALLBACK_STYLE",
                                 "QT_QUICK_CONTROLS_STYLE"}) {
        qunsetenv(variable);
    }
}

void ConfigureScaling()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    qputenv("QT_AUTO_SCREEN_SCALE_FACTOR", "");
}

// The software renderer loads no graphics driver, so it looks and works the same on remote desktops
// and virtual machines, and it starts in a third of the time. A backend that is asked for by name
// keeps its say. Nothing may stay on disk, hence no cache of compiled QML.
void ChooseRenderer()
{
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND")) {
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    }
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    // It would win over the other one.
    qunsetenv("QML_FORCE_DISK_CACHE");
}

} // namespace

void PrepareEnvironment()
{
    EnterProgramDirectory();
    RemoveWhenNotEmpty("QT_PLUGIN_PATH");
    RemoveWhenNotEmpty("QML2_IMPORT_PATH");
    ConfigureScaling();
    KeepOutForeignParts();
    ChooseRenderer();
}
