#include "controller/uninstall_mgr.h"

#include "controller/reason_list.h"
#include "controller/uninstall_progress.h"
#include "controller/window_shadow.h"

#include <QDir>

#include <utility>

namespace {

constexpr const char *kUninstallerName = "uninstall.exe";
constexpr const char *kProductImageName = "KTRUI.exe";
constexpr int kStartUpPolls = 25;
constexpr unsigned long kStartUpPauseMs = 200;
constexpr int kProgressIntervalMs = 200;

} // namespace

CUninstallMgr::CUninstallMgr(UninstallEnvironment environment)
    : environment_(std::move(environment))
{
    connect(&progressTimer, &QTimer::timeout, this, &CUninstallMgr::slotTimeOut);
}

void CUninstallMgr::doUninstall()
{
    // The working directory, not the executable's: PrepareEnvironment() makes them the same.
    const QString uninstaller = QDir::cleanPath(
        QStringLiteral("%1/%2").arg(QDir::currentPath(), QLatin1String(kUninstallerName)));
    environment_.startDetached(uninstaller,
                               {QStringLiteral("/SP-"), QStringLiteral("/VERYSILENT")});
    for (int poll = 0; poll < kStartUpPolls; ++poll) {
        if (isProcessRunning(QLatin1String(kUninstallerName))) {
            // QTimer's default, the coarse timer: ticks may vary by 5 %, and the processor may
            // sleep. Qt::PreciseTimer would keep it awake.
            progressTimer.start(kProgressIntervalMs);
            return;
        }
        environment_.sleep(kStartUpPauseMs);
        environment_.processEvents();
    }
}

void CUninstallMgr::slotTimeOut()
{
    // Read the value before the query. As arguments of one call, their order is unspecified.
    const int value = valProgress;
    const bool uninstallerRunning = isProcessRunning(QLatin1String(kUninstallerName));
    const int progress = NextProgress(value, uninstallerRunning);
    if (progress < kProgressEnd) {
        setValProgress(progress);
    } else if (progress == kProgressEnd) {
        progressTimer.stop();
        setValProgress(kProgressEnd);
    }
}

QVariantList CUninstallMgr::getReasonList()
{
    return ShuffledReasons();
}

void CUninstallMgr::setExitCode(int exitCode)
{
    this->exitCode = exitCode;
}

QVariantMap CUninstallMgr::getPreferentialLink(int type)
{
    const OfferSources &offers = environment_.offers;
    if (!offers.configured()) {
        return {};
    }
    if (!configPrefixApplied) {
        offers.setVersionTag(ConfigVersionTag(offers.versionNo()));
        configPrefixApplied = true;
    }
    return ComposeOffer(type, offers);
}

void CUninstallMgr::openLink(const QString &strUrl)
{
    if (!strUrl.isEmpty()) {
        environment_.openUrl(QUrl(strUrl, QUrl::TolerantMode));
    }
}

void CUninstallMgr::sendUserInfo(const QString &w,
                                 const QString &a,
                                 const QString &attr,
                                 const QString &src)
{
    environment_.sendUsageEvent(w, a, attr, src);
}

bool CUninstallMgr::isKTRRunning()
{
    return isProcessRunning(QLatin1String(kProductImageName));
}

bool CUninstallMgr::isProcessRunning(const QString &imageName)
{
    return environment_.isProcessRunning(imageName);
}

int CUninstallMgr::popMsgBox(bool b, int exitCode, QWindow *parent)
{
    QWindow *const window = parent != nullptr ? parent : defaultParentWindow;
    QEventLoop &loop = eventLoops[window];
    if (!b) {
        loop.exit(exitCode);
        return -1;
    }
    // A second exec() would also return -1, but with a Qt warning. isRunning() is no check: it is
    // false between exit() and the return of exec(), when queued events can still get here.
    if (!waiting_.insert(window).second) {
        return -1;
    }
    const int code = loop.exec(QEventLoop::AllEvents);
    waiting_.erase(window);
    return code;
}

bool CUninstallMgr::showWindowShadow()
{
    return KernelQualifiesForShadow(environment_.kernelVersion()) &&
           environment_.dropShadowEnabled();
}

int CUninstallMgr::getExitCode() const
{
    return exitCode;
}

int CUninstallMgr::getValProgress() const
{
    return valProgress;
}

void CUninstallMgr::setValProgress(int value)
{
    valProgress = value;
    Q_EMIT sigValProgressChanged();
}
