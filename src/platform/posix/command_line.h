#pragma once

#include <string>
#include <vector>

namespace platform {

/// The parts of a command line: first the program as it is written there, then its arguments.
using CommandLine = std::vector<std::string>;

/// Splits `text`. The program is the longest leading part, up to a space or the end, that names an
/// existing file, so that a path with spaces needs no quotes. The rest is split at spaces outside
/// double quotes, which are removed. Empty when no part names a file.
CommandLine SplitCommandLine(const std::string &text);

} // namespace platform
