#include "platform/launch.h"
#include "tests/unit/platform/support/child.h"
#include "tests/unit/platform/windows/replaced_import.h"

#include <cstring>
#include <gmock/gmock.h>

extern "C" {
extern decltype(&::CreateProcessA) __imp_CreateProcessA;
extern decltype(&::SetPriorityClass) __imp_SetPriorityClass;
extern decltype(&::SetProcessPriorityBoost) __imp_SetProcessPriorityBoost;
}

namespace {

using contract::DetachedChild;
using Calls = std::vector<std::string>;

const platform::LaunchOptions kHiddenIdle = {
    platform::ShowWindow::Hidden, platform::PriorityClass::Idle, false};

Calls calls;
STARTUPINFOA startup = {};

WINBOOL WINAPI FailToCreate(const char *,
                            char *,
                            SECURITY_ATTRIBUTES *,
                            SECURITY_ATTRIBUTES *,
                            WINBOOL,
                            DWORD,
                            void *,
                            const char *,
                            STARTUPINFOA *given,
                            PROCESS_INFORMATION *process)
{
    const PROCESS_INFORMATION zero = {};
    EXPECT_EQ(std::memcmp(process, &zero, sizeof(zero)), 0);
    startup = *given;
    calls.emplace_back("create");
    return FALSE;
}

WINBOOL WINAPI SetClass(HANDLE process, DWORD priorityClass)
{
    EXPECT_EQ(process, nullptr);
    calls.push_back("class " + std::to_string(priorityClass));
    return FALSE;
}

WINBOOL WINAPI SetBoost(HANDLE process, WINBOOL disabled)
{
    EXPECT_EQ(process, nullptr);
    calls.push_back("boost off " + std::to_string(disabled));
    return FALSE;
}

/// The calls of a launch whose CreateProcess fails.
Calls FailedLaunch(const platform::LaunchOptions &options)
{
    const auto create = contract::ReplaceImport(__imp_CreateProcessA, FailToCreate);
    const auto priority = contract::ReplaceImport(__imp_SetPriorityClass, SetClass);
    const auto boost = contract::ReplaceImport(__imp_SetProcessPriorityBoost, SetBoost);
    calls.clear();
    platform::LaunchDetached("missing.exe", "C:\\", options);
    return calls;
}

TEST(WindowsLaunch, AfterAFailurePriorityAndBoostAreStillSetOnTheNullHandle)
{
    EXPECT_EQ(FailedLaunch(kHiddenIdle), (Calls{"create", "class 64", "boost off 1"}));
    EXPECT_EQ(FailedLaunch({}), Calls{"create"});
}

TEST(WindowsLaunch, TheStartupRecordOnlySaysHidden)
{
    FailedLaunch(kHiddenIdle);
    STARTUPINFOA expected = {};
    expected.cb = 104;
    expected.dwFlags = 1;
    expected.wShowWindow = 0;
    EXPECT_EQ(std::memcmp(&startup, &expected, sizeof(expected)), 0);
}

TEST(WindowsLaunch, OnlyAHiddenStartTellsTheProgramToHide)
{
    const std::string program = contract::ChildProgram().string();
    const auto directory = std::filesystem::current_path();
    EXPECT_TRUE(contract::IsHidden(DetachedChild(program, directory, kHiddenIdle).Ask({"facts"})));
    EXPECT_THAT(DetachedChild(program).Ask({"facts"}),
                testing::Not(testing::HasSubstr("flags 1\n")));
}

} // namespace
