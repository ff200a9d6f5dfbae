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

using contract::ReplaceImport;
using Calls = std::vector<std::string>;

const HANDLE kSnapshot = reinterpret_cast<HANDLE>(0xABCDE0);

HANDLE snapshot = nullptr;
int left = 0; ///< processes that the snapshot still has
Calls calls;

WINBOOL Give(const char *call, HANDLE handle, PROCESSENTRY32W *entry)
{
    EXPECT_EQ(handle, snapshot);
    EXPECT_EQ(entry->dwSize, 568U);
    calls.emplace_back(call);
    entry->th32ProcessID = static_cast<DWORD>(left);
    return left-- > 0 ? TRUE : FALSE;
}

HANDLE WINAPI CreateSnapshot(DWORD flags, DWORD id)
{
    calls.push_back("create " + std::to_string(flags) + ' ' + std::to_string(id));
    return snapshot;
}

WINBOOL WINAPI First(HANDLE handle, PROCESSENTRY32W *entry)
{
    return Give("first", handle, entry);
}

WINBOOL WINAPI Next(HANDLE handle, PROCESSENTRY32W *entry)
{
    return Give("next", handle, entry);
}

WINBOOL WINAPI Close(HANDLE handle)
{
    EXPECT_EQ(handle, snapshot);
    calls.emplace_back("close");
    return TRUE;
}

struct Row
{
    const char *name;
    HANDLE snapshot;
    int processes;
    Calls calls;
};

TEST(WindowsProcesses, EachEntryIsVisitedBeforeTheNextIsReadAndTheSnapshotIsClosed)
{
    for (const Row &row :
         {Row{"two processes",
              kSnapshot,
              2,
              {"create 2 0", "first", "visit 2", "next", "visit 1", "next", "close"}},
          {"no first entry", kSnapshot, 0, {"create 2 0", "first", "close"}},
          {"no snapshot", INVALID_HANDLE_VALUE, 2, {"create 2 0"}}}) {
        snapshot = row.snapshot;
        left = row.processes;
        calls.clear();
        {
            const auto create = ReplaceImport(__imp_CreateToolhelp32Snapshot, CreateSnapshot);
            const auto first = ReplaceImport(__imp_Process32FirstW, First);
            const auto next = ReplaceImport(__imp_Process32NextW, Next);
            const auto close = ReplaceImport(__imp_CloseHandle, Close);
            platform::VisitProcesses([](const platform::ProcessEntry &entry) {
                calls.push_back("visit " + std::to_string(entry.id));
            });
        }
        EXPECT_EQ(calls, row.calls) << row.name;
    }
}

} // namespace
