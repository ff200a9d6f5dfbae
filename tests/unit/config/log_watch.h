#pragma once

#include <QString>
#include <QStringList>

/// Collects the debug log while it lives.
class LogWatch
{
public:
    LogWatch()
    {
        Lines().clear();
        before_ = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &line) { Lines() << line; });
    }
    ~LogWatch()
    {
        qInstallMessageHandler(before_);
    }
    LogWatch(const LogWatch &) = delete;
    LogWatch &operator=(const LogWatch &) = delete;

    /// The lines since this was asked last.
    static QStringList NewLines()
    {
        const QStringList lines = Lines();
        Lines().clear();
        return lines;
    }

private:
    static QStringList &Lines()
    {
        static QStringList lines; // cppcheck-suppress unassignedVariable ; empty from the start
        return lines;
    }

    QtMessageHandler before_ = nullptr;
};
