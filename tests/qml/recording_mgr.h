#pragma once

#include <QEventLoop>
#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>
#include <QWindow>

#include <memory>

/// Stands in for the controller under the name `uninstallMgr`: it answers what a test told it to
/// answer and records every call in order, as lists of the name and the arguments. The wait of a
/// message box is a real nested event loop, one per window.
class RecordingMgr : public QObject
{
    Q_OBJECT
    Q_PROPERTY(
        int valProgress READ getValProgress WRITE setValProgress NOTIFY sigValProgressChanged)
    // What the calls answer
    Q_PROPERTY(QVariantList reasonList MEMBER m_reasonList)
    Q_PROPERTY(QVariantMap offers MEMBER m_offers)
    Q_PROPERTY(bool ktrRunning MEMBER m_ktrRunning)
    Q_PROPERTY(bool windowShadow MEMBER m_windowShadow)
    // What was called
    Q_PROPERTY(QVariantList calls READ calls)

public:
    /// Answers with every reason that the controller knows, by their numbers.
    RecordingMgr();

    Q_INVOKABLE void doUninstall();
    Q_INVOKABLE QVariantList getReasonList();
    Q_INVOKABLE void setExitCode(int exitCode);
    Q_INVOKABLE QVariantMap getPreferentialLink(int type);
    Q_INVOKABLE void openLink(const QString &strUrl);
    Q_INVOKABLE void sendUserInfo(const QString &w,
                                  const QString &a,
                                  const QString &attr = QString(),
                                  const QString &src = QString());
    Q_INVOKABLE bool isKTRRunning();
    Q_INVOKABLE int popMsgBox(bool b, int exitCode = -1, QWindow *parent = nullptr);
    Q_INVOKABLE bool showWindowShadow();

    /// Adds an entry of the test's own, so that its place among the calls shows.
    Q_INVOKABLE void note(const QString &text);
    /// The recorded calls of one name.
    Q_INVOKABLE QVariantList callsOf(const QString &name) const;
    /// Forgets the calls so far.
    Q_INVOKABLE void forgetCalls();
    /// Forgets the calls and puts the answers back to what they are at the start.
    Q_INVOKABLE void reset();

    QVariantList calls() const;
    int getValProgress() const;
    void setValProgress(int value);

Q_SIGNALS:
    void sigValProgressChanged();
    /// Emitted from inside doUninstall, so that a test sees the page in that moment.
    void uninstallStarted();

private:
    void record(const QVariantList &call);

    QVariantList m_calls;
    QVariantList m_reasonList;
    QVariantMap m_offers;
    bool m_ktrRunning = false;
    bool m_windowShadow = false;
    int m_valProgress = 0;
    QMap<QWindow *, std::shared_ptr<QEventLoop>> m_loops;
};
