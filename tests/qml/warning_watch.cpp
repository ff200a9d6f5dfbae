#include "warning_watch.h"

#include <QtGlobal>

namespace {

QStringList g_warnings;
QtMessageHandler g_next = nullptr;

void Record(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        g_warnings.append(message);
    }
    if (g_next != nullptr) {
        g_next(type, context, message);
    }
}

void StepInFront()
{
    const QtMessageHandler current = qInstallMessageHandler(Record);
    if (current != Record) {
        g_next = current;
    }
}

} // namespace

WarningWatch::WarningWatch()
{
    StepInFront();
}

WarningWatch::~WarningWatch()
{
    qInstallMessageHandler(g_next);
}

QStringList WarningWatch::warnings()
{
    return g_warnings;
}

bool WarningWatch::eventFilter(QObject *watched, QEvent *event)
{
    StepInFront();
    return QObject::eventFilter(watched, event);
}
