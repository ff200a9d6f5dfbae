#include "testkit/os/file_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace os {

struct FileLock::File
{
    int descriptor = -1;
};

FileLock::FileLock(const std::filesystem::path &file)
    : file_(std::make_unique<File>())
{
    file_->descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
}

FileLock::~FileLock()
{
    if (file_->descriptor != -1) {
        ::close(file_->descriptor);
    }
}

bool FileLock::Take(Mode mode)
{
    const int operation = mode == Mode::Shared ? LOCK_SH : LOCK_EX;
    int result = -1;
    do {
        result = ::flock(file_->descriptor, operation);
    } while (result == -1 && errno == EINTR);
    return result == 0;
}

bool FileLock::TryTake(Mode mode)
{
    const int operation = (mode == Mode::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    return ::flock(file_->descriptor, operation) == 0;
}

} // namespace os
