#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Report = QHash<QString, QString>;

// What the probe found after preparing its environment in a process of its own.
Report Probe(const QString &program, const QHash<QString, QString> &variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"QT_PLUGIN_PATH",
                             "QML2_IMPORT_PATH",
                             "QT_AUTO_SCREEN_SCALE_FACTOR",
                             "QML_DISABLE_DISK_CACHE",
                             "QT_QUICK_BACKEND"}) {
        environment.remove(QLatin1String(name));
    }
    for (auto it = variables.begin(); it != variables.end(); ++it) {
        environment.insert(it.key(), it.value());
    }
    QProcess probe;
    probe.setProcessEnvironment(environment);
    probe.setWorkingDirectory(QDir::rootPath());
    probe.start(program, QStringList());
    EXPECT_TRUE(probe.waitForFinished(60000));
    EXPECT_EQ(probe.readAllStandardError(), QByteArray());

    Report report;
    const QStringList lines = QString::fromLocal8Bit(probe.readAllStandardOutput())
                                  .remove(QLatin1Char('\r'))
                                  .split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        report.insert(line.section(QLatin1Char('='), 0, 0), line.section(QLatin1Char('='), 1));
    }
    return report;
}

Report Probe(const QHash<QString, QString> &variables = {})
{
    return Probe(QStringLiteral(ENVIRONMENT_PROBE), variables);
}

TEST(Environment, ProgramDirectoryIsTheWorkingDirectoryAndALibraryPath)
{
    const Report report = Probe();
    const QString programDir = QFileInfo(QStringLiteral(ENVIRONMENT_PROBE)).absolutePath();
    EXPECT_EQ(report[QStringLiteral("working directory")], programDir);
    EXPECT_TRUE(
        report[QStringLiteral("library paths")].split(QLatin1Char(';')).contains(programDir));
}

TEST(Environment, WorksInADirectoryWithBlanksAndLettersBeyondAscii)
{
    const QTemporaryDir folder;
    const QString dir =
        QFileInfo(folder.path()).canonicalFilePath() + QString::fromUtf8("/my pr\303\266duct %1");
    ASSERT_TRUE(QDir().mkpath(dir));
    // A separator of another system is a letter of the name.
    const bool windows = QDir::separator() == QLatin1Char('\\');
    const QString program = dir + (windows ? QStringLiteral("/probe") : QStringLiteral("/pro\\be"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(ENVIRONMENT_PROBE), program));
    // The locale of somebody who has chosen none knows ASCII only; Qt takes UTF-8 then.
    for (const char *locale : {"C.UTF-8", "C", "POSIX"}) {
        const Report report =
            Probe(program, {{QStringLiteral("LC_ALL"), QString::fromLatin1(locale)}});
        EXPECT_EQ(report[QStringLiteral("working directory")], dir) << locale;
    }
}

TEST(Environment, ForeignQtPathsAreRemovedButEmptyOnesAreLeft)
{
    const QString plugins = QStringLiteral("QT_PLUGIN_PATH");
    const QString modules = QStringLiteral("QML2_IMPORT_PATH");
    const QString unset = QStringLiteral("unset");

    const Report set = Probe({{plugins, QStringLiteral("/a")}, {modules, QStringLiteral("/b")}});
    EXPECT_EQ(set[plugins], unset);
    EXPECT_EQ(set[modules], unset);

    const Report empty = Probe({{plugins, QString()}, {modules, QString()}});
    EXPECT_EQ(empty[plugins], QStringLiteral("[]"));
    EXPECT_EQ(empty[modules], QStringLiteral("[]"));

    const Report absent = Probe();
    EXPECT_EQ(absent[plugins], unset);
    EXPECT_EQ(absent[modules], unset);
}

TEST(Environment, NobodyElseChoosesPlugInsAndControls)
{
    for (const char *name : {"QT_QPA_PLATFORM_PLUGIN_PATH",
                             "QT_QUICK_CONTROLS_CONF",
                             "QT_QUICK_CONTROLS_FALLBACK_STYLE",
                             "QT_QUICK_CONTROLS_STYLE"}) {
        const QString variable = QString::fromLatin1(name);
        EXPECT_EQ(Probe({{variable, QStringLiteral("/a")}})[variable], QStringLiteral("unset"))
            << name;
    }
}

TEST(Environment, ScalesByFractionsAndTakesNoScalingFromOutside)
{
    const Report report =
        Probe({{QStringLiteral("QT_AUTO_SCREEN_SCALE_FACTOR"), QStringLiteral("1")}});
    EXPECT_EQ(report[QStringLiteral("QT_AUTO_SCREEN_SCALE_FACTOR")],
              QStringLiteral(SET_TO_NOTHING));
    EXPECT_EQ(report[QStringLiteral("scaling")], QStringLiteral("1"));
    EXPECT_EQ(report[QStringLiteral("high-density pixmaps")], QStringLiteral("1"));
    EXPECT_EQ(report[QStringLiteral("pass-through")], QStringLiteral("1"));
}

TEST(Environment, RendersInSoftwareUnlessAnotherBackendIsAskedFor)
{
    const QString backend = QStringLiteral("QT_QUICK_BACKEND");
    const QString renderer = QStringLiteral("renderer");
    EXPECT_EQ(Probe()[renderer], QStringLiteral("software"));
    EXPECT_EQ(Probe({{backend, QString()}})[renderer], QStringLiteral("software"));
    EXPECT_NE(Probe({{backend, QStringLiteral("rhi")}})[renderer], QStringLiteral("software"));
}

TEST(Environment, LeavesNoCompiledQmlOnDisk)
{
    const QString disable = QStringLiteral("QML_DISABLE_DISK_CACHE");
    const QString force = QStringLiteral("QML_FORCE_DISK_CACHE");
    EXPECT_EQ(Probe()[disable], QStringLiteral("[1]"));
    EXPECT_EQ(Probe({{force, QStringLiteral("1")}})[force], QStringLiteral("unset"));
}

} // namespace
