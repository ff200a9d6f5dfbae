#include "sandbox/file_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace host {

FileLock::FileLock(const std::filesystem::path &file)
    : handle_(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644))
{
}

FileLock::~FileLock()
{
    if (handle_ != -1) {
        ::close(static_cast<int>(handle_));
    }
}

bool FileLock::Take(Mode mode)
{
    const int operation = mode == Mode::Shared ? LOCK_SH : LOCK_EX;
    int result = -1;
    do {
        result = ::flock(static_cast<int>(handle_), operation);
    } while (result == -1 && errno == EINTR);
    return result == 0;
}

bool FileLock::TryTake(Mode mode)
{
    const int operation = (mode == Mode::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    return ::flock(static_cast<int>(handle_), operation) == 0;
}

} // namespace host
