#include "platform/processes.h"
#include "tests/unit/platform/windows/replaced_import.h"

#include <gtest/gtest.h>
#include <string>
#include <tlhelp32.h>
#include <vector>

extern "C" {
extern decltype(&::CreateToolhelp32Snapshot) __imp_CreateToolhelp32Snapshot;
extern decltype(&::Process32FirstW) __imp_Process32FirstW;
extern decltype(&::Process32NextW) __imp_Process32NextW;
extern decltype(&::CloseHandle) __imp_CloseHandle;
}

namespace {

using contract::ReplacedImport;
using Calls = std::vector<std::string>;

/// Replaces the calls of the process snapshot: it has `left` processes, and `calls` lists the
/// calls.
class WindowsProcesses : public testing::Test
{
protected:
    void SetUp() override
    {
        left = 0;
        calls.clear();
    }

    static void Visit()
    {
        const ReplacedImport create(__imp_CreateToolhelp32Snapshot, CreateSnapshot);
        const ReplacedImport first(__imp_Process32FirstW, First);
        const ReplacedImport next(__imp_Process32NextW, Next);
        const ReplacedImport close(__imp_CloseHandle, Close);
        platform::VisitProcesses([](const platform::ProcessEntry &entry) {
            calls.push_back("visit " + std::to_string(entry.id));
        });
    }

    static int left;
    static HANDLE snapshot;
    static Calls calls;

private:
    static HANDLE WINAPI CreateSnapshot(DWORD flags, DWORD id)
    {
        calls.push_back("create " + std::to_string(flags) + ' ' + std::to_string(id));
        return snapshot;
    }
    static WINBOOL WINAPI First(HANDLE handle, PROCESSENTRY32W *entry)
    {
        EXPECT_EQ(entry->dwSize, 568U);
        return Give("first", handle, entry);
    }
    static WINBOOL WINAPI Next(HANDLE handle, PROCESSENTRY32W *entry)
    {
        return Give("next", handle, entry);
    }
    static WINBOOL Give(const char *call, HANDLE handle, PROCESSENTRY32W *entry)
    {
        EXPECT_EQ(handle, snapshot);
        calls.emplace_back(call);
        entry->th32ProcessID = static_cast<DWORD>(left);
        return left-- > 0 ? TRUE : FALSE;
    }
    static WINBOOL WINAPI Close(HANDLE handle)
    {
        EXPECT_EQ(handle, snapshot);
        calls.emplace_back("close");
        return TRUE;
    }
};

int WindowsProcesses::left = 0;
HANDLE WindowsProcesses::snapshot = nullptr;
Calls WindowsProcesses::calls;

TEST_F(WindowsProcesses, EachEntryIsVisitedBeforeTheNextIsReadAndTheSnapshotIsClosed)
{
    snapshot = reinterpret_cast<HANDLE>(0xABCDE0);
    left = 2;
    Visit();
    EXPECT_EQ(calls, (Calls{"create 2 0", "first", "visit 2", "next", "visit 1", "next", "close"}));
}

TEST_F(WindowsProcesses, WithoutASnapshotNothingIsVisited)
{
    snapshot = INVALID_HANDLE_VALUE;
    left = 2;
    Visit();
    EXPECT_EQ(calls, (Calls{"create 2 0"}));
}

TEST_F(WindowsProcesses, WithoutAFirstEntryTheSnapshotIsClosed)
{
    snapshot = reinterpret_cast<HANDLE>(0xABCDE0);
    Visit();
    EXPECT_EQ(calls, (Calls{"create 2 0", "first", "close"}));
}

} // namespace
