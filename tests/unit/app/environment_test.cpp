#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Variables = QMap<QString, QString>;

// Runs the probe, which prepares its environment, and returns its report. A variable that is not
// set has no entry.
Variables Probe(const Variables &given, const QString &program = ENVIRONMENT_PROBE)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : environment.keys()) {
        if (name.startsWith("QT_") || name.startsWith("QML")) {
            environment.remove(name);
        }
    }
    for (auto it = given.begin(); it != given.end(); ++it) {
        environment.insert(it.key(), it.value());
    }
    QProcess probe;
    probe.setProcessEnvironment(environment);
    probe.setWorkingDirectory(QDir::rootPath());
    probe.start(program, QStringList());
    EXPECT_TRUE(probe.waitForFinished(60000));
    EXPECT_EQ(probe.readAllStandardError(), QByteArray());
    Variables report;
    for (const QString &line :
         QString::fromUtf8(probe.readAllStandardOutput()).remove('\r').split('\n')) {
        report.insert(line.section('=', 0, 0), line.section('=', 1));
    }
    return report;
}

void ExpectFacts(const Variables &given, const Variables &facts)
{
    const Variables report = Probe(given);
    for (auto it = facts.begin(); it != facts.end(); ++it) {
        EXPECT_EQ(report[it.key()], it.value()) << it.key().toStdString();
    }
}

TEST(Environment, ProgramDirectoryIsTheWorkingDirectoryAndALibraryPath)
{
    const Variables report = Probe({});
    const QString programDir = QFileInfo(ENVIRONMENT_PROBE).absolutePath();
    EXPECT_EQ(report["working directory"], programDir);
    EXPECT_TRUE(report["library paths"].contains(';' + programDir + ';'));
}

TEST(Environment, WorksInADirectoryWithSpacesAndNonAsciiLetters)
{
    const QTemporaryDir folder;
    const QString dir = QFileInfo(folder.path()).canonicalFilePath() +
                        QString("/my pr\303\266duct \346\227\245 %1");
    ASSERT_TRUE(QDir().mkpath(dir));
    // On Linux a backslash is an ordinary character of a file name.
    const bool windows = QDir::separator() == '\\';
    const QString program = dir + (windows ? "/probe" : "/pro\\be");
    ASSERT_TRUE(QFile::copy(ENVIRONMENT_PROBE, program));
    // The default locale knows ASCII only; Qt takes UTF-8 then.
    for (const char *locale : {"C.UTF-8", "C", "POSIX"}) {
        EXPECT_EQ(Probe({{"LC_ALL", locale}}, program)["working directory"], dir) << locale;
    }
}

TEST(Environment, ForeignQtPathsAreRemovedButEmptyOnesAreLeft)
{
    ExpectFacts({{"QT_PLUGIN_PATH", "/a"}, {"QML2_IMPORT_PATH", "/b"}},
                {{"QT_PLUGIN_PATH", ""}, {"QML2_IMPORT_PATH", ""}});
    ExpectFacts({{"QT_PLUGIN_PATH", ""}, {"QML2_IMPORT_PATH", ""}},
                {{"QT_PLUGIN_PATH", "[]"}, {"QML2_IMPORT_PATH", "[]"}});
}

TEST(Environment, VariablesForPluginsStyleScalingAndDiskCacheHaveNoEffect)
{
    const Variables own = {{"QT_PLUGIN_PATH", ""},
                           {"QML2_IMPORT_PATH", ""},
                           {"QT_QPA_PLATFORM_PLUGIN_PATH", ""},
                           {"QT_QUICK_CONTROLS_CONF", ""},
                           {"QT_QUICK_CONTROLS_FALLBACK_STYLE", ""},
                           {"QT_QUICK_CONTROLS_STYLE", ""},
                           {"QT_AUTO_SCREEN_SCALE_FACTOR", SET_TO_NOTHING},
                           {"QML_DISABLE_DISK_CACHE", "[1]"},
                           {"QML_FORCE_DISK_CACHE", ""},
                           {"scaling", "1"},
                           {"high-density pixmaps", "1"},
                           {"pass-through", "1"},
                           {"renderer", "software"}};
    ExpectFacts({}, own);
    ExpectFacts({{"QT_QPA_PLATFORM_PLUGIN_PATH", "/a"},
                 {"QT_QUICK_CONTROLS_CONF", "/a"},
                 {"QT_QUICK_CONTROLS_FALLBACK_STYLE", "/a"},
                 {"QT_QUICK_CONTROLS_STYLE", "/a"},
                 {"QT_AUTO_SCREEN_SCALE_FACTOR", "1"},
                 {"QML_FORCE_DISK_CACHE", "1"},
                 {"QT_QUICK_BACKEND", ""}},
                own);
}

TEST(Environment, AnExplicitBackendWins)
{
    EXPECT_NE(Probe({{"QT_QUICK_BACKEND", "rhi"}})["renderer"], "software");
}

} // namespace
