#pragma once

#include <string>

namespace platform {

/// Deletes the file at `path` (ANSI encoding). Failure has no effect and is not reported.
void RemoveFile(const std::string &path);

/// Calls SetCurrentDirectoryW with `path`, which is empty or null: that changes nothing. Linux has
/// no such call.
void ChangeDirectory(const wchar_t *path);

} // namespace platform
