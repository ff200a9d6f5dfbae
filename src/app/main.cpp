#include "app/appearance.h"
#include "app/cleanup_script.h"
#include "app/environment.h"
#include "app/instance_guard.h"
#include "app/language.h"
#include "app/main_window.h"
#include "app/process_utils.h"
#include "app/program.h"
#include "app/window_handle_file.h"
#include "controller/uninstall_mgr.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QResource>
#include <QTranslator>

#include <cstdlib>

// The telemetry library is loaded already: its binding is built before main, in every start.
int RunProgram(int argc, char **argv)
{
    if (CheckAlreadyRunning()) {
        ActivateRunningInstance();
        return 0;
    }
    PrepareEnvironment();
    QGuiApplication application(argc, argv);
    const QString programDir = QCoreApplication::applicationDirPath();

    const CleanupScript cleanupScript = LocateCleanupScript(programDir);
    StageCleanupScript(cleanupScript);

    ApplyApplicationFont();
    ApplyLinkColour();
    // Optional and trusted: who can write it there can also replace the program (docs/security.md).
    QResource::registerResource(programDir + QStringLiteral("/UninstallUI.rcc"));

    CUninstallMgr uninstallMgr;
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("uninstallMgr"), &uninstallMgr);

    ApplyWindowIcon(programDir);

    QTranslator translator;
    LoadTranslation(&translator, &engine);

    LoadMainWindow(&engine);
    PublishWindowHandle(engine);

    QGuiApplication::exec();

    // Use the code that the user interface set, not exec()'s: after a failed load, or a close by
    // the system, it is not 0, and nothing is launched.
    if (uninstallMgr.getExitCode() == 0) {
        KillTelemetryHelper();
        LaunchCleanupCommand(CleanupCommand(cleanupScript, programDir));
    }
    ReleaseInstanceMutex();
    RemoveWindowHandleFile();
    QCoreApplication::quit();
    // exit() skips the destruction of the QML engine, which would only delay the exit.
    std::exit(0);
}
