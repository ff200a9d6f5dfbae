#include "platform/windows/launch_sequence.h"
#include "tests/unit/platform/support/child.h"

#include <cstring>
#include <gmock/gmock.h>

namespace {

using contract::DetachedChild;
using platform::LaunchOptions;
using platform::PriorityClass;
using platform::ShowWindow;
using testing::_;
using testing::HasSubstr;
using testing::InSequence;
using testing::Invoke;
using testing::IsNull;
using testing::Not;
using testing::StrEq;
using testing::StrictMock;
using testing::WithArgs;

constexpr DWORD kIdleClass = 0x40;
const LaunchOptions kHiddenIdle = {ShowWindow::Hidden, PriorityClass::Idle, false};

struct RecordedCalls
{
    MOCK_METHOD(void,
                CreateProcessNarrow,
                (const char *application,
                 char *commandLine,
                 SECURITY_ATTRIBUTES *process,
                 SECURITY_ATTRIBUTES *thread,
                 BOOL inheritHandles,
                 DWORD flags,
                 void *environment,
                 const char *workingDirectory,
                 STARTUPINFOA *startup,
                 PROCESS_INFORMATION *result));
    MOCK_METHOD(void, SetPriorityClass, (HANDLE process, DWORD priorityClass));
    MOCK_METHOD(void, SetProcessPriorityBoost, (HANDLE process, BOOL disabled));
};

/// Checks what a hidden start is given, and answers with `process`.
auto CreateHidden(HANDLE process)
{
    return WithArgs<8, 9>(Invoke([process](STARTUPINFOA *startup, PROCESS_INFORMATION *result) {
        STARTUPINFOA expected = {};
        expected.cb = 104;
        expected.dwFlags = 1;
        expected.wShowWindow = 0;
        EXPECT_EQ(std::memcmp(startup, &expected, sizeof(expected)), 0);
        const PROCESS_INFORMATION zero = {};
        EXPECT_EQ(std::memcmp(result, &zero, sizeof(zero)), 0);
        result->hProcess = process;
    }));
}

void ExpectHiddenIdle(HANDLE process)
{
    constexpr DWORD kNoFlags = 0;
    StrictMock<RecordedCalls> calls;
    const InSequence order;
    EXPECT_CALL(calls,
                CreateProcessNarrow(IsNull(),
                                    StrEq("C:\\a b.bat \"D:\\c\""),
                                    IsNull(),
                                    IsNull(),
                                    FALSE,
                                    kNoFlags,
                                    IsNull(),
                                    StrEq("E:/temp"),
                                    _,
                                    _))
        .WillOnce(CreateHidden(process));
    EXPECT_CALL(calls, SetPriorityClass(process, kIdleClass));
    EXPECT_CALL(calls, SetProcessPriorityBoost(process, TRUE));
    platform::LaunchSequence(calls, "C:\\a b.bat \"D:\\c\"", "E:/temp", kHiddenIdle);
}

TEST(LaunchSequence, CreatesThenLowersThePriority)
{
    ExpectHiddenIdle(reinterpret_cast<HANDLE>(0x88));
}

TEST(LaunchSequence, LowersThePriorityOfNothingWhenNothingWasCreated)
{
    ExpectHiddenIdle(nullptr);
}

TEST(LaunchSequence, OrdinaryStartChangesNoPriority)
{
    StrictMock<RecordedCalls> calls;
    EXPECT_CALL(calls, CreateProcessNarrow).WillOnce(WithArgs<8>(Invoke([](STARTUPINFOA *startup) {
        EXPECT_EQ(startup->cb, sizeof(STARTUPINFOA));
        EXPECT_EQ(startup->dwFlags, 0U);
    })));
    platform::LaunchSequence(calls, "program", "folder", {});
}

TEST(WindowsLaunch, AHiddenStartTellsTheProgramToHide)
{
    DetachedChild child;
    child.Launch(contract::ChildProgram().string(), std::filesystem::current_path(), kHiddenIdle);
    EXPECT_THAT(child.Ask({"facts"}), HasSubstr("flags 1\nshow 0\n"));
}

TEST(WindowsLaunch, AnOrdinaryStartDoesNot)
{
    DetachedChild child;
    child.Launch(contract::ChildProgram().string(), std::filesystem::current_path());
    EXPECT_THAT(child.Ask({"facts"}), Not(HasSubstr("flags 1\n")));
}

} // namespace
