#include "testkit/os/file_lock.h"

#include <windows.h>

namespace os {

namespace {

bool Lock(HANDLE handle, FileLock::Mode mode, DWORD flags)
{
    OVERLAPPED place = {};
    const DWORD exclusive = mode == FileLock::Mode::Exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0;
    return ::LockFileEx(handle, flags | exclusive, 0, 1, 0, &place) != 0;
}

} // namespace

struct FileLock::File
{
    HANDLE handle = INVALID_HANDLE_VALUE;
};

FileLock::FileLock(const std::filesystem::path &file)
    : file_(std::make_unique<File>())
{
    const DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    file_->handle = ::CreateFileW(file.c_str(),
                                  GENERIC_READ | GENERIC_WRITE,
                                  share,
                                  nullptr,
                                  OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL,
                                  nullptr);
}

FileLock::~FileLock()
{
    if (file_->handle != INVALID_HANDLE_VALUE) {
        ::CloseHandle(file_->handle);
    }
}

bool FileLock::Take(Mode mode)
{
    return Lock(file_->handle, mode, 0);
}

bool FileLock::TryTake(Mode mode)
{
    return Lock(file_->handle, mode, LOCKFILE_FAIL_IMMEDIATELY);
}

} // namespace os
