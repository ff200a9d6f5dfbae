#pragma once

#include <string>

namespace platform {

enum class ShowWindow
{
    Normal,
    Hidden
};
enum class PriorityClass
{
    Normal,
    Idle
};

struct LaunchOptions
{
    ShowWindow show = ShowWindow::Normal;
    PriorityClass priority = PriorityClass::Normal;
    bool priorityBoost = true; ///< whether the system may raise the priority for a moment by itself
};

/// Starts `commandLine` (ANSI encoding, split into program and arguments by the system's own
/// rule) as a process of its own with `workingDirectory` and the inherited environment. It inherits
/// no handle, nothing waits for it, and a failure is not reported.
void LaunchDetached(const std::string &commandLine,
                    const std::string &workingDirectory,
                    const LaunchOptions &options);

} // namespace platform
