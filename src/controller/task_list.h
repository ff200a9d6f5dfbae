#pragma once

#include <QByteArray>
#include <QString>

/// The query for the system's task list; the defaults are what the program uses.
struct TaskListQuery
{
    QString program = QStringLiteral("tasklist");
    int timeAllowedMs = 30000;
};

/// Whether `imageName` occurs, case-sensitively, in the UTF-8 text `output`.
bool ContainsImage(const QByteArray &output, const QString &imageName);

/// Whether the system's task list contains `imageName`: whether the query's output contains it when
/// the query ends or its time is over. False when the query cannot be started or prints nothing.
/// Blocks without processing events.
bool IsInTaskList(const QString &imageName, const TaskListQuery &query = {});
