#pragma once

#include "tests/unit/platform/support/system.h"

#include <QString>
#include <QStringList>

#include <utility>

/// Collects the debug log while it lives.
class LogWatch
{
public:
    LogWatch()
    {
        Lines().clear();
        const auto before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &line) { Lines() << line; });
        end_ = contract::AtEnd([before] { qInstallMessageHandler(before); });
    }

    /// The lines since the last call.
    static QStringList NewLines()
    {
        return std::exchange(Lines(), {});
    }

private:
    static QStringList &Lines()
    {
        static QStringList lines; // cppcheck-suppress unassignedVariable ; empty from the start
        return lines;
    }

    contract::Held end_;
};
