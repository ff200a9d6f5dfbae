#include "platform/launch.h"

#include "platform/posix/command_line.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sched.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace platform {
namespace {

constexpr int kNothingStarted = 127;
constexpr int kFirstInheritable = STDERR_FILENO + 1;

/// Everything that the new process needs, ready before the fork: after it, in a program with
/// threads, only async-signal-safe calls are allowed, which rules out allocating.
struct Start
{
    std::string program; ///< absolute, since the working directory changes before it is used
    std::vector<char *> arguments;
    const char *workingDirectory = nullptr;
    bool idle = false;
    int descriptorLimit = 0;
};

void ResetSignals()
{
    for (int signal = 1; signal < NSIG; ++signal) {
        struct sigaction standard = {};
        standard.sa_handler = SIG_DFL;
        ::sigaction(signal, &standard, nullptr); // fails for SIGKILL and SIGSTOP
    }
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

bool SendStreamsNowhere()
{
    const int nowhere = ::open("/dev/null", O_RDWR);
    return nowhere >= 0 && ::dup2(nowhere, STDIN_FILENO) >= 0 &&
           ::dup2(nowhere, STDOUT_FILENO) >= 0 && ::dup2(nowhere, STDERR_FILENO) >= 0;
}

void CloseInherited(int descriptorLimit)
{
    if (::syscall(SYS_close_range, kFirstInheritable, UINT_MAX, 0U) == 0) {
        return;
    }
    for (int descriptor = kFirstInheritable; descriptor < descriptorLimit; ++descriptor) {
        ::close(descriptor);
    }
}

[[noreturn]] void Become(const Start &start)
{
    ResetSignals();
    if (!SendStreamsNowhere() || ::chdir(start.workingDirectory) != 0) {
        ::_exit(kNothingStarted);
    }
    CloseInherited(start.descriptorLimit);
    if (start.idle) {
        constexpr int kLowest = 19;
        const sched_param none = {};
        ::setpriority(PRIO_PROCESS, 0, kLowest);
        ::sched_setscheduler(0, SCHED_IDLE, &none); // has no boost either
    }
    ::execve(start.program.c_str(), start.arguments.data(), environ);
    ::_exit(kNothingStarted);
}

} // namespace

void LaunchDetached(const std::string &commandLine,
                    const std::string &workingDirectory,
                    const LaunchOptions &options)
{
    CommandLine parts = SplitCommandLine(commandLine);
    if (parts.empty()) {
        return;
    }
    Start start;
    std::error_code noFolder; // the path is empty then
    start.program = std::filesystem::absolute(parts.front(), noFolder).string();
    for (std::string &part : parts) {
        start.arguments.push_back(part.data());
    }
    start.arguments.push_back(nullptr);
    start.workingDirectory = workingDirectory.c_str();
    start.idle = options.priority == PriorityClass::Idle;
    start.descriptorLimit = static_cast<int>(::sysconf(_SC_OPEN_MAX));

    // Two forks: the process in between ends at once and is waited for, so the started one belongs
    // to init, which leaves no zombie, and leads no session, so it never gets a terminal.
    const pid_t between = ::fork();
    if (between == 0) {
        ::setsid();
        if (::fork() == 0) {
            Become(start);
        }
        ::_exit(0);
    }
    if (between > 0) {
        while (::waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}

} // namespace platform
