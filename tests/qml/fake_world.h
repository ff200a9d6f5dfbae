#pragma once

#include "controller/uninstall_mgr.h"
#include "testkit/fakes/fake_environment.h"

#include <QList>
#include <QObject>
#include <QPair>
#include <QQmlContext>
#include <QStringList>
#include <QVariantList>

#include <memory>

/// The fake environment of the controller, as `fake`: tests set what it answers and read what the
/// controller asked for. Publishes the real controller, with this environment, as `uninstallMgr`.
class FakeWorld : public QObject, public FakeEnvironment
{
    Q_OBJECT
    // What the environment answers
    Q_PROPERTY(QStringList running MEMBER running)
    Q_PROPERTY(QString kernelVersion MEMBER kernelVersion)
    Q_PROPERTY(bool dropShadow MEMBER dropShadow)
    Q_PROPERTY(bool configured MEMBER configured)
    Q_PROPERTY(QString defaultText MEMBER defaultText)
    Q_PROPERTY(QDate today MEMBER today)
    // What the controller asked for, in order, and the exit code that it holds
    Q_PROPERTY(QVariantList asked READ asked)
    Q_PROPERTY(int exitCode READ exitCode)

public:
    /// Publishes into this context from now on, a controller included.
    void publish(QQmlContext *into);

    /// Forgets what was set and asked, and replaces the controller by a new one.
    Q_INVOKABLE void reset();
    /// Forgets what was asked so far.
    Q_INVOKABLE void forget();
    /// Adds "note" and a text of the test's own, to show its place among what was asked.
    Q_INVOKABLE void note(const QString &text);
    /// What was asked and begins with this word, without the word.
    Q_INVOKABLE QStringList askedOf(const QString &word) const;
    /// The arguments, separated by commas, of each call of an operation of `uninstallMgr` from
    /// QML. Only for what reaches no environment, such as the type of an offer.
    Q_INVOKABLE QStringList calls(const QString &operation) const;

    QVariantList asked() const;
    int exitCode() const;

Q_SIGNALS:
    /// The controller asks for something and waits for the answer.
    void asking(const QString &entry);

private:
    QQmlContext *m_context = nullptr;
    QList<QPair<QString, QString>> m_calls;
    std::unique_ptr<CUninstallMgr> m_controller;
};
