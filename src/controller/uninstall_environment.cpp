#include "controller/uninstall_environment.h"

#include "controller/task_list.h"
#include "platform/window.h"
#include "services/telemetry/usage_events.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QProcess>
#include <QSysInfo>
#include <QThread>

UninstallEnvironment UninstallEnvironment::System()
{
    UninstallEnvironment system;
    system.isProcessRunning = [](const QString &imageName) {
        return IsInTaskList(imageName);
    };
    system.startDetached = [](const QString &program, const QStringList &arguments) {
        QProcess::startDetached(program, arguments);
    };
    system.sleep = QThread::msleep;
    system.processEvents = [] {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    };
    system.kernelVersion = QSysInfo::kernelVersion;
    system.dropShadowEnabled = platform::DropShadowEnabled;
    system.openUrl = QDesktopServices::openUrl;
    system.sendUsageEvent = SendUsageEvent;
    system.offers = OfferSources::System();
    return system;
}
