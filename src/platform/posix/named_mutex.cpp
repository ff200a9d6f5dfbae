#include "platform/named_mutex.h"

#include "platform/posix/file_descriptor.h"
#include "platform/posix/multibyte_text.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

namespace platform {
namespace {

// For every failure except missing permission and another owner. Not `errno`: 5 is EIO there.
constexpr std::uint32_t kErrorGeneralFailure = 31;

std::string LockFilePath(const std::string &name)
{
    const char *const folder = std::getenv("XDG_RUNTIME_DIR");
    const bool set = folder != nullptr && *folder != '\0';
    return std::string(set ? folder : "/tmp") + '/' + name + ".lock";
}

/// The lock on an open file. It is released before the file is closed: a child between fork and
/// exec shares the descriptor, and closing only ours would leave the child holding the lock.
struct LockTraits : DescriptorTraits
{
    static void Close(int descriptor)
    {
        KeepErrno([descriptor] { ::flock(descriptor, LOCK_UN); });
    }
};
using FileLock = Owner<LockTraits>;

/// Opens the lock file and creates it only when it is absent: in a shared folder the kernel may
/// refuse to open another user's file with O_CREAT (fs.protected_regular).
FileDescriptor OpenLockFile(const std::string &path)
{
    // Not blocking, so that a FIFO of that name cannot block the start.
    constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    constexpr mode_t kMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
    constexpr int kAttempts = 8; // the file may appear between the two calls
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        FileDescriptor file(::open(path.c_str(), kFlags));
        if (file || errno != ENOENT) {
            return file;
        }
        file = FileDescriptor(::open(path.c_str(), kFlags | O_CREAT | O_EXCL, kMode));
        if (file) {
            // The file is never deleted, so undo a restrictive umask for other users.
            ::fchmod(file.Get(), kMode);
            return file;
        }
        if (errno != EEXIST) {
            return file;
        }
    }
    return {};
}

bool LockWithoutWaiting(int file)
{
    int result = 0;
    do {
        result = ::flock(file, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

} // namespace

struct NamedMutex::State
{
    FileDescriptor file;
    FileLock lock; ///< empty when another instance holds it
};

NamedMutex NamedMutex::Create(const std::wstring &name, std::uint32_t &error)
{
    NamedMutex mutex;
    const std::string lockName = ToMultibyte(name);
    error = kErrorGeneralFailure;
    if (lockName.empty() || lockName.find('/') != std::string::npos) {
        return mutex;
    }
    FileDescriptor file = OpenLockFile(LockFilePath(lockName));
    if (!file) {
        if (errno == EACCES || errno == EPERM) {
            error = kErrorAccessDenied;
        }
        return mutex;
    }
    FileLock lock;
    if (LockWithoutWaiting(file.Get())) {
        lock = FileLock(file.Get());
        error = kErrorNone;
    } else if (errno == EWOULDBLOCK) {
        error = kErrorAlreadyExists;
    } else {
        return mutex;
    }
    mutex.state_ = {new State{std::move(file), std::move(lock)}, DeleteState<State>};
    return mutex;
}

void NamedMutex::Release()
{
    // The lock stands for the mutex's existence, not for its ownership: another process finds a
    // mutex without an owner until its handle is closed. No process can tell the difference, since
    // none waits for the mutex.
}

void NamedMutex::Close()
{
    state_.reset();
}

} // namespace platform
