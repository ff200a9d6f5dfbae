#include "tests/unit/platform/support/child.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>

namespace contract {

static constexpr const char *kEnd = "(end of message)";

std::filesystem::path MessageFile(const std::string &mailbox, int number, const char *kind)
{
    return std::filesystem::path(mailbox) / (std::to_string(number) + '.' + kind);
}

void WriteMessage(const std::filesystem::path &file, const std::string &content)
{
    WriteFile(file, content + kEnd);
}

std::optional<std::string> ReadMessage(const std::filesystem::path &file)
{
    const std::string content = ReadFile(file);
    const std::size_t end = content.rfind(kEnd);
    return end != std::string::npos ? std::optional(content.substr(0, end)) : std::nullopt;
}

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

std::string Child::Ask(const Lines &command)
{
    Send(command);
    return AwaitAnswer();
}

void Child::Send(const Lines &command)
{
    std::string text;
    for (const std::string &line : command) {
        text += line + '\n';
    }
    WriteMessage(MessageFile(Mailbox(), ++commands_, "command"), text);
}

std::string Child::AwaitAnswer() const
{
    std::optional<std::string> answer;
    const auto file = MessageFile(Mailbox(), commands_, "answer");
    WaitUntil([&] { return (answer = ReadMessage(file)).has_value(); });
    return answer.value_or(kNoAnswer);
}

StartedChild::StartedChild(const std::filesystem::path &program)
{
    const ScopedVariable mailbox(kMailboxVariable, Mailbox());
    // Wine sometimes starts a process that never reaches its own code, so try twice. The second
    // child also reads the earlier commands.
    constexpr int kStarts = 2;
    for (int start = 0; start < kStarts; ++start) {
        process_.reset();
        process_.emplace(program, Lines{});
        if (Ask({"id"}) != kNoAnswer) {
            return;
        }
        std::cerr << "child " << process_->Id() << " does not answer (start " << start << ")\n";
    }
}

DetachedChild::DetachedChild(const std::function<void(const std::string &mailbox)> &start)
{
    {
        const ScopedVariable mailbox(kMailboxVariable, Mailbox());
        start(Mailbox());
    }
    id_ = static_cast<platform::ProcessId>(std::strtoul(Ask({"id"}).c_str(), nullptr, 10));
}

DetachedChild::DetachedChild(const std::string &commandLine,
                             const std::filesystem::path &directory,
                             const platform::LaunchOptions &options)
    : DetachedChild([&](const std::string &) {
        platform::LaunchDetached(commandLine, directory.string(), options);
    })
{
}

DetachedChild::~DetachedChild()
{
    if (id_ != 0) {
        Send({"exit", "0"});
        WaitUntil([this] { return !IsRunning(id_); });
    }
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
