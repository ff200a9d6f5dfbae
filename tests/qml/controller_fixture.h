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

/// The real controller, which also reports the name and arguments of every call from QML.
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
                // values[0] is the result.
                arguments.append(QVariant(method.parameterType(i), values[i + 1]).toString());
            }
            observer_(QString::fromLatin1(method.name()), arguments.join(QLatin1Char(',')));
        }
        return CUninstallMgr::qt_metacall(call, id, values);
    }

private:
    Observer observer_;
};

/// Publishes the real controller as `uninstallMgr`, and its fake environment as `fake`: tests set
/// the environment's answers and read the controller's queries to it.
class ControllerFixture : public QObject, public FakeEnvironment
{
    Q_OBJECT
    // The environment's answers
    Q_PROPERTY(QStringList running MEMBER running)
    Q_PROPERTY(QString kernelVersion MEMBER kernelVersion)
    Q_PROPERTY(bool dropShadow MEMBER dropShadow)
    Q_PROPERTY(bool configured MEMBER configured)
    Q_PROPERTY(QString defaultText MEMBER defaultText)
    Q_PROPERTY(QDate today MEMBER today)
    // The controller's queries, in order, and its exit code
    Q_PROPERTY(QVariantList asked READ asked)
    Q_PROPERTY(int exitCode READ exitCode)

public:
    /// Publishes both in this context, and creates the controller.
    void publish(QQmlContext *into)
    {
        context_ = into;
        context_->setContextProperty(QStringLiteral("fake"), this);
        reset();
    }

    /// Resets all answers and queries, and replaces the controller by a new one.
    Q_INVOKABLE void reset()
    {
        static_cast<FakeEnvironment &>(*this) = FakeEnvironment();
        calls_.clear();
        onAsked = [this](const QString &entry) {
            Q_EMIT asking(entry);
        };
        // Destroy the old one last: bindings still refer to it.
        std::unique_ptr<CUninstallMgr> controller = std::make_unique<ObservedMgr>(
            Environment(), [this](const QString &operation, const QString &arguments) {
                calls_.append(operation + QLatin1Char(' ') + arguments);
            });
        context_->setContextProperty(QStringLiteral("uninstallMgr"), controller.get());
        std::swap(controller_, controller);
    }

    /// Forgets the queries so far.
    Q_INVOKABLE void forget()
    {
        Forget();
        calls_.clear();
    }

    /// Records a note of the test among the queries, to show its place among them.
    Q_INVOKABLE void note(const QString &text)
    {
        Note(text);
    }

    /// The queries that begin with this word, without the word.
    Q_INVOKABLE QStringList askedOf(const QString &word) const
    {
        return After(word, Asked());
    }

    /// The arguments, separated by commas, of each call from QML to an operation of `uninstallMgr`.
    /// Use it only for arguments that no query shows, such as the type of an offer.
    Q_INVOKABLE QStringList calls(const QString &operation) const
    {
        return After(operation, calls_);
    }

    QVariantList asked() const
    {
        // Not as QStringList: QML reads that one again at each access, and so sees later queries.
        return {Asked().begin(), Asked().end()};
    }

    int exitCode() const
    {
        return controller_->getExitCode();
    }

Q_SIGNALS:
    /// Emitted before the environment answers a query.
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
