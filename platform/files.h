#pragma once

#include <string>

namespace platform {

/// Deletes the file at `path` (narrow encoding). Failure has no effect and is not reported.
void RemoveFile(const std::string &path);

/// Makes `path` the process's working directory; an empty text or null changes nothing.
void ChangeDirectory(const wchar_t *path);

} // namespace platform
