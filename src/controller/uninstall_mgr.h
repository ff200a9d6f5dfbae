#pragma once

#include "controller/uninstall_environment.h"

#include <QEventLoop>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVariantList>
#include <QVariantMap>
#include <QWindow>

#include <map>
#include <set>

/// The one native object that the user interface knows, published to QML as `uninstallMgr`. No
/// operation throws or reports an error; a failure ends in a neutral result. GUI thread only; some
/// operations block it deliberately, as they say.
class CUninstallMgr : public QObject
{
    Q_OBJECT
    Q_PROPERTY(
        int valProgress READ getValProgress WRITE setValProgress NOTIFY sigValProgressChanged)

public:
    /// Tests pass an environment of their own.
    explicit CUninstallMgr(UninstallEnvironment environment = UninstallEnvironment::System());

    /// Starts the product's uninstaller silently, then the progress timer. Returns when the
    /// uninstaller has been seen in the task list, or after 25 polls without it, in which case the
    /// progress stays where it is; processes events between the polls.
    Q_INVOKABLE void doUninstall();

    /// Reason codes in the order in which to show them: 1 to 3 shuffled, then 4.
    Q_INVOKABLE QVariantList getReasonList();

    /// Stores the exit code.
    Q_INVOKABLE void setExitCode(int exitCode);

    /// The offer of a type (1 to 4) with "expired", "price" and "url". Empty only if the
    /// configuration client could not be created; without its library, price is empty and url holds
    /// at most the download id.
    Q_INVOKABLE QVariantMap getPreferentialLink(int type);

    /// Opens the link in the user's default handler; an empty text does nothing.
    Q_INVOKABLE void openLink(const QString &strUrl);

    /// Records one usage event: window, activity, attribute, source.
    Q_INVOKABLE void sendUserInfo(const QString &w,
                                  const QString &a,
                                  const QString &attr = QString(),
                                  const QString &src = QString());

    /// Whether the product's own window process runs. Blocks for one task-list query.
    Q_INVOKABLE bool isKTRRunning();

    /// With `b`, waits in a nested event loop until the same call without `b` ends it, and returns
    /// that call's `exitCode`; -1 at once when that wait runs already. Without `b`, ends the wait
    /// and returns -1. Each `parent` has a wait of its own.
    Q_INVOKABLE int popMsgBox(bool b, int exitCode = -1, QWindow *parent = nullptr);

    /// Whether the window should draw a drop shadow of its own.
    Q_INVOKABLE bool showWindowShadow();

    /// What the user interface stored with `setExitCode`; -10 until then.
    int getExitCode() const;

    /// Whether the task list shows a process of this image name. Blocks for one task-list query.
    bool isProcessRunning(const QString &imageName);

    int getValProgress() const;
    /// Stores the value and emits `sigValProgressChanged`, also when it did not change.
    void setValProgress(int value);

Q_SIGNALS:
    void sigValProgressChanged();

private Q_SLOTS:
    void slotTimeOut();

private:
    QWindow *defaultParentWindow = nullptr;
    std::map<QWindow *, QEventLoop> eventLoops; // one for each parent, never removed
    int valProgress = 0;
    int exitCode = -10;
    bool configPrefixApplied = false;
    QTimer progressTimer;

    std::set<QWindow *> waiting_; // whose loop has not returned yet
    UninstallEnvironment environment_;
};
