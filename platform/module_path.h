#pragma once

#include <cstddef>
#include <string>

namespace platform {

/// Characters of a path with its terminating zero that the program reads or composes at most
/// (`MAX_PATH`).
inline constexpr std::size_t kPathCapacity = 260;

/// Full path of the running executable in the narrow (ANSI) encoding, read into a zero-filled
/// buffer of `capacity` bytes: a longer path is cut to what fits with its terminating zero. Empty
/// when the system does not tell it. Any thread, also before `main`.
std::string ExecutablePath(std::size_t capacity);

/// The same in wide characters; `capacity` counts characters.
std::wstring ExecutablePathWide(std::size_t capacity);

} // namespace platform
