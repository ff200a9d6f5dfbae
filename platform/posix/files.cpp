#include "platform/files.h"

#include "platform/posix/narrow_text.h"

#include <unistd.h>

namespace platform {

void RemoveFile(const std::string &path)
{
    ::unlink(path.c_str()); // never a directory, which `std::remove` would take too
}

void ChangeDirectory(const wchar_t *path)
{
    if (path == nullptr) {
        return;
    }
    if (::chdir(ToNarrow(path).c_str()) != 0) {
        return; // an unknown directory changes nothing, and nobody asks
    }
}

} // namespace platform
