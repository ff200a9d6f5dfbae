#include "tests/unit/platform/support/system.h"

#include "platform/windows/handle.h"
#include "tests/unit/platform/support/waiting.h"

namespace contract {

struct StartedProcess::State
{
    platform::ObjectHandle process;
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
    const platform::ObjectHandle thread(process.hThread);
    state_->process = platform::ObjectHandle(process.hProcess);
    state_->id = process.dwProcessId;
}

StartedProcess::StartedProcess(StartedProcess &&other) noexcept = default;

StartedProcess::~StartedProcess()
{
    if (state_) {
        EndAtOnce();
    }
}

platform::ProcessId StartedProcess::Id() const
{
    return state_->id;
}

int StartedProcess::WaitForEnd()
{
    const auto deadline = std::chrono::milliseconds(kDeadline).count();
    DWORD status = 0;
    if (::WaitForSingleObject(state_->process.Get(), static_cast<DWORD>(deadline)) !=
            WAIT_OBJECT_0 ||
        ::GetExitCodeProcess(state_->process.Get(), &status) == FALSE) {
        return -1;
    }
    return static_cast<int>(status);
}

void StartedProcess::EndAtOnce()
{
    if (state_->process) {
        ::TerminateProcess(state_->process.Get(), 1);
        WaitForEnd();
    }
}

int StatusOfTerminated(std::uint32_t exitCode)
{
    return static_cast<int>(exitCode);
}

} // namespace contract
