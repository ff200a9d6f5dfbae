#pragma once

#include "controller/uninstall_environment.h"

#include <QDate>
#include <QMap>
#include <QStringList>

#include <functional>
#include <utility>

/// A fake of everything that the controller uses. Records what the controller asked for, in order.
class FakeEnvironment
{
public:
    /// The image names of the running processes.
    QStringList running;
    /// The next queries for a process answer these in turn, whatever `running` says; after the
    /// last one, the last one stays.
    void PollsAnswer(QList<bool> answers)
    {
        answers_ = std::move(answers);
    }

    QString kernelVersion;
    bool dropShadow = false;
    /// The remote configuration and the product facts that offers use.
    bool configured = true;
    QMap<QString, QString> texts;
    /// The text of every key that `texts` lacks; "%1" in it becomes the key.
    QString defaultText;
    QString oemName;
    QString xurlId;
    QString versionNo = QStringLiteral("18.0");
    QDate today = QDate(2026, 11, 21);

    /// Called with each entry as soon as it is recorded, before the controller gets its answer.
    std::function<void(const QString &entry)> onAsked;

    const QStringList &Asked() const
    {
        return asked_;
    }
    /// Adds an entry of the test's own, to show its place among the others.
    void Note(const QString &text)
    {
        Record(QStringLiteral("note ") + text);
    }
    void Forget()
    {
        asked_.clear();
    }

    UninstallEnvironment Environment()
    {
        UninstallEnvironment environment;
        environment.isProcessRunning = [this](const QString &name) {
            Record(QStringLiteral("ask ") + name);
            const bool answer = answers_.isEmpty() ? running.contains(name) : answers_.first();
            if (answers_.size() > 1) {
                answers_.removeFirst();
            }
            return answer;
        };
        environment.startDetached = [this](const QString &program, const QStringList &arguments) {
            Record(QStringLiteral("start %1 [%2]").arg(program, arguments.join(QLatin1Char('|'))));
        };
        environment.sleep = [this](unsigned long milliseconds) {
            Record(QStringLiteral("sleep %1").arg(milliseconds));
        };
        environment.processEvents = [this] {
            Record(QStringLiteral("pump"));
        };
        environment.kernelVersion = [this] {
            return kernelVersion;
        };
        environment.dropShadowEnabled = [this] {
            Record(QStringLiteral("shadow?"));
            return dropShadow;
        };
        environment.openUrl = [this](const QUrl &url) {
            Record(QStringLiteral("open ") + QString::fromLatin1(url.toEncoded()));
        };
        environment.sendUsageEvent = [this](const QString &window,
                                            const QString &activity,
                                            const QString &attribute,
                                            const QString &source) {
            Record(
                QStringLiteral("event [%1][%2][%3][%4]").arg(window, activity, attribute, source));
        };
        environment.offers.configured = [this] {
            return configured;
        };
        environment.offers.text = [this](const QString &key) {
            Record(QStringLiteral("text ") + key);
            return texts.value(key, QString(defaultText).replace(QLatin1String("%1"), key));
        };
        environment.offers.setVersionTag = [this](const std::string &tag) {
            Record(QStringLiteral("tag ") + QString::fromStdString(tag));
        };
        environment.offers.oemName = [this] {
            return oemName;
        };
        environment.offers.xurlId = [this] {
            return xurlId;
        };
        environment.offers.versionNo = [this] {
            return versionNo;
        };
        environment.offers.today = [this] {
            return today;
        };
        return environment;
    }

private:
    void Record(const QString &entry)
    {
        asked_ << entry;
        if (onAsked) {
            onAsked(entry);
        }
    }

    QList<bool> answers_;
    QStringList asked_;
};
