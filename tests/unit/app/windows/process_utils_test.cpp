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

using contract::ReplacedImport;
using Calls = std::vector<std::string>;

constexpr DWORD kRoomForAPath = 260;

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

// Windows takes both separators; Wine itself tells paths with its own only.
TEST(WindowsProcessUtils, AForwardSlashEndsTheProgramsFolder)
{
    const ReplacedImport path(__imp_GetModuleFileNameW, PathOfThisProgram);
    EXPECT_EQ(GetModuleDirW(), L"C:\\the folder");
}

/// A system with the processes 1 "other.exe", 2 "helper.exe", which cannot be opened, and 3
/// "HELPER.exe". `calls` lists the calls for them.
class WindowsHelpers : public testing::Test
{
protected:
    void SetUp() override
    {
        calls.clear();
    }

    static Calls calls;

private:
    static WINBOOL WINAPI First(HANDLE, PROCESSENTRY32W *entry)
    {
        calls.emplace_back("first");
        return Enter(1, L"other.exe", entry);
    }
    static WINBOOL WINAPI Next(HANDLE, PROCESSENTRY32W *entry)
    {
        calls.emplace_back("next");
        const DWORD id = entry->th32ProcessID + 1;
        return Enter(id, id == 2 ? L"helper.exe" : L"HELPER.exe", entry) && id <= 3;
    }
    static WINBOOL Enter(DWORD id, const wchar_t *name, PROCESSENTRY32W *entry)
    {
        entry->th32ProcessID = id;
        std::wcscpy(entry->szExeFile, name);
        return TRUE;
    }
    static HANDLE WINAPI Open(DWORD rights, WINBOOL inherit, DWORD id)
    {
        EXPECT_EQ(rights, 0x1001U);
        EXPECT_FALSE(inherit);
        calls.push_back("open " + std::to_string(id));
        return id == 2 ? nullptr : ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    }
    static WINBOOL WINAPI Query(HANDLE, DWORD, wchar_t *buffer, DWORD *room)
    {
        calls.emplace_back("query");
        *room = Give(L"C:\\the folder/helper.exe", *room, buffer);
        return TRUE;
    }
    static WINBOOL WINAPI Terminate(HANDLE, UINT exitCode)
    {
        calls.push_back("terminate " + std::to_string(exitCode));
        return FALSE;
    }

    ReplacedImport<decltype(&::Process32FirstW)> first_{__imp_Process32FirstW, First};
    ReplacedImport<decltype(&::Process32NextW)> next_{__imp_Process32NextW, Next};
    ReplacedImport<decltype(&::OpenProcess)> open_{__imp_OpenProcess, Open};
    ReplacedImport<decltype(&::QueryFullProcessImageNameW)> query_{__imp_QueryFullProcessImageNameW,
                                                                   Query};
    ReplacedImport<decltype(&::TerminateProcess)> terminate_{__imp_TerminateProcess, Terminate};
};

Calls WindowsHelpers::calls;

// True also when the call fails: only that it was made counts.
TEST_F(WindowsHelpers, EachIsOpenedAndTerminatedBeforeTheNextEntryIsRead)
{
    EXPECT_TRUE(KillProcessInDir(L"helper.exe", L"C:\\THE folder"));
    EXPECT_EQ(calls,
              (Calls{"first", "next", "open 2", "next", "open 3", "query", "terminate 0", "next"}));
}

TEST_F(WindowsHelpers, InAnotherFolderAreNotTerminated)
{
    EXPECT_FALSE(KillProcessInDir(L"helper.exe", L"C:\\the folder\\"));
    EXPECT_EQ(calls, (Calls{"first", "next", "open 2", "next", "open 3", "query", "next"}));
}

} // namespace
