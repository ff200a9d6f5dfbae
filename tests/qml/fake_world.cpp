#include "fake_world.h"

#include <QMetaMethod>
#include <QVariant>

#include <functional>
#include <utility>

namespace {

using Noted = std::function<void(const QString &operation, const QString &arguments)>;

/// The real controller, which also reports every call that comes from QML.
class ObservedMgr final : public CUninstallMgr
{
public:
    ObservedMgr(UninstallEnvironment environment, Noted noted)
        : CUninstallMgr(std::move(environment))
        , m_noted(std::move(noted))
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
            m_noted(QString::fromLatin1(method.name()), arguments.join(QLatin1Char(',')));
        }
        return CUninstallMgr::qt_metacall(call, id, values);
    }

private:
    Noted m_noted;
};

} // namespace

void FakeWorld::publish(QQmlContext *into)
{
    m_context = into;
    m_context->setContextProperty(QStringLiteral("fake"), this);
    reset();
}

void FakeWorld::reset()
{
    static_cast<FakeEnvironment &>(*this) = FakeEnvironment();
    m_calls.clear();
    onAsked = [this](const QString &entry) {
        Q_EMIT asking(entry);
    };
    // The old one goes last: bindings still refer to it.
    std::unique_ptr<CUninstallMgr> controller = std::make_unique<ObservedMgr>(
        Environment(), [this](const QString &operation, const QString &arguments) {
            m_calls.append({operation, arguments});
        });
    m_context->setContextProperty(QStringLiteral("uninstallMgr"), controller.get());
    std::swap(m_controller, controller);
}

void FakeWorld::forget()
{
    Forget();
    m_calls.clear();
}

void FakeWorld::note(const QString &text)
{
    Note(text);
}

QStringList FakeWorld::askedOf(const QString &word) const
{
    const QString start = word + QLatin1Char(' ');
    QStringList found;
    for (const QString &entry : Asked()) {
        if (entry.startsWith(start)) {
            found.append(entry.mid(start.size()));
        }
    }
    return found;
}

QStringList FakeWorld::calls(const QString &operation) const
{
    QStringList found;
    for (const auto &[name, arguments] : m_calls) {
        if (name == operation) {
            found.append(arguments);
        }
    }
    return found;
}

QVariantList FakeWorld::asked() const
{
    // Not as QStringList: QML would show the list of the moment of reading, not of asking.
    return {Asked().begin(), Asked().end()};
}

int FakeWorld::exitCode() const
{
    return m_controller->getExitCode();
}
