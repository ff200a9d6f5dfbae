#include "tests/unit/platform/support/child.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>

namespace contract {

std::filesystem::path ChildProgram()
{
    return ExecutablePath().parent_path() / ("contract_child" + ProgramExtension());
}

void CopyChildProgram(const std::filesystem::path &to)
{
    std::filesystem::create_directories(to.parent_path());
    std::filesystem::copy_file(ChildProgram(), to);
}

std::filesystem::path FixtureLibrary()
{
    return ExecutablePath().parent_path() / "contract_library.dll";
}

Child::Child()
    : mailbox_(folder_.Path())
{
}

std::string Child::Ask(const Lines &command)
{
    Send(command);
    return AwaitAnswer();
}

void Child::Send(const Lines &command)
{
    mailbox_.Send(command);
}

std::string Child::AwaitAnswer()
{
    return mailbox_.AwaitAnswer();
}

const std::filesystem::path &Child::Folder() const
{
    return folder_.Path();
}

StartedChild::StartedChild(const std::filesystem::path &program)
{
    const ScopedVariable mailbox(kMailboxVariable, Folder().string());
    // Wine has been seen to start a process that never got to its own code; a child is only the
    // surroundings of a test, so there may be a second one. A later child reads the earlier
    // questions, too.
    constexpr int kStarts = 2;
    for (int start = 0; start < kStarts; ++start) {
        process_.reset();
        process_.emplace(program, Lines{});
        if (Ask({"id"}) != Mailbox::kNoAnswer) {
            return;
        }
        std::cerr << "child " << process_->Id() << " of start " << start << " says nothing\n";
    }
}

StartedChild::~StartedChild()
{
    process_.reset(); // before the folder goes
}

DetachedChild::~DetachedChild()
{
    if (id_ != 0) {
        Send({"exit", "0"});
        WaitUntil([this] { return !IsRunning(id_); });
    }
}

void DetachedChild::Launch(const std::string &commandLine,
                           const std::filesystem::path &workingDirectory,
                           const platform::LaunchOptions &options)
{
    {
        const ScopedVariable mailbox(kMailboxVariable, Folder().string());
        platform::LaunchDetached(commandLine, workingDirectory.string(), options);
    }
    AwaitStart();
}

void DetachedChild::AwaitStart()
{
    const std::string answer = Ask({"id"});
    id_ = static_cast<platform::ProcessId>(std::strtoul(answer.c_str(), nullptr, 10));
}

std::vector<platform::ProcessEntry> ListedProcesses()
{
    std::vector<platform::ProcessEntry> processes;
    platform::VisitProcesses([&](const auto &process) { processes.push_back(process); });
    if (processes.empty()) {
        throw std::runtime_error("the system lists no processes");
    }
    return processes;
}

std::wstring ImageNameOf(platform::ProcessId id)
{
    for (const auto &process : ListedProcesses()) {
        if (process.id == id) {
            return process.imageName;
        }
    }
    return {};
}

bool IsImageRunning(const std::wstring &imageName)
{
    const auto processes = ListedProcesses();
    return std::any_of(processes.begin(), processes.end(), [&](const auto &process) {
        return process.imageName == imageName;
    });
}

bool IsRunning(platform::ProcessId id)
{
    return !ImageNameOf(id).empty();
}

} // namespace contract
