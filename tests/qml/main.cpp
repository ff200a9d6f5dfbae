#include "app/appearance.h"
#include "app/language.h"
#include "fake_world.h"
#include "language_switch.h"
#include "ui_probe.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

#include <cstdio>
#include <utility>

namespace {

QStringList warnings;
QtMessageHandler nextHandler = nullptr;

void Record(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        warnings.append(message);
    }
    if (nextHandler != nullptr) {
        nextHandler(type, context, message);
    }
}

// Qt Test installs its own handler when the first test starts, so this is repeated at every event.
void WatchWarnings()
{
    const QtMessageHandler current = qInstallMessageHandler(Record);
    if (current != Record) {
        nextHandler = current;
    }
}

} // namespace

/// Prepares the run of a test file: warnings are recorded, and every engine gets the real
/// controller in a fake environment, the probe and the languages.
class TestSetup : public QObject
{
    Q_OBJECT

public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        WatchWarnings();
        return QObject::eventFilter(watched, event);
    }

public Q_SLOTS:
    void applicationAvailable()
    {
        QCoreApplication::instance()->installEventFilter(this);
        QAccessible::setActive(true);
        // As in the program: both decide how texts and links look.
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
    FakeWorld fake_;
    UiProbe probe_;
    LanguageSwitch languages_;
};

/// Runs the test file given with -input; fails on a failed test and on any warning.
int main(int argc, char **argv)
{
    WatchWarnings();
    // As in the program, for images at scales between the whole ones.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    TestSetup setup;
    const int result = quick_test_main_with_setup(argc, argv, "ktr_qml", KTR_QML_TEST_DIR, &setup);
    qInstallMessageHandler(nullptr);
    for (const QString &warning : std::as_const(warnings)) {
        std::fprintf(stderr, "unexpected warning: %s\n", qPrintable(warning));
    }
    return warnings.isEmpty() ? result : 1;
}

#include "main.moc"
