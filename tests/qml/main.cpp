#include "app/appearance.h"
#include "app/language.h"
#include "controller_fixture.h"
#include "language_switch.h"
#include "ui_probe.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

/// Gives every QML engine the real controller in a fake environment, the probe and the languages.
class TestSetup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable()
    {
        QAccessible::setActive(true);
        // As in the program: both change how texts and links look.
        ApplyApplicationFont();
        ApplyLinkColour();
    }

    void qmlEngineAvailable(QQmlEngine *engine)
    {
        fake_.publish(engine->rootContext());
        engine->rootContext()->setContextProperty(QStringLiteral("probe"), &probe_);
        engine->rootContext()->setContextProperty(QStringLiteral("languages"), &languages_);
    }

private:
    ControllerFixture fake_;
    UiProbe probe_;
    LanguageSwitch languages_;
};

/// Runs the test file given with -input. Every warning aborts the run.
int main(int argc, char **argv)
{
    qputenv("QT_FATAL_WARNINGS", "1");
    qputenv("QT_FATAL_CRITICALS", "1");
    // As in the program, for screenshots at fractional scales.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    TestSetup setup;
    return quick_test_main_with_setup(argc, argv, "ktr_qml", KTR_QML_TEST_DIR, &setup);
}

#include "main.moc"
