#pragma once

#include <string>

namespace platform {

/// Content of the regular file at `path`; empty when it cannot be read or is longer than 16 MiB.
std::string ReadTextFile(const std::string &path);

} // namespace platform
