#include "platform/processes.h"

#include "platform/windows/handle.h"

#include <tlhelp32.h>
#include <utility>

namespace platform {

void VisitProcesses(const std::function<void(const ProcessEntry &entry)> &visit)
{
    const SnapshotHandle snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    if (!snapshot) {
        return;
    }
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    static_assert(sizeof(entry) == 568, "the wide process entry of 64-bit Windows");
    if (::Process32FirstW(snapshot.Get(), &entry) == FALSE) {
        return;
    }
    do {
        visit({entry.th32ProcessID, entry.szExeFile});
    } while (::Process32NextW(snapshot.Get(), &entry) != FALSE);
}

struct OpenedProcess::State
{
    ObjectHandle handle;
};

OpenedProcess OpenedProcess::Open(ProcessId id)
{
    constexpr DWORD kRights = PROCESS_TERMINATE | PROCESS_QUERY_LIMITED_INFORMATION;
    ObjectHandle handle(::OpenProcess(kRights, FALSE, id));
    OpenedProcess process;
    if (handle) {
        process.state_ = {new State{std::move(handle)}, DeleteState<State>};
    }
    return process;
}

std::optional<std::wstring> OpenedProcess::ImagePath(std::size_t capacity) const
{
    constexpr DWORD kWin32PathForm = 0;
    std::wstring path(capacity, L'\0');
    auto length = static_cast<DWORD>(capacity);
    if (!state_ || ::QueryFullProcessImageNameW(
                       state_->handle.Get(), kWin32PathForm, path.data(), &length) == FALSE) {
        return std::nullopt;
    }
    path.resize(length);
    return path;
}

void OpenedProcess::Terminate(std::uint32_t exitCode) const
{
    if (state_) {
        ::TerminateProcess(state_->handle.Get(), exitCode);
    }
}

} // namespace platform
