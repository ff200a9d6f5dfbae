#pragma once

#include <optional>
#include <string>

namespace platform {

/// Target of the `exe` link in the open `/proc` folder of a process, without the mark that the
/// kernel appends once the file is deleted. No value when the kernel does not tell it; `errno` is
/// ENOENT for a process that has ended (and for a kernel thread).
std::optional<std::string> ReadExeLink(int processFolder);

/// The same for the calling process.
std::optional<std::string> ReadOwnExeLink();

/// Part of `path` after its last slash.
std::string FileNameOf(const std::string &path);

} // namespace platform
