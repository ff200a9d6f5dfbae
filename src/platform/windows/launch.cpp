#include "platform/launch.h"

#include <windows.h>

namespace platform {

void LaunchDetached(const std::string &commandLine,
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
    std::string writable = commandLine; // CreateProcess may write into it
    ::CreateProcessA(nullptr,
                     writable.data(),
                     nullptr,
                     nullptr,
                     FALSE,
                     0,
                     nullptr,
                     workingDirectory.c_str(),
                     &startup,
                     &process);
    // After a failure, hProcess is null and these calls fail harmlessly. The handles are never
    // closed: the program exits next.
    if (options.priority == PriorityClass::Idle) {
        ::SetPriorityClass(process.hProcess, IDLE_PRIORITY_CLASS);
    }
    if (!options.priorityBoost) {
        constexpr BOOL kSwitchedOff = TRUE;
        ::SetProcessPriorityBoost(process.hProcess, kSwitchedOff);
    }
}

} // namespace platform
