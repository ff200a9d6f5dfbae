#include "testkit/os/os.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace os {

namespace fs = std::filesystem;

fs::path ExecutablePath()
{
    std::error_code ignored;
    return fs::read_symlink("/proc/self/exe", ignored);
}

std::vector<std::string> Arguments(int argc, char **argv)
{
    return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

std::optional<std::string> EnvironmentVariable(const std::string &name)
{
    const char *value = std::getenv(name.c_str());
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

std::uint32_t OwnProcessId()
{
    return static_cast<std::uint32_t>(::getpid());
}

std::vector<std::string> OpenDescriptors()
{
    std::vector<std::string> open;
    const long most = ::sysconf(_SC_OPEN_MAX);
    for (int descriptor = STDERR_FILENO + 1; descriptor < most && descriptor < 4096; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) != -1) {
            open.push_back(std::to_string(descriptor));
        }
    }
    return open;
}

void AppendAtomically(const fs::path &file, std::string_view bytes)
{
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (descriptor == -1) {
        return;
    }
    const ssize_t ignored = ::write(descriptor, bytes.data(), bytes.size());
    static_cast<void>(ignored);
    ::close(descriptor);
}

void OutliveParent()
{
    ::signal(SIGHUP, SIG_IGN);
}

void EndByForce()
{
    ::raise(SIGKILL);
    // cppcheck-suppress unreachableCode ; the compiler cannot know that raise() never returns
    ::_exit(1);
}

void BinaryOutput() {}

bool IsBelow(const std::string &path, const std::string &root)
{
    std::error_code error;
    const std::string folder = fs::canonical(root, error).string();
    return !error && path.size() > folder.size() && path.compare(0, folder.size(), folder) == 0 &&
           (folder == "/" || path[folder.size()] == '/');
}

std::wstring WideText(const fs::path &path)
{
    const std::u32string text = path.u32string();
    return {text.begin(), text.end()};
}

std::string ProgramExtension()
{
    return {};
}

std::uint32_t LastError()
{
    return static_cast<std::uint32_t>(errno);
}

void SetLastError(std::uint32_t error)
{
    errno = static_cast<int>(error);
}

ScopedVariable::ScopedVariable(std::string name, const std::string &value)
    : name_(std::move(name))
{
    if (const char *const previous = std::getenv(name_.c_str())) {
        wasSet_ = true;
        previous_ = previous;
    }
    ::setenv(name_.c_str(), value.c_str(), 1);
}

ScopedVariable::~ScopedVariable()
{
    if (wasSet_) {
        ::setenv(name_.c_str(), previous_.c_str(), 1);
    } else {
        ::unsetenv(name_.c_str());
    }
}

} // namespace os
