#include "sandbox/file_lock.h"

#include <windows.h>

namespace host {

namespace {

bool Lock(std::intptr_t handle, FileLock::Mode mode, DWORD flags)
{
    OVERLAPPED place = {};
    const DWORD alone = mode == FileLock::Mode::Alone ? LOCKFILE_EXCLUSIVE_LOCK : 0;
    return ::LockFileEx(reinterpret_cast<HANDLE>(handle), flags | alone, 0, 1, 0, &place) != 0;
}

} // namespace

FileLock::FileLock(const std::filesystem::path &file)
    : handle_(reinterpret_cast<std::intptr_t>(
          ::CreateFileW(file.c_str(),
                        GENERIC_READ | GENERIC_WRITE,
                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        nullptr,
                        OPEN_ALWAYS,
                        FILE_ATTRIBUTE_NORMAL,
                        nullptr)))
{
}

FileLock::~FileLock()
{
    if (handle_ != -1) {
        ::CloseHandle(reinterpret_cast<HANDLE>(handle_));
    }
}

bool FileLock::Take(Mode mode)
{
    return Lock(handle_, mode, 0);
}

bool FileLock::TryTake(Mode mode)
{
    return Lock(handle_, mode, LOCKFILE_FAIL_IMMEDIATELY);
}

} // namespace host
