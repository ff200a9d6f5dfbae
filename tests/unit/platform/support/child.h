#pragma once

#include "tests/unit/platform/support/mailbox.h"
#include "tests/unit/platform/support/scratch_folder.h"
#include "tests/unit/platform/support/system.h"

#include "platform/launch.h"
#include "platform/processes.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace contract {

/// The helper program beside the test program.
std::filesystem::path ChildProgram();
/// A copy of the helper program, with everything it needs, under another path.
void CopyChildProgram(const std::filesystem::path &to);
/// The fixture library beside the test program.
std::filesystem::path FixtureLibrary();

/// The test's end of a mailbox that has a running child at the other end.
class Child
{
public:
    Child();
    virtual ~Child() = default;
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;
    Child(Child &&) = delete;
    Child &operator=(Child &&) = delete;

    /// Sends the command and gives the answer.
    std::string Ask(const Lines &command);
    void Send(const Lines &command);
    std::string AwaitAnswer();

    /// Folder of the mailbox: a child that finds it in its environment is this one.
    const std::filesystem::path &Folder() const;

private:
    ScratchFolder folder_;
    Mailbox mailbox_;
};

/// A child that the test has started itself.
class StartedChild : public Child
{
public:
    explicit StartedChild(const std::filesystem::path &program = ChildProgram());
    ~StartedChild() override;
    StartedChild(const StartedChild &) = delete;
    StartedChild &operator=(const StartedChild &) = delete;
    StartedChild(StartedChild &&) = delete;
    StartedChild &operator=(StartedChild &&) = delete;

    StartedProcess &Process()
    {
        return *process_;
    }

private:
    std::optional<StartedProcess> process_;
};

/// A child that somebody has started with `LaunchDetached`. It is told to end, and waited for, when
/// the object goes.
class DetachedChild : public Child
{
public:
    DetachedChild() = default;
    ~DetachedChild() override;
    DetachedChild(const DetachedChild &) = delete;
    DetachedChild &operator=(const DetachedChild &) = delete;
    DetachedChild(DetachedChild &&) = delete;
    DetachedChild &operator=(DetachedChild &&) = delete;

    /// Starts it from this process and waits until it answers.
    void Launch(const std::string &commandLine,
                const std::filesystem::path &workingDirectory,
                const platform::LaunchOptions &options = {});
    /// Waits until it answers, whoever has started it.
    void AwaitStart();

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
