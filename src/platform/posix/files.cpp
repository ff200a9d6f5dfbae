#include "platform/files.h"

#include <unistd.h>

namespace platform {

void RemoveFile(const std::string &path)
{
    ::unlink(path.c_str()); // never a directory, which `std::remove` would take too
}

void ChangeDirectory(const wchar_t *) {}

} // namespace platform
