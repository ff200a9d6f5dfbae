#pragma once

#include <QByteArray>
#include <QString>

/// How the system's task list is asked; the defaults are what the program uses.
struct TaskListQuery
{
    QString program = QStringLiteral("tasklist");
    int timeAllowedMs = 30000;
};

/// Whether the name `imageName` occurs, case-sensitively, in the UTF-8 text `output`.
bool ContainsImage(const QByteArray &output, const QString &imageName);

/// Whether the system's task list shows a process with the image name `imageName`: the name occurs,
/// case-sensitively, in what the query printed until it ended or its time was over. A query that
/// cannot be started or prints nothing counts as no. Blocks without processing events.
bool IsInTaskList(const QString &imageName, const TaskListQuery &query = {});
