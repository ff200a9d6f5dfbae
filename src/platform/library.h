#pragma once

#include <string>

/// Libraries loaded at run time. Any thread, also before `main`.
namespace platform {

using LibraryHandle = void *;
using FunctionAddress = void (*)();

/// Loads the library at `path` (ANSI encoding). Null on failure; no system error
/// dialog appears. A loaded library stays loaded.
LibraryHandle LoadLibraryFile(const char *path);

/// Address of the exported function `name`, null when there is none.
FunctionAddress FindFunction(LibraryHandle library, const char *name);

} // namespace platform
