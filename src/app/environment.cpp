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
    // Deliberately has no effect: the path is empty or null
    // (docs/decisions/0005-oddities-that-stay.md).
    platform::ChangeDirectory(cut == std::wstring::npos ? nullptr : L"");

    const QString directory =
        QDir::toNativeSeparators(QString::fromStdWString(executable.substr(0, cut)));
    QDir::setCurrent(directory);
    QCoreApplication::addLibraryPath(directory);
}

void UnsetIfNonEmpty(const char *variable)
{
    if (!qEnvironmentVariableIsEmpty(variable)) {
        qunsetenv(variable);
    }
}

// Variables that another program has set for its own Qt. A style that does not load would keep the
// window from opening; one that loads is foreign code, even in an elevated start. When a later Qt
// reads another variable that names code, add it here and to tests/scenario/faults/variables.py.
void UnsetQtPluginOverrides()
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

// Leave nothing in the user's cache folder (docs/decisions/0003). QML_FORCE_DISK_CACHE would win
// over QML_DISABLE_DISK_CACHE. Programs that ours starts inherit this; none of them uses QML.
void DisableQmlDiskCache()
{
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    qunsetenv("QML_FORCE_DISK_CACHE");
}

// The software renderer loads no graphics driver, so the window looks and works the same on remote
// desktops and virtual machines, and the program starts in about half the time
// (docs/performance.md). An explicit QT_QUICK_BACKEND wins.
void ChooseRenderer()
{
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND")) {
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    }
}

} // namespace

void PrepareEnvironment()
{
    EnterProgramDirectory();
    UnsetIfNonEmpty("QT_PLUGIN_PATH");
    UnsetIfNonEmpty("QML2_IMPORT_PATH");
    ConfigureScaling();
    UnsetQtPluginOverrides();
    DisableQmlDiskCache();
    ChooseRenderer();
}
