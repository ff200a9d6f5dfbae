#pragma once

#include <cstddef>
#include <string>

namespace platform {

/// Characters of a path with its terminating zero that the program reads or composes at most
/// (`MAX_PATH`).
inline constexpr std::size_t kPathCapacity = 260;

/// Full path of the running executable in the ANSI encoding, read into a zero-filled
/// buffer of `capacity` bytes: a longer path is cut to what fits with its terminating zero. Empty
/// when the system does not tell it. Any thread, also before `main`.
std::string ExecutablePath(std::size_t capacity);

/// Whether the text before the last separator of `ExecutablePath(capacity)` is the folder of this
/// very executable. It is not when it is cut, or when the ANSI code page lacks one of its letters:
/// the system then puts a similar one in its place, and it may be the name of another folder. The
/// file's own name may be cut. Any thread, also before `main`.
bool IsExecutableFolderExact(std::size_t capacity);

/// `ExecutablePath` in wide characters; `capacity` counts characters.
std::wstring ExecutablePathWide(std::size_t capacity);

} // namespace platform
