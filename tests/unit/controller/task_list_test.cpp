#include "controller/task_list.h"

#include "tests/unit/config/log_watch.h"
#include "tests/unit/controller/fake_task_list.h"
#include "tests/unit/controller/object_watch.h"
#include "tests/unit/platform/support/child.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

// Queries a fake `tasklist` with the answer that each test sets. With `silent` it does not list
// the processes of the machine.
class TaskList : public testing::Test
{
protected:
    // This file makes the folder a sandbox: a hanging fake ends when the folder is removed.
    TaskList()
    {
        contract::WriteFile(folder_ / "sandbox.mark", "a test of the task list");
    }

    TaskListQuery Query(const std::string &settings, int timeAllowedMs = 60000)
    {
        fake_.Tell(settings);
        TaskListQuery query;
        query.program = QString::fromStdString(fake_.Program().u8string());
        query.timeAllowedMs = timeAllowedMs;
        return query;
    }

    static bool Shows(const TaskListQuery &query)
    {
        return IsInTaskList("KTRUI.exe", query);
    }

    contract::ScratchFolder folder_;
    FakeTaskList fake_{folder_.Path(), contract::UniqueName("query")};
};

TEST_F(TaskList, AQueryMayTakeHalfAMinute)
{
    const TaskListQuery query;
    EXPECT_EQ(query.program, "tasklist");
    EXPECT_EQ(query.timeAllowedMs, 30000);
}

TEST_F(TaskList, PassesItsArgumentsInOrder)
{
    EXPECT_FALSE(IsInTaskList("a b%1.exe", Query("silent=1\nnote=1\n")));
    EXPECT_EQ(contract::ReadFile(folder_ / "journal.log"),
              fake_.Program().filename().string() +
                  "\tquery\targs=[/NH][/FO][CSV][/FI][IMAGENAME eq a b%251.exe]\tfound=\n");
}

TEST_F(TaskList, OpensTheQueryForReadingAndWriting)
{
    QIODevice::OpenMode mode;
    // Starting it creates objects that watch its pipes.
    const ObjectWatch watch([&mode](const ObjectWatch &objects) {
        for (const auto &[number, process] : objects.Existing<QProcess>()) {
            mode |= process->openMode();
        }
    });
    Shows(Query("silent=1\n"));
    EXPECT_EQ(mode, QIODevice::ReadWrite);
}

TEST_F(TaskList, ProcessesNoEvents)
{
    bool processed = false;
    QTimer::singleShot(0, [&processed] { processed = true; });
    Shows(Query("silent=1\n"));
    EXPECT_FALSE(processed);
    QCoreApplication::processEvents();
    EXPECT_TRUE(processed);
}

struct Answer
{
    const char *settings;
    bool shown;
};

TEST_F(TaskList, FindsTheExactNameAnywhereInTheOutputWhateverTheExit)
{
    for (const Answer &answer : {Answer{"show=KTRUI.exe\n", true}, // a line of the list
                                 {"silent=1\nsay=xxKTRUI.exexx\n", true},
                                 // The list itself ignores the case.
                                 {"root=nowhere\nshow=ktrui.exe\n", false},
                                 {"root=nowhere\nshow=KTRUI.EXE\n", false},
                                 {"root=nowhere\n", false}, // a message says so
                                 {"silent=1\n", false},
                                 {"silent=1\nsay=KTRUI.exe\nexit=1\n", true},
                                 {"silent=1\nsay=KTRUI.exe\nkilled=1\n", true},
                                 {"silent=1\nexit=1\n", false},
                                 {"silent=1\ncomplain=KTRUI.exe\n", false}, // standard error
                                 {"silent=1\nbytes=10485760\nsay=KTRUI.exe\n", true},
                                 {"silent=1\nbytes=10485760\n", false}}) {
        EXPECT_EQ(Shows(Query(answer.settings)), answer.shown) << answer.settings;
    }
    TaskListQuery missing = Query("silent=1\nsay=KTRUI.exe\n");
    missing.program += ".missing";
    EXPECT_FALSE(Shows(missing));
}

TEST_F(TaskList, FindsTheNameAfterANulByte)
{
    EXPECT_TRUE(ContainsImage(QByteArray("a\0\0KTRUI.exe", 12), "KTRUI.exe"));
    EXPECT_FALSE(ContainsImage(QByteArray("a\0KTRUI\0.exe", 12), "KTRUI.exe"));
}

TEST_F(TaskList, DecodesUtf8)
{
    const QString name = QString::fromUtf8("\303\234n\303\257.exe");
    EXPECT_TRUE(IsInTaskList(name, Query("silent=1\nsay=%C3%9Cn%C3%AF.exe\n")));
    EXPECT_FALSE(IsInTaskList(name, Query("silent=1\nsay=%DCn%EF.exe\n"))) << "in Latin-1";
}

TEST_F(TaskList, AQueryThatHangsIsEndedWhenItsTimeIsOver)
{
    const TaskListQuery query = Query("silent=1\nhang=1\n", 3000);
    const LogWatch log;
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_FALSE(Shows(query));
    EXPECT_EQ(LogWatch::NewLines(), QStringList());
    EXPECT_GE(elapsed.elapsed(), 2900);
    EXPECT_TRUE(contract::WaitUntil([this] {
        return !contract::IsImageRunning(fake_.Program().filename().wstring());
    })) << "it outlived its time";
}

TEST_F(TaskList, WhatAHangingQueryHasPrintedCounts)
{
    // On a busy machine it may take seconds until the query prints.
    bool shown = false;
    for (int timeAllowedMs = 3000; !shown && timeAllowedMs < 60000; timeAllowedMs *= 4) {
        shown = Shows(Query("silent=1\nsay=KTRUI.exe\nhang=1\n", timeAllowedMs));
    }
    EXPECT_TRUE(shown);
}

} // namespace
