#include "fake_world.h"

#include <utility>

void FakeWorld::publish(QQmlContext *into)
{
    m_context = into;
    m_context->setContextProperty(QStringLiteral("fake"), this);
    reset();
}

void FakeWorld::reset()
{
    static_cast<FakeEnvironment &>(*this) = FakeEnvironment();
    onAsked = [this](const QString &entry) {
        Q_EMIT asking(entry);
    };
    // The old one goes last: bindings still refer to it.
    auto controller = std::make_unique<CUninstallMgr>(Environment());
    m_context->setContextProperty(QStringLiteral("uninstallMgr"), controller.get());
    std::swap(m_controller, controller);
}

void FakeWorld::forget()
{
    Forget();
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

QVariantList FakeWorld::asked() const
{
    // Not as QStringList: QML would show the list of the moment of reading, not of asking.
    return {Asked().begin(), Asked().end()};
}

int FakeWorld::exitCode() const
{
    return m_controller->getExitCode();
}
