#pragma once

#include <cstddef>
#include <string>

namespace platform {

/// Capacity for the paths of executables and of the telemetry library, NUL included (`MAX_PATH`).
inline constexpr std::size_t kPathCapacity = 260;

/// Full path of the running executable in the ANSI encoding, read into a zero-filled
/// buffer of `capacity` bytes: a longer path is cut to what fits with its NUL. Empty
/// when the system does not tell it. Any thread, also before `main`.
std::string ExecutablePath(std::size_t capacity);

/// Whether the folder in `ExecutablePath(capacity)` is exact: not cut, and every character is in
/// the ANSI code page. Windows replaces other characters by similar ones, which may name another
/// folder. The file's own name may be cut. Any thread, also before `main`.
bool IsExecutableFolderExact(std::size_t capacity);

/// `ExecutablePath` in wide characters; `capacity` counts characters.
std::wstring ExecutablePathWide(std::size_t capacity);

} // namespace platform
