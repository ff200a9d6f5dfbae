#include "recording_mgr.h"

#include "controller/reason_list.h"

#include <algorithm>

namespace {

QVariantList ReasonsByNumber()
{
    QVariantList reasons = ShuffledReasons();
    std::sort(reasons.begin(), reasons.end(), [](const QVariant &left, const QVariant &right) {
        return left.toInt() < right.toInt();
    });
    return reasons;
}

} // namespace

RecordingMgr::RecordingMgr()
    : m_reasonList(ReasonsByNumber())
{
}

void RecordingMgr::record(const QVariantList &call)
{
    m_calls.append(QVariant(call));
}

void RecordingMgr::doUninstall()
{
    record({QStringLiteral("doUninstall")});
    Q_EMIT uninstallStarted();
}

QVariantList RecordingMgr::getReasonList()
{
    record({QStringLiteral("getReasonList")});
    return m_reasonList;
}

void RecordingMgr::setExitCode(int exitCode)
{
    record({QStringLiteral("setExitCode"), exitCode});
}

QVariantMap RecordingMgr::getPreferentialLink(int type)
{
    record({QStringLiteral("getPreferentialLink"), type});
    return m_offers.value(QString::number(type)).toMap();
}

void RecordingMgr::openLink(const QString &strUrl)
{
    record({QStringLiteral("openLink"), strUrl});
}

void RecordingMgr::sendUserInfo(const QString &w,
                                const QString &a,
                                const QString &attr,
                                const QString &src)
{
    record({QStringLiteral("sendUserInfo"), w, a, attr, src});
}

bool RecordingMgr::isKTRRunning()
{
    record({QStringLiteral("isKTRRunning")});
    return m_ktrRunning;
}

int RecordingMgr::popMsgBox(bool b, int exitCode, QWindow *parent)
{
    // A parent of its own would mean a wait of its own.
    QVariantList call{QStringLiteral("popMsgBox"), b, exitCode};
    if (parent != nullptr) {
        call.append(QVariant::fromValue<QObject *>(parent));
    }
    record(call);
    auto &loop = m_loops[parent];
    if (!loop) {
        loop = std::make_shared<QEventLoop>();
    }
    if (b) {
        return loop->exec();
    }
    loop->exit(exitCode);
    return -1;
}

bool RecordingMgr::showWindowShadow()
{
    record({QStringLiteral("showWindowShadow")});
    return m_windowShadow;
}

void RecordingMgr::note(const QString &text)
{
    record({QStringLiteral("note"), text});
}

QVariantList RecordingMgr::callsOf(const QString &name) const
{
    QVariantList found;
    for (const QVariant &call : m_calls) {
        if (call.toList().value(0).toString() == name) {
            found.append(call);
        }
    }
    return found;
}

void RecordingMgr::forgetCalls()
{
    m_calls.clear();
}

void RecordingMgr::reset()
{
    forgetCalls();
    m_reasonList = ReasonsByNumber();
    m_offers.clear();
    m_ktrRunning = false;
    m_windowShadow = false;
    setValProgress(0);
}

QVariantList RecordingMgr::calls() const
{
    return m_calls;
}

int RecordingMgr::getValProgress() const
{
    return m_valProgress;
}

void RecordingMgr::setValProgress(int value)
{
    m_valProgress = value;
    Q_EMIT sigValProgressChanged();
}
