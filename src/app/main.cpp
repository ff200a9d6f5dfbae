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

// The telemetry library is loaded already: its binding is built before main, in every start. What
// only one step uses (font, icon, URL) lives in the function of that step.
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

    // What the user interface decided counts, not the loop's result: a load that failed and a
    // window that the system closed leave a code that launches nothing.
    if (uninstallMgr.getExitCode() == 0) {
        KillTelemetryHelper();
        LaunchCleanupCommand(CleanupCommand(cleanupScript, programDir));
    }
    ReleaseInstanceMutex();
    RemoveWindowHandleFile();
    QCoreApplication::quit();
    // Ends here, so that nothing above is destroyed: there is no orderly way out of a half-dead
    // engine that would be worth the user's wait.
    std::exit(0);
}
