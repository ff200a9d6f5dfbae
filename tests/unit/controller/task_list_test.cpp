#include "controller/task_list.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>

namespace {

// Real programs stand for the system's query: shell scripts written for each case.
class TaskList : public testing::Test
{
protected:
    TaskListQuery Query(const char *script, int timeAllowedMs = 60000)
    {
        TaskListQuery query;
        query.program = folder_.filePath(QStringLiteral("tasklist"));
        query.timeAllowedMs = timeAllowedMs;
        QFile file(query.program);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("#!/bin/sh\n");
        file.write(script);
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        return query;
    }

    QString ReadFile(const QString &name)
    {
        QFile file(folder_.filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    static bool Shows(const TaskListQuery &query)
    {
        return TaskListShows(QStringLiteral("KTRUI.exe"), query);
    }

    QTemporaryDir folder_;
};

TEST_F(TaskList, TheProgramAsksTheSystemForHalfAMinute)
{
    const TaskListQuery query;
    EXPECT_EQ(query.program, QStringLiteral("tasklist"));
    EXPECT_EQ(query.timeAllowedMs, 30000);
}

TEST_F(TaskList, PassesItsArgumentsInOrder)
{
    const TaskListQuery query =
        Query("for a in \"$@\"; do printf '[%s]' \"$a\"; done > \"$(dirname \"$0\")/args\"\n");
    EXPECT_FALSE(TaskListShows(QStringLiteral("a b%1.exe"), query));
    EXPECT_EQ(ReadFile(QStringLiteral("args")),
              QStringLiteral("[/NH][/FO][CSV][/FI][IMAGENAME eq a b%1.exe]"));
}

TEST_F(TaskList, FindsTheNameAnywhereInTheOutput)
{
    EXPECT_TRUE(Shows(Query("printf '\"KTRUI.exe\",\"12\",\"Console\",\"1\",\"9 K\"\\r\\n'\n")));
    EXPECT_TRUE(Shows(Query("printf 'xxKTRUI.exexx'\n")));
}

TEST_F(TaskList, ComparesLettersExactly)
{
    EXPECT_FALSE(Shows(Query("echo '\"ktrui.exe\",\"12\"'\n")));
    EXPECT_FALSE(Shows(Query("echo '\"KTRUI.EXE\",\"12\"'\n")));
}

TEST_F(TaskList, NoMatchingTaskIsNo)
{
    EXPECT_FALSE(
        Shows(Query("echo 'INFO: No tasks are running which match the specified criteria.'\n")));
    EXPECT_FALSE(Shows(Query("exit 0\n")));
}

TEST_F(TaskList, CountsByItsOutputWhateverWayItEnded)
{
    EXPECT_TRUE(Shows(Query("echo KTRUI.exe; exit 1\n")));
    EXPECT_TRUE(Shows(Query("echo KTRUI.exe; kill -9 $$\n")));
    EXPECT_FALSE(Shows(Query("exit 1\n")));
}

TEST_F(TaskList, StandardErrorDoesNotCount)
{
    EXPECT_FALSE(Shows(Query("echo KTRUI.exe >&2\n")));
}

TEST_F(TaskList, AQueryThatCannotBeStartedIsNo)
{
    TaskListQuery query;
    query.program = folder_.filePath(QStringLiteral("missing"));
    EXPECT_FALSE(Shows(query));
}

TEST_F(TaskList, DecodesUtf8)
{
    const TaskListQuery query = Query("printf '\"\\303\\234n\\303\\257.exe\",\"1\"'\n");
    EXPECT_TRUE(TaskListShows(QString::fromUtf8("\303\234n\303\257.exe"), query));
}

TEST_F(TaskList, ReadsTenMebibytesWithoutADeadlock)
{
    const char *const padding = "head -c 10485760 /dev/zero | tr '\\0' x\n";
    EXPECT_TRUE(
        Shows(Query(qPrintable(QLatin1String(padding) + QLatin1String("echo KTRUI.exe\n")))));
    EXPECT_FALSE(Shows(Query(padding)));
}

TEST_F(TaskList, AQueryThatHangsIsEndedWhenItsTimeIsOver)
{
    const TaskListQuery query =
        Query("echo $$ > \"$(dirname \"$0\")/pid.new\"; mv \"$(dirname \"$0\")/pid.new\" "
              "\"$(dirname \"$0\")/pid\"; exec sleep 600\n",
              3000);
    QElapsedTimer elapsed;
    elapsed.start();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Shows(query));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_GE(elapsed.elapsed(), 2900);
    const int pid = ReadFile(QStringLiteral("pid")).toInt();
    ASSERT_GT(pid, 0);
    EXPECT_NE(::kill(pid, 0), 0) << "the query outlived its time";
}

TEST_F(TaskList, WhatAHangingQueryHasPrintedCounts)
{
    EXPECT_TRUE(Shows(Query("echo KTRUI.exe; exec sleep 600\n", 3000)));
}

} // namespace
