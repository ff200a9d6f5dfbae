#include "platform/library.h"
#include "platform/module_path.h"
#include "platform/named_mutex.h"
#include "tests/unit/platform/support/child.h"
#include "tests/unit/platform/support/desktop.h"

#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <thread>

using namespace contract; // NOLINT(google-build-using-namespace): a part of the tests

namespace {

constexpr int kAbandoned = 99;
constexpr std::size_t kLongPath = 4096;

// Read before `main`, which is when the program reads it to load the telemetry library.
const std::string kPathBeforeMain = platform::ExecutablePath(kLongPath);

platform::NamedMutex mutex;
TestWindow window;
std::optional<int> exitCode;

std::string CreateMutex(const std::string &name)
{
    std::uint32_t error = 0;
    mutex = platform::NamedMutex::Create({name.begin(), name.end()}, error);
    return std::to_string(error) + (mutex ? " handle" : " empty");
}

/// Waits for the file `gate`, so that all processes try at the same moment.
std::string RaceForMutex(const std::string &name, const std::filesystem::path &gate)
{
    const auto end = std::chrono::steady_clock::now() + kDeadline;
    while (!std::filesystem::exists(gate) && std::chrono::steady_clock::now() < end) {
        std::this_thread::yield();
    }
    return CreateMutex(name);
}

std::string Launch(const std::string &mailbox, const std::string &commandLine)
{
    const ScopedVariable variable(kMailboxVariable, mailbox);
    platform::LaunchDetached(commandLine, std::filesystem::current_path().string(), {});
    return "launched";
}

std::string LoadLibrary(const std::string &path)
{
    const platform::LibraryHandle library = platform::LoadLibraryFile(path.c_str());
    return platform::FindFunction(library, "ContractSum") != nullptr ? "loaded" : "missing";
}

std::string AppendToFile(const std::string &path, const std::string &text)
{
    std::ofstream file(path, std::ios::binary | std::ios::app);
    file << text << std::flush;
    return file.good() ? "written" : "failed";
}

using Answer = std::function<std::string(const Lines &command)>;
std::map<std::string, Answer> commands;

std::string Execute(const Lines &command)
{
    const auto found = commands.find(command.at(0));
    return found != commands.end() ? found->second(command) : "(unknown command)";
}

void On(const char *name, Answer answer)
{
    commands.emplace(name, std::move(answer));
}

void AddCommands(const Lines &arguments)
{
    On("append-to-file", [](const Lines &c) { return AppendToFile(c.at(1), c.at(2)); });
    On("arguments", [arguments](const Lines &) {
        std::string text;
        for (const std::string &argument : arguments) {
            text += argument + '\n';
        }
        return text;
    });
    On("close-mutex", [](const Lines &) { return mutex.Close(), "closed"; });
    On("close-window", [](const Lines &) { return window.open.reset(), "closed"; });
    On("create-mutex", [](const Lines &c) { return CreateMutex(c.at(1)); });
    On("directory", [](const Lines &) { return std::filesystem::current_path().string(); });
    On("exit", [](const Lines &c) { return exitCode = std::stoi(c.at(1)), "ending"; });
    On("facts", [](const Lines &) { return OwnFacts(); });
    On("folder-is-exact",
       [](const Lines &) { return platform::IsExecutableFolderExact(kLongPath) ? "yes" : "no"; });
    On("id", [](const Lines &) { return std::to_string(OwnProcessId()); });
    On("launch", [](const Lines &c) { return Launch(c.at(1), c.at(2)); });
    On("load-library", [](const Lines &c) { return LoadLibrary(c.at(1)); });
    On("open-process", [](const Lines &c) {
        const auto id = static_cast<platform::ProcessId>(std::stoul(c.at(1)));
        return platform::OpenedProcess::Open(id) ? "opened" : "empty";
    });
    On("open-window", [](const Lines &) {
        window = OpenWindow();
        return std::to_string(window.handle);
    });
    On("path", [](const Lines &) { return platform::ExecutablePath(kLongPath); });
    On("path-before-main", [](const Lines &) { return kPathBeforeMain; });
    On("priority", [](const Lines &) { return OwnPriority(); });
    On("race-for-mutex", [](const Lines &c) { return RaceForMutex(c.at(1), c.at(2)); });
    On("read-file", [](const Lines &c) { return ReadFile(c.at(1)); });
    On("release-mutex", [](const Lines &) { return mutex.Release(), "released"; });
    On("unprivileged", [](const Lines &c) {
        const Held dropped = DropPrivileges();
        return Execute({c.begin() + 1, c.end()});
    });
    On("variable", [](const Lines &c) { return EnvironmentVariable(c.at(1)).value_or("(unset)"); });
}

} // namespace

// Carries out what a test asks for, one command after the other, until it is told to end or the
// test has ended and its folder is gone.
int main(int argc, char **argv)
{
    const char *const mailbox = std::getenv(kMailboxVariable);
    if (mailbox == nullptr) {
        return kAbandoned;
    }
    AddCommands({argv, argv + argc});
    int number = 1;
    const auto done = [&] {
        PumpMessages();
        if (const auto text = ReadMessage(MessageFile(mailbox, number, "command"))) {
            Lines command;
            std::istringstream lines(*text);
            for (std::string line; std::getline(lines, line);) {
                command.push_back(line);
            }
            WriteMessage(MessageFile(mailbox, number++, "answer"), Execute(command));
        }
        return exitCode.has_value() || !std::filesystem::exists(mailbox);
    };
    WaitUntil(done, 3 * kDeadline);
    return exitCode.value_or(kAbandoned);
}
