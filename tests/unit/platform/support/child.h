#pragma once

#include "tests/unit/platform/support/system.h"

#include "platform/launch.h"
#include "platform/processes.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace contract {

/// Lines of a command; the first one is its name. child/main.cpp lists the commands.
using Lines = std::vector<std::string>;

/// The environment variable with the folder of the files through which a test and a child talk: the
/// test numbers its commands, the child answers each one. A detached child has no pipe to the test.
inline constexpr const char *kMailboxVariable = "CONTRACT_MAILBOX";
/// The file of a "command" or an "answer".
std::filesystem::path MessageFile(const std::string &mailbox, int number, const char *kind);
void WriteMessage(const std::filesystem::path &file, const std::string &content);
/// The complete message; no value while there is none.
std::optional<std::string> ReadMessage(const std::filesystem::path &file);

/// The helper program beside the test program.
std::filesystem::path ChildProgram();
/// Copies the helper program to another path, whose folder it creates.
void CopyChildProgram(const std::filesystem::path &to);
/// The fixture library beside the test program.
std::filesystem::path FixtureLibrary();

/// The test's side of a child process.
class Child
{
public:
    /// Sends the command and gives the answer.
    std::string Ask(const Lines &command);
    void Send(const Lines &command);
    /// The answer to the command sent last; `kNoAnswer` when it does not come.
    std::string AwaitAnswer() const;
    static constexpr const char *kNoAnswer = "(no answer)";

    std::string Mailbox() const
    {
        return folder_.Path().string();
    }

private:
    ScratchFolder folder_;
    int commands_ = 0;
};

/// A child that the test starts itself.
class StartedChild : public Child
{
public:
    explicit StartedChild(const std::filesystem::path &program = ChildProgram());

    StartedProcess &Process()
    {
        return *process_;
    }

private:
    std::optional<StartedProcess> process_;
};

/// A child that is started detached. It is told to end, and waited for, when the object goes.
class DetachedChild : public Child
{
public:
    /// `start` makes something start the child, which then answers.
    explicit DetachedChild(const std::function<void(const std::string &mailbox)> &start);
    explicit DetachedChild(const std::string &commandLine,
                           const std::filesystem::path &directory = std::filesystem::current_path(),
                           const platform::LaunchOptions &options = {});
    ~DetachedChild();
    DetachedChild(const DetachedChild &) = delete;
    DetachedChild &operator=(const DetachedChild &) = delete;

    platform::ProcessId Id() const
    {
        return id_;
    }

private:
    platform::ProcessId id_ = 0;
};

/// All entries of a snapshot.
std::vector<platform::ProcessEntry> ListedProcesses();
/// Whether a process with that identifier is in the snapshot.
bool IsRunning(platform::ProcessId id);
/// Whether a process with that image name is in the snapshot.
bool IsImageRunning(const std::wstring &imageName);
/// Its image name in the snapshot; empty when it is not there.
std::wstring ImageNameOf(platform::ProcessId id);

} // namespace contract
