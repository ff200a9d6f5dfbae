#pragma once

#include "controller/uninstall_mgr.h"
#include "testkit/fakes/fake_environment.h"

#include <QMetaMethod>
#include <QObject>
#include <QQmlContext>
#include <QStringList>
#include <QVariantList>

#include <functional>
#include <memory>
#include <utility>

/// The real controller, which also reports every call that comes from QML: its name and arguments.
class ObservedMgr final : public CUninstallMgr
{
public:
    using Observer = std::function<void(const QString &operation, const QString &arguments)>;

    ObservedMgr(UninstallEnvironment environment, Observer observer)
        : CUninstallMgr(std::move(environment))
        , observer_(std::move(observer))
    {
    }

    int qt_metacall(QMetaObject::Call call, int id, void **values) override
    {
        if (call == QMetaObject::InvokeMetaMethod) {
            const QMetaMethod method = metaObject()->method(id);
            QStringList arguments;
            for (int i = 0; i < method.parameterCount(); ++i) {
                // The result is the first value.
                arguments.append(QVariant(method.parameterType(i), values[i + 1]).toString());
            }
            observer_(QString::fromLatin1(method.name()), arguments.join(QLatin1Char(',')));
        }
        return CUninstallMgr::qt_metacall(call, id, values);
    }

private:
    Observer observer_;
};

/// The fake environment of the controller, as `fake`: tests set what it answers and read what the
/// controller asked for. Publishes the real controller, with this environment, as `uninstallMgr`.
class ControllerFixture : public QObject, public FakeEnvironment
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
    void publish(QQmlContext *into)
    {
        context_ = into;
        context_->setContextProperty(QStringLiteral("fake"), this);
        reset();
    }

    /// Forgets what was set and asked, and replaces the controller by a new one.
    Q_INVOKABLE void reset()
    {
        static_cast<FakeEnvironment &>(*this) = FakeEnvironment();
        calls_.clear();
        onAsked = [this](const QString &entry) {
            Q_EMIT asking(entry);
        };
        // The old one goes last: bindings still refer to it.
        std::unique_ptr<CUninstallMgr> controller = std::make_unique<ObservedMgr>(
            Environment(), [this](const QString &operation, const QString &arguments) {
                calls_.append(operation + QLatin1Char(' ') + arguments);
            });
        context_->setContextProperty(QStringLiteral("uninstallMgr"), controller.get());
        std::swap(controller_, controller);
    }

    /// Forgets what was asked so far.
    Q_INVOKABLE void forget()
    {
        Forget();
        calls_.clear();
    }

    /// Adds "note" and a text of the test's own, to show its place among what was asked.
    Q_INVOKABLE void note(const QString &text)
    {
        Note(text);
    }

    /// What was asked and begins with this word, without the word.
    Q_INVOKABLE QStringList askedOf(const QString &word) const
    {
        return After(word, Asked());
    }

    /// The arguments, separated by commas, of each call of an operation of `uninstallMgr` from
    /// QML. Only for what reaches no environment, such as the type of an offer.
    Q_INVOKABLE QStringList calls(const QString &operation) const
    {
        return After(operation, calls_);
    }

    QVariantList asked() const
    {
        // Not as QStringList: QML would show the list of the moment of reading, not of asking.
        return {Asked().begin(), Asked().end()};
    }

    int exitCode() const
    {
        return controller_->getExitCode();
    }

Q_SIGNALS:
    /// The controller asks for something and waits for the answer.
    void asking(const QString &entry);

private:
    static QStringList After(const QString &word, const QStringList &entries)
    {
        QStringList found;
        for (const QString &entry : entries) {
            if (entry.startsWith(word + QLatin1Char(' '))) {
                found.append(entry.mid(word.size() + 1));
            }
        }
        return found;
    }

    QQmlContext *context_ = nullptr;
    QStringList calls_;
    std::unique_ptr<CUninstallMgr> controller_;
};
