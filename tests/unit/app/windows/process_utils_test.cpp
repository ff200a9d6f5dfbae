#include "app/process_utils.h"
#include "tests/unit/platform/support/system.h"
#include "tests/unit/platform/windows/replaced_import.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <string>

extern "C" {
extern decltype(&::GetModuleFileNameW) __imp_GetModuleFileNameW;
extern decltype(&::QueryFullProcessImageNameW) __imp_QueryFullProcessImageNameW;
extern decltype(&::TerminateProcess) __imp_TerminateProcess;
}

namespace {

using contract::ReplacedImport;

constexpr DWORD kRoomForAPath = 260;
int terminated = 0;

DWORD Give(const std::wstring &path, DWORD room, wchar_t *buffer)
{
    EXPECT_EQ(room, kRoomForAPath);
    std::wcscpy(buffer, path.c_str());
    return static_cast<DWORD>(path.size());
}

DWORD WINAPI PathOfThisProgram(HMODULE, wchar_t *buffer, DWORD room)
{
    return Give(L"C:\\the folder/program.exe", room, buffer);
}

WINBOOL WINAPI PathOfAnyProcess(HANDLE, DWORD, wchar_t *buffer, DWORD *room)
{
    *room = Give(L"C:\\the folder/helper.exe", *room, buffer);
    return TRUE;
}

WINBOOL WINAPI Terminate(HANDLE, UINT exitCode)
{
    EXPECT_EQ(exitCode, 0U);
    ++terminated;
    return TRUE;
}

// Windows takes both separators; Wine itself tells paths with its own only.
TEST(WindowsProcessUtils, AForwardSlashEndsTheProgramsFolder)
{
    const ReplacedImport path(__imp_GetModuleFileNameW, PathOfThisProgram);
    EXPECT_EQ(GetModuleDirW(), L"C:\\the folder");
}

TEST(WindowsProcessUtils, AForwardSlashEndsTheFolderOfAProcess)
{
    const std::wstring name = contract::OwnProgram().filename().wstring();
    const ReplacedImport path(__imp_QueryFullProcessImageNameW, PathOfAnyProcess);
    const ReplacedImport end(__imp_TerminateProcess, Terminate);
    terminated = 0;
    EXPECT_FALSE(KillProcessInDir(name, L"C:\\the folder\\"));
    EXPECT_EQ(terminated, 0);
    EXPECT_TRUE(KillProcessInDir(name, L"C:\\THE folder"));
    EXPECT_EQ(terminated, 1);
}

} // namespace
