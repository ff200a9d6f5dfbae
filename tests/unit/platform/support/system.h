#pragma once

#include "platform/library.h"
#include "platform/processes.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

/// What the contract tests need of the operating system beside the code under test.
namespace contract {

platform::ProcessId OwnProcessId();
/// Full path of the running program.
std::filesystem::path OwnProgram();
/// A path as wide text; `wstring()` fails on POSIX for letters that the C++ locale does not have.
std::wstring WideText(const std::filesystem::path &path);
/// The file-name extension of programs, with its dot; empty where programs have none.
std::string ProgramExtension();

/// The calling thread's last error.
std::uint32_t LastError();
void SetLastError(std::uint32_t error);

/// A process of ours, whose end can be waited for. Destroying the object ends it.
class StartedProcess
{
public:
    StartedProcess(const std::filesystem::path &program, const std::vector<std::string> &arguments);
    StartedProcess(StartedProcess &&other) noexcept;
    StartedProcess &operator=(StartedProcess &&other) = delete;
    StartedProcess(const StartedProcess &) = delete;
    StartedProcess &operator=(const StartedProcess &) = delete;
    ~StartedProcess();

    platform::ProcessId Id() const;
    /// The exit code, or what `StatusOfTerminated` says. -1 when it does not end in time.
    int WaitForEnd();
    void EndAtOnce();

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// What `WaitForEnd` gives for a process that was terminated with `exitCode`.
int StatusOfTerminated(std::uint32_t exitCode);

/// An environment variable that has `value` as long as the object lives.
class ScopedVariable
{
public:
    ScopedVariable(std::string name, const std::string &value);
    ~ScopedVariable();
    ScopedVariable(const ScopedVariable &) = delete;
    ScopedVariable &operator=(const ScopedVariable &) = delete;
    ScopedVariable(ScopedVariable &&) = delete;
    ScopedVariable &operator=(ScopedVariable &&) = delete;

private:
    std::string name_;
    bool wasSet_ = false;
    std::string previous_;
};

/// Gives one of the loads of a library back. The program never does.
void UnloadLibrary(platform::LibraryHandle library);
/// Whether this process has a library of that full path.
bool IsLibraryLoaded(const std::filesystem::path &path);

/// Something that the system holds as long as the object lives.
class Held
{
public:
    Held() = default;
    virtual ~Held() = default;
    Held(const Held &) = delete;
    Held &operator=(const Held &) = delete;
    Held(Held &&) = delete;
    Held &operator=(Held &&) = delete;
};

/// Makes `name` a mutex that exists but that a process without privileges may not open.
/// `lockFolder` is where lock files lie, on systems that have them.
std::unique_ptr<Held> ForbidMutex(const std::string &name, const std::filesystem::path &lockFolder);
/// Makes it impossible to create a mutex called `name`, for a reason other than permission.
std::unique_ptr<Held> ObstructMutex(const std::string &name,
                                    const std::filesystem::path &lockFolder);
/// Takes the process's privileges away, where it has any.
std::unique_ptr<Held> DropPrivileges();

/// Opens `path` for this process alone with a handle that a started process would inherit if it
/// inherited handles at all. Null when another handle on it is open.
std::unique_ptr<Held> OpenExclusivelyInheritable(const std::filesystem::path &path);

/// "idle", "normal" or "other": what the scheduler thinks of this process.
std::string OwnPriority();
/// Facts of this process that only one system has, a line each.
std::string OwnFacts();
/// Whether such facts are those of a process of which the user was to see nothing: one that was
/// told to hide, or, where nothing can be told, one with a session of its own and streams to
/// nowhere.
bool IsHidden(const std::string &facts);

} // namespace contract
