#pragma once

#include "platform/launch.h"

#include <string>
#include <windows.h>

namespace platform {

/// The calls that start a process and lower its priority, in their order. `Calls` is the system or
/// a test that records. The priority calls follow whatever the creation returned, with the null
/// handle of the zero-filled record after a failure. The new process's handles stay open.
template<class Calls>
void LaunchSequence(Calls &calls,
                    // cppcheck-suppress passedByValue ; a copy for the call to write into
                    std::string commandLine,
                    const std::string &workingDirectory,
                    const LaunchOptions &options)
{
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    if (options.show == ShowWindow::Hidden) {
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = SW_HIDE;
    }
    PROCESS_INFORMATION process = {};
    calls.CreateProcessNarrow(nullptr,
                              commandLine.data(), // the call may write into it
                              nullptr,
                              nullptr,
                              FALSE,
                              0,
                              nullptr,
                              workingDirectory.c_str(),
                              &startup,
                              &process);
    if (options.priority == PriorityClass::Idle) {
        calls.SetPriorityClass(process.hProcess, IDLE_PRIORITY_CLASS);
    }
    if (!options.priorityBoost) {
        constexpr BOOL kSwitchedOff = TRUE;
        calls.SetProcessPriorityBoost(process.hProcess, kSwitchedOff);
    }
}

} // namespace platform
