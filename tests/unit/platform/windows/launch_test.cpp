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
using contract::ReplacedImport;
using platform::LaunchOptions;
using platform::PriorityClass;
using platform::ShowWindow;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const LaunchOptions kHiddenIdle = {ShowWindow::Hidden, PriorityClass::Idle, false};

/// CreateProcess fails; `calls` lists the calls that follow.
class FailedLaunch : public testing::Test
{
protected:
    void SetUp() override
    {
        calls.clear();
        startup = {};
    }

    static std::vector<std::string> calls;
    static STARTUPINFOA startup;

private:
    static WINBOOL WINAPI Create(const char *,
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
    static WINBOOL WINAPI SetClass(HANDLE process, DWORD priorityClass)
    {
        EXPECT_EQ(process, nullptr);
        calls.push_back("class " + std::to_string(priorityClass));
        return FALSE;
    }
    static WINBOOL WINAPI SetBoost(HANDLE process, WINBOOL disabled)
    {
        EXPECT_EQ(process, nullptr);
        calls.push_back("boost off " + std::to_string(disabled));
        return FALSE;
    }

    ReplacedImport<decltype(&::CreateProcessA)> create_{__imp_CreateProcessA, Create};
    ReplacedImport<decltype(&::SetPriorityClass)> class_{__imp_SetPriorityClass, SetClass};
    ReplacedImport<decltype(&::SetProcessPriorityBoost)> boost_{__imp_SetProcessPriorityBoost,
                                                                SetBoost};
};

std::vector<std::string> FailedLaunch::calls;
STARTUPINFOA FailedLaunch::startup = {};

TEST_F(FailedLaunch, StillSetsPriorityAndBoostOnTheNullHandle)
{
    platform::LaunchDetached("missing.exe", "C:\\", kHiddenIdle);
    EXPECT_THAT(calls, ElementsAre("create", "class 64", "boost off 1"));
}

TEST_F(FailedLaunch, WithDefaultOptionsSetsNoPriority)
{
    platform::LaunchDetached("missing.exe", "C:\\", {});
    EXPECT_THAT(calls, ElementsAre("create"));
}

TEST_F(FailedLaunch, TheStartupRecordOnlySaysHidden)
{
    platform::LaunchDetached("missing.exe", "C:\\", kHiddenIdle);
    STARTUPINFOA expected = {};
    expected.cb = 104;
    expected.dwFlags = 1;
    expected.wShowWindow = 0;
    EXPECT_EQ(std::memcmp(&startup, &expected, sizeof(expected)), 0);
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
