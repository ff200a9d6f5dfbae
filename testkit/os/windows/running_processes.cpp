#include "testkit/os/os.h"

#include "testkit/os/windows/text.h"

#include <array>
#include <memory>
#include <windows.h>

#include <psapi.h>
#include <tlhelp32.h>

namespace os {

namespace {

struct CloseHandleOf
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const
    {
        ::CloseHandle(handle);
    }
};
using OwnedHandle = std::unique_ptr<HANDLE, CloseHandleOf>;

} // namespace

std::vector<RunningProcess> RunningProcesses(std::string_view wanted)
{
    std::vector<RunningProcess> running;
    HANDLE list = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (list == INVALID_HANDLE_VALUE) {
        return running;
    }
    const OwnedHandle snapshot(list);
    const std::wstring wantedWide = ToWide(wanted);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = ::Process32FirstW(list, &entry); more != 0;
         more = ::Process32NextW(list, &entry)) {
        if (!wanted.empty() && ::_wcsicmp(entry.szExeFile, wantedWide.c_str()) != 0) {
            continue;
        }
        const OwnedHandle process(
            ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, entry.th32ProcessID));
        std::array<wchar_t, 4096> path = {};
        auto length = static_cast<DWORD>(path.size());
        if (!process || ::QueryFullProcessImageNameW(process.get(), 0, path.data(), &length) == 0) {
            continue;
        }
        PROCESS_MEMORY_COUNTERS memory = {};
        ::GetProcessMemoryInfo(process.get(), &memory, sizeof memory);
        running.push_back(
            {entry.th32ProcessID, ToUtf8({path.data(), length}), memory.WorkingSetSize / 1024U});
    }
    return running;
}

} // namespace os
