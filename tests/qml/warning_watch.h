#pragma once

#include <QObject>
#include <QStringList>

/// Records every warning and critical message of the run, beside whatever handler is in charge:
/// the test library puts its own in place when the first test starts, so this one steps in front
/// again at the next event.
class WarningWatch : public QObject
{
    Q_OBJECT

public:
    /// Starts watching; call before the application object exists. One watch per process.
    WarningWatch();
    /// Hands the messages back to the handler before.
    ~WarningWatch() override;
    WarningWatch(const WarningWatch &) = delete;
    WarningWatch &operator=(const WarningWatch &) = delete;
    WarningWatch(WarningWatch &&) = delete;
    WarningWatch &operator=(WarningWatch &&) = delete;

    /// What was reported so far.
    static QStringList warnings();

    bool eventFilter(QObject *watched, QEvent *event) override;
};
