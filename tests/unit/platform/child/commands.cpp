#include "tests/unit/platform/child/commands.h"

#include "platform/launch.h"
#include "platform/library.h"
#include "platform/module_path.h"
#include "platform/named_mutex.h"
#include "platform/processes.h"
#include "tests/unit/platform/support/desktop.h"
#include "tests/unit/platform/support/scratch_folder.h"
#include "tests/unit/platform/support/system.h"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <thread>
#include <utility>

namespace contract {
namespace {

struct Child
{
    Lines arguments;
    platform::NamedMutex mutex;
    std::unique_ptr<TestWindow> window;
    std::optional<int> exitCode;
};

Child &Self()
{
    static Child child;
    return child;
}

constexpr std::size_t kLongPath = 4096;

// Before `main`, where the telemetry library is loaded in the program.
const std::string kPathBeforeMain = platform::ExecutablePath(kLongPath);

std::string CreateMutex(const Lines &command)
{
    const std::string &name = command.at(1);
    std::uint32_t error = 0;
    Self().mutex = platform::NamedMutex::Create(std::wstring(name.begin(), name.end()), error);
    return std::to_string(error) + (Self().mutex ? " handle" : " empty");
}

/// All at the same moment: when the file appears that the last line names.
std::string RaceForMutex(const Lines &command)
{
    const auto end = std::chrono::steady_clock::now() + kDeadline;
    while (!std::filesystem::exists(command.at(2)) && std::chrono::steady_clock::now() < end) {
        std::this_thread::yield();
    }
    return CreateMutex(command);
}

std::string Launch(const Lines &command)
{
    const ScopedVariable mailbox(kMailboxVariable, command.at(1));
    platform::LaunchDetached(command.at(2), std::filesystem::current_path().string(), {});
    return "launched";
}

std::string LoadLibrary(const Lines &command)
{
    const platform::LibraryHandle library = platform::LoadLibraryFile(command.at(1).c_str());
    return platform::FindFunction(library, "ContractSum") != nullptr ? "loaded" : "missing";
}

std::string AppendToFile(const Lines &command)
{
    std::ofstream file(command.at(1), std::ios::binary | std::ios::app);
    file << command.at(2) << std::flush;
    return file.good() ? "written" : "failed";
}

std::string Variable(const Lines &command)
{
    const char *const value = std::getenv(command.at(1).c_str());
    return value != nullptr ? value : "(unset)";
}

std::string Arguments(const Lines &)
{
    std::string text;
    for (const std::string &argument : Self().arguments) {
        text += argument + '\n';
    }
    return text;
}

std::string OpenProcess(const Lines &command)
{
    const auto id = static_cast<platform::ProcessId>(std::stoul(command.at(1)));
    return platform::OpenedProcess::Open(id) ? "opened" : "empty";
}

std::string OpenWindow(const Lines &)
{
    Self().window = std::make_unique<TestWindow>();
    return std::to_string(Self().window->Handle());
}

/// The rest of the command, with the rights of nobody in particular.
std::string Unprivileged(const Lines &command)
{
    const auto dropped = DropPrivileges();
    return Execute({command.begin() + 1, command.end()});
}

using Answer = std::function<std::string(const Lines &)>;

const std::map<std::string, Answer> &Commands()
{
    static const std::map<std::string, Answer> commands = {
        {"append-to-file", AppendToFile},
        {"arguments", Arguments},
        {"close-mutex",
         [](const Lines &) {
             return Self().mutex.Close(), "closed";
         }},
        {"close-window",
         [](const Lines &) {
             return Self().window.reset(), "closed";
         }},
        {"create-mutex", CreateMutex},
        {"directory",
         [](const Lines &) {
             return std::filesystem::current_path().string();
         }},
        {"exit",
         [](const Lines &command) {
             Self().exitCode = std::stoi(command.at(1));
             return "ending";
         }},
        {"facts",
         [](const Lines &) {
             return OwnFacts();
         }},
        {"id",
         [](const Lines &) {
             return std::to_string(OwnProcessId());
         }},
        {"launch", Launch},
        {"load-library", LoadLibrary},
        {"open-process", OpenProcess},
        {"open-window", OpenWindow},
        {"path",
         [](const Lines &) {
             return platform::ExecutablePath(kLongPath);
         }},
        {"folder-is-exact",
         [](const Lines &) {
             return platform::IsExecutableFolderExact(kLongPath) ? "yes" : "no";
         }},
        {"path-before-main",
         [](const Lines &) {
             return kPathBeforeMain;
         }},
        {"priority",
         [](const Lines &) {
             return OwnPriority();
         }},
        {"race-for-mutex", RaceForMutex},
        {"read-file",
         [](const Lines &command) {
             return ReadFile(command.at(1));
         }},
        {"release-mutex",
         [](const Lines &) {
             return Self().mutex.Release(), "released";
         }},
        {"unprivileged", Unprivileged},
        {"variable", Variable},
    };
    return commands;
}

} // namespace

std::string Execute(const Lines &command)
{
    const auto found = Commands().find(command.at(0));
    return found != Commands().end() ? found->second(command) : "(unknown command)";
}

std::optional<int> RequestedExit()
{
    return Self().exitCode;
}

void Idle()
{
    if (Self().window) {
        Self().window->Pump();
    }
}

void SetArguments(Lines arguments)
{
    Self().arguments = std::move(arguments);
}

} // namespace contract
