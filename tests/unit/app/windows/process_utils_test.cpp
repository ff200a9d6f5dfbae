#include "app/process_utils.h"
#include "tests/unit/platform/windows/replaced_import.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <string>
#include <tlhelp32.h>
#include <vector>

extern "C" {
extern decltype(&::GetModuleFileNameW) __imp_GetModuleFileNameW;
extern decltype(&::Process32FirstW) __imp_Process32FirstW;
extern decltype(&::Process32NextW) __imp_Process32NextW;
extern decltype(&::OpenProcess) __imp_OpenProcess;
extern decltype(&::QueryFullProcessImageNameW) __imp_QueryFullProcessImageNameW;
extern decltype(&::TerminateProcess) __imp_TerminateProcess;
}

namespace {

using contract::ReplaceImport;
using Calls = std::vector<std::string>;

DWORD CopyPath(const std::wstring &path, DWORD capacity, wchar_t *buffer)
{
    constexpr DWORD kPathCapacity = 260;
    EXPECT_EQ(capacity, kPathCapacity);
    std::wcscpy(buffer, path.c_str());
    return static_cast<DWORD>(path.size());
}

DWORD WINAPI PathOfThisProgram(HMODULE, wchar_t *buffer, DWORD capacity)
{
    return CopyPath(L"C:\\the folder/program.exe", capacity, buffer);
}

// Windows accepts both separators, but Wine reports paths with backslashes only.
TEST(WindowsProcessUtils, AForwardSlashEndsTheProgramsFolder)
{
    const auto path = ReplaceImport(__imp_GetModuleFileNameW, PathOfThisProgram);
    EXPECT_EQ(GetModuleDirW(), L"C:\\the folder");
}

// A system with the processes 1 "other.exe", 2 "helper.exe", which cannot be opened, and 3
// "HELPER.exe". `calls` lists the calls for them.
Calls calls;

WINBOOL Enter(DWORD id, const wchar_t *name, PROCESSENTRY32W *entry)
{
    entry->th32ProcessID = id;
    std::wcscpy(entry->szExeFile, name);
    return id <= 3;
}

WINBOOL WINAPI First(HANDLE, PROCESSENTRY32W *entry)
{
    calls.emplace_back("first");
    return Enter(1, L"other.exe", entry);
}

WINBOOL WINAPI Next(HANDLE, PROCESSENTRY32W *entry)
{
    calls.emplace_back("next");
    const DWORD id = entry->th32ProcessID + 1;
    return Enter(id, id == 2 ? L"helper.exe" : L"HELPER.exe", entry);
}

HANDLE WINAPI Open(DWORD rights, WINBOOL inherit, DWORD id)
{
    EXPECT_EQ(rights, 0x1001U);
    EXPECT_FALSE(inherit);
    calls.push_back("open " + std::to_string(id));
    return id == 2 ? nullptr : ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
}

WINBOOL WINAPI Query(HANDLE, DWORD, wchar_t *buffer, DWORD *capacity)
{
    calls.emplace_back("query");
    *capacity = CopyPath(L"C:\\the folder/helper.exe", *capacity, buffer);
    return TRUE;
}

WINBOOL WINAPI FailToTerminate(HANDLE, UINT exitCode)
{
    calls.push_back("terminate " + std::to_string(exitCode));
    return FALSE;
}

bool Kill(const std::wstring &directory)
{
    const auto first = ReplaceImport(__imp_Process32FirstW, First);
    const auto next = ReplaceImport(__imp_Process32NextW, Next);
    const auto open = ReplaceImport(__imp_OpenProcess, Open);
    const auto query = ReplaceImport(__imp_QueryFullProcessImageNameW, Query);
    const auto terminate = ReplaceImport(__imp_TerminateProcess, FailToTerminate);
    calls.clear();
    return KillProcessInDir(L"helper.exe", directory);
}

// Returns true even if TerminateProcess fails: only the attempt counts.
TEST(WindowsProcessUtils, EachMatchIsOpenedAndTerminatedBeforeTheNextEntryIsRead)
{
    EXPECT_TRUE(Kill(L"C:\\THE folder"));
    EXPECT_EQ(calls,
              (Calls{"first", "next", "open 2", "next", "open 3", "query", "terminate 0", "next"}));
    EXPECT_FALSE(Kill(L"C:\\the folder\\")) << "compared as text";
    EXPECT_EQ(calls, (Calls{"first", "next", "open 2", "next", "open 3", "query", "next"}));
}

} // namespace
