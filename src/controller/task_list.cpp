#include "controller/task_list.h"

#include <QProcess>
#include <QStringList>

bool ContainsImage(const QByteArray &output, const QString &imageName)
{
    // Pass the size: the output may contain NUL bytes.
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
    // Qt warns when a process object is destroyed while its process runs.
    constexpr int kKillGraceMs = 1000;
    tasklist.kill();
    tasklist.waitForFinished(kKillGraceMs);
    return ContainsImage(output, imageName);
}
