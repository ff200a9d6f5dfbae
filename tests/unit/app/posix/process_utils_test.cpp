#include "app/process_utils.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/resource.h>

namespace {

/// While it lives, nothing more can be opened.
class NothingOpens
{
public:
    NothingOpens()
    {
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &before_), 0);
        rlimit none = before_;
        none.rlim_cur = 0;
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    }
    ~NothingOpens()
    {
        ::setrlimit(RLIMIT_NOFILE, &before_);
    }
    NothingOpens(const NothingOpens &) = delete;
    NothingOpens &operator=(const NothingOpens &) = delete;
    NothingOpens(NothingOpens &&) = delete;
    NothingOpens &operator=(NothingOpens &&) = delete;

private:
    rlimit before_ = {};
};

TEST(ProcessesOfTheSystem, WithoutTheirListNothingIsEnded)
{
    const QTemporaryDir temporary;
    const QString folder = QFileInfo(temporary.path()).canonicalFilePath();
    const QString program = folder + QStringLiteral("/helper.exe");
    ASSERT_TRUE(QFile::copy(QStringLiteral(APP_CHILD), program));
    QProcess helper;
    helper.start(program, QStringList());
    ASSERT_TRUE(helper.waitForReadyRead(60000));

    {
        const NothingOpens limit;
        EXPECT_FALSE(KillProcessInDir(L"helper.exe", folder.toStdWString()));
    }
    EXPECT_FALSE(helper.waitForFinished(0));
    EXPECT_TRUE(KillProcessInDir(L"helper.exe", folder.toStdWString()));
    EXPECT_TRUE(helper.waitForFinished(60000));
}

} // namespace
