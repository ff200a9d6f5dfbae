#include "platform/files.h"

#include <windows.h>

namespace platform {

void RemoveFile(const std::string &path)
{
    ::DeleteFileA(path.c_str());
}

void ChangeDirectory(const wchar_t *path)
{
    ::SetCurrentDirectoryW(path);
}

} // namespace platform
