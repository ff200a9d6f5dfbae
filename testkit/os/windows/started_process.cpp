#include "testkit/os/os.h"
#include "testkit/os/waiting.h"

#include <windows.h>

namespace os {

struct StartedProcess::State
{
    HANDLE process = nullptr;
    DWORD id = 0;
};

StartedProcess::StartedProcess(const std::filesystem::path &program,
                               const std::vector<std::string> &arguments)
    : state_(std::make_unique<State>())
{
    std::wstring commandLine = L'"' + program.wstring() + L'"';
    for (const std::string &argument : arguments) {
        commandLine += L" \"" + std::filesystem::u8path(argument).wstring() + L'"';
    }
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    ::CreateProcessW(nullptr,
                     commandLine.data(),
                     nullptr,
                     nullptr,
                     FALSE,
                     0,
                     nullptr,
                     nullptr,
                     &startup,
                     &process);
    ::CloseHandle(process.hThread);
    state_->process = process.hProcess;
    state_->id = process.dwProcessId;
}

StartedProcess::StartedProcess(StartedProcess &&other) noexcept = default;

StartedProcess::~StartedProcess()
{
    if (state_) {
        EndAtOnce();
        ::CloseHandle(state_->process);
    }
}

std::uint32_t StartedProcess::Id() const
{
    return state_->id;
}

int StartedProcess::WaitForEnd()
{
    const auto deadline = std::chrono::milliseconds(kDeadline).count();
    DWORD status = 0;
    if (::WaitForSingleObject(state_->process, static_cast<DWORD>(deadline)) != WAIT_OBJECT_0 ||
        ::GetExitCodeProcess(state_->process, &status) == FALSE) {
        return -1;
    }
    return static_cast<int>(status);
}

void StartedProcess::EndAtOnce()
{
    if (state_->process != nullptr) {
        ::TerminateProcess(state_->process, 1);
        WaitForEnd();
    }
}

int StatusOfTerminated(std::uint32_t exitCode)
{
    return static_cast<int>(exitCode);
}

} // namespace os
