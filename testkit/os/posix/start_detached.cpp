#include "testkit/os/os.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace os {

namespace {

// The last steps in the grandchild. The process may have other threads, so nothing here may
// allocate memory or take a lock. exec closes all but the standard descriptors.
[[noreturn]] void Become(const char *program, char *const *arguments, char *const *environment)
{
    const int nowhere = ::open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::dup2(nowhere, stream);
    }
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    ::execve(program, arguments, environment);
    ::_exit(127);
}

} // namespace

void StartDetached(const std::filesystem::path &program)
{
    std::string name = program.string();
    const std::array<char *, 2> arguments = {name.data(), nullptr};
    // exec closes the writing end, and so does an exit after exec has failed.
    std::array<int, 2> pipe = {-1, -1};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
        return;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::setsid();
        if (::fork() == 0) {
            Become(name.c_str(), arguments.data(), environ);
        }
        ::_exit(0);
    }
    ::close(pipe[1]);
    if (child > 0) {
        while (::waitpid(child, nullptr, 0) == -1 && errno == EINTR) {
        }
        char none = 0;
        while (::read(pipe[0], &none, 1) == -1 && errno == EINTR) {
        }
    }
    ::close(pipe[0]);
}

} // namespace os
