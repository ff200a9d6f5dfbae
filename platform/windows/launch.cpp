#include "platform/launch.h"

#include "platform/windows/launch_sequence.h"

namespace platform {
namespace {

struct System
{
    template<class... Arguments> void CreateProcessNarrow(Arguments... arguments)
    {
        ::CreateProcessA(arguments...);
    }
    void SetPriorityClass(HANDLE process, DWORD priorityClass)
    {
        ::SetPriorityClass(process, priorityClass);
    }
    void SetProcessPriorityBoost(HANDLE process, BOOL disabled)
    {
        ::SetProcessPriorityBoost(process, disabled);
    }
};

} // namespace

void LaunchDetached(const std::string &commandLine,
                    const std::string &workingDirectory,
                    const LaunchOptions &options)
{
    System system;
    LaunchSequence(system, commandLine, workingDirectory, options);
}

} // namespace platform
