#include "controller/task_list.h"

#include <QProcess>
#include <QStringList>

namespace {

// A process object that is destroyed while its process runs complains on standard error.
void EndQuietly(QProcess &process)
{
    constexpr int kKillGraceMs = 1000;
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished(kKillGraceMs);
    }
}

} // namespace

bool ContainsImage(const QByteArray &output, const QString &imageName)
{
    // With its length: a zero byte does not end it.
    const QString text = QString::fromUtf8(output.constData(), output.size());
    return text.contains(imageName, Qt::CaseSensitive);
}

bool IsInTaskList(const QString &imageName, const TaskListQuery &query)
{
    const QStringList arguments = {QStringLiteral("/NH"),
                                   QStringLiteral("/FO"),
                                   QStringLiteral("CSV"),
                                   QStringLiteral("/FI"),
                                   QStringLiteral("IMAGENAME eq %1").arg(imageName)};
    QProcess tasklist;
    tasklist.start(query.program, arguments, QIODevice::ReadWrite);
    tasklist.waitForFinished(query.timeAllowedMs);
    const QByteArray output = tasklist.readAllStandardOutput();
    EndQuietly(tasklist);
    return ContainsImage(output, imageName);
}
