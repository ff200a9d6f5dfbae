#pragma once

#include "controller/uninstall_environment.h"

#include <QDate>
#include <QMap>
#include <QStringList>

#include <utility>

/// A fake of everything that the controller uses. Records what the controller asked for, in order.
class FakeEnvironment
{
public:
    /// The next polls answer these in turn; after the last one, the last one stays.
    void PollsAnswer(QList<bool> answers)
    {
        answers_ = std::move(answers);
    }

    QString kernelVersion;
    bool dropShadow = false;
    /// The remote configuration and the facts that offers are made of.
    bool configured = true;
    QMap<QString, QString> texts;
    QString oemName;
    QString xurlId;
    QString versionNo = QStringLiteral("18.0");
    QDate today = QDate(2026, 11, 21);

    const QStringList &Asked() const
    {
        return asked_;
    }
    void Forget()
    {
        asked_.clear();
    }

    UninstallEnvironment Environment()
    {
        UninstallEnvironment environment;
        environment.isProcessRunning = [this](const QString &name) {
            asked_ << QStringLiteral("ask ") + name;
            const bool answer = !answers_.isEmpty() && answers_.first();
            if (answers_.size() > 1) {
                answers_.removeFirst();
            }
            return answer;
        };
        environment.startDetached = [this](const QString &program, const QStringList &arguments) {
            asked_
                << QStringLiteral("start %1 [%2]").arg(program, arguments.join(QLatin1Char('|')));
        };
        environment.sleep = [this](unsigned long milliseconds) {
            asked_ << QStringLiteral("sleep %1").arg(milliseconds);
        };
        environment.processEvents = [this] {
            asked_ << QStringLiteral("pump");
        };
        environment.kernelVersion = [this] {
            return kernelVersion;
        };
        environment.dropShadowEnabled = [this] {
            asked_ << QStringLiteral("shadow?");
            return dropShadow;
        };
        environment.openUrl = [this](const QUrl &url) {
            asked_ << QStringLiteral("open ") + QString::fromLatin1(url.toEncoded());
        };
        environment.sendUsageEvent = [this](const QString &window,
                                            const QString &activity,
                                            const QString &attribute,
                                            const QString &source) {
            asked_ << QStringLiteral("event [%1][%2][%3][%4]")
                          .arg(window, activity, attribute, source);
        };
        environment.offers.configured = [this] {
            return configured;
        };
        environment.offers.text = [this](const QString &key) {
            asked_ << QStringLiteral("text ") + key;
            return texts.value(key);
        };
        environment.offers.setVersionTag = [this](const std::string &tag) {
            asked_ << QStringLiteral("tag ") + QString::fromStdString(tag);
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
    QList<bool> answers_;
    QStringList asked_;
};
