#pragma once

/// The value at which the progress waits while the uninstaller still runs.
inline constexpr int kProgressHold = 99;
/// The value after the uninstaller has ended.
inline constexpr int kProgressEnd = 100;

/// The progress after one tick, from the progress `value` before it. Nothing is clamped.
int NextProgress(int value, bool uninstallerRunning);
