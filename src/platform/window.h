#pragma once

#include <cstdint>

namespace platform {

/// A native window handle as stored in hwndFile.ini.
using WindowHandle = std::uint64_t;

/// Whether `window` is an existing window, of whatever process.
bool WindowExists(WindowHandle window);

/// Restores `window` when it is minimised, raises it above all others without leaving it top-most,
/// and activates it. Works without a Qt application; a failure is not reported.
void BringToFront(WindowHandle window);

/// Whether the system draws drop shadows under windows and menus. False when it does not tell.
bool DropShadowEnabled();

} // namespace platform
