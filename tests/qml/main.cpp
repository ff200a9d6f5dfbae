#include "app/appearance.h"
#include "app/language.h"
#include "fake_world.h"
#include "language_switch.h"
#include "ui_probe.h"
#include "warning_watch.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

#include <cstdio>
#include <memory>

/// Prepares each run of a test file: the application's warnings are watched, and every engine gets
/// the real controller in a fake environment, the probe and the languages.
class TestSetup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable()
    {
        QCoreApplication::instance()->installEventFilter(&m_watch);
        QAccessible::setActive(true);
        // As in the program: both decide how texts and links look.
        ApplyApplicationFont();
        ApplyLinkColour();
    }

    void qmlEngineAvailable(QQmlEngine *engine)
    {
        m_fake.publish(engine->rootContext());
        engine->rootContext()->setContextProperty(QStringLiteral("probe"), &m_probe);
        engine->rootContext()->setContextProperty(QStringLiteral("languages"), &m_languages);
    }

private:
    WarningWatch m_watch;
    FakeWorld m_fake;
    UiProbe m_probe;
    LanguageSwitch m_languages;
};

/// Runs the test file given with -input; fails on a failed test and on any warning.
int main(int argc, char **argv)
{
    // As in the program, for pictures at scales between the whole ones.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    TestSetup setup;
    const int result = quick_test_main_with_setup(argc, argv, "ktr_qml", KTR_QML_TEST_DIR, &setup);
    const QStringList warnings = WarningWatch::warnings();
    for (const QString &warning : warnings) {
        std::fprintf(stderr, "unexpected warning: %s\n", qPrintable(warning));
    }
    return warnings.isEmpty() ? result : 1;
}

#include "main.moc"
