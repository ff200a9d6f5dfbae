#pragma once

#include "platform/launch.h"

#include <QString>

#include <string>

/// The part of `path` before its last separator; empty when there is none.
std::wstring DirectoryOf(const std::wstring &path);

/// Directory of the running executable without a trailing separator.
std::wstring GetModuleDirW();

/// Ends every process whose image name is `name` and whose executable lies directly in `dir`, both
/// compared as plain text without regard to case. True when at least one was ended; processes that
/// may not be opened are passed over.
bool KillProcessInDir(const std::wstring &name, const std::wstring &dir);

/// Ends the telemetry library's companion processes that were started from the program directory.
void KillTelemetryHelper();

/// How the clean-up is launched: hidden, with idle priority, without priority boost.
inline constexpr platform::LaunchOptions kCleanupLaunch = {
    platform::ShowWindow::Hidden, platform::PriorityClass::Idle, false};

/// Starts the command line with `kCleanupLaunch` and the temp directory as working directory.
/// Nothing waits for it and a failure is not reported. A command that the ANSI encoding cannot
/// carry is not started. Main thread.
void LaunchCleanupCommand(const QString &command);
