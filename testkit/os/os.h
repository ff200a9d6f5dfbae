#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What fakes and tests ask of the operating system. They do not use the program's own platform
/// layer for it: a bug in there must not hide itself. Texts are UTF-8 unless said otherwise.
namespace os {

/// Full path of the running executable.
std::filesystem::path ExecutablePath();

/// A path as wide text; `wstring()` fails on POSIX for letters that the C++ locale does not have.
std::wstring WideText(const std::filesystem::path &path);

/// The file-name extension of programs, with its dot; empty where programs have none.
std::string ProgramExtension();

/// The command-line arguments without the program.
std::vector<std::string> Arguments(int argc, char **argv);

/// Value of an environment variable; no value when it is not set.
std::optional<std::string> EnvironmentVariable(const std::string &name);

std::uint32_t OwnProcessId();

/// The open descriptors beyond the three standard ones: their numbers; on Windows the inherited
/// handles, each with what it is of. To be asked before anything is opened.
std::vector<std::string> OpenDescriptors();

/// Appends `bytes` to the file in one piece; other processes may be doing the same. Failure has no
/// effect.
void AppendInOnePiece(const std::filesystem::path &file, std::string_view bytes);

/// The end of the session or terminal that started this process does not end it.
void OutliveParent();

/// Ends this process at once, in the way in which another one would end it.
[[noreturn]] void EndByForce();

/// Standard output takes bytes as they are.
void BinaryOutput();

/// Starts `program`, without arguments, as no child of this process; it inherits nothing. Returns
/// when the process runs that program or could not be started. Fit for use while a library loads.
void StartUnrelated(const std::filesystem::path &program);

/// Whether `path` lies below the folder `root`.
bool IsBelow(const std::string &path, const std::string &root);

struct RunningProcess
{
    std::uint32_t id = 0;
    std::string path; ///< of the executable, also when that has been deleted
    std::uint64_t memoryKb = 0;
};

/// Every process whose executable may be asked for. `wanted`, when not empty, is an image name (any
/// case) to which the result may be narrowed.
std::vector<RunningProcess> RunningProcesses(std::string_view wanted);

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

    std::uint32_t Id() const;
    /// The exit code, or what `StatusOfTerminated` says. -1 when it does not end in time.
    int WaitForEnd();
    void EndAtOnce();

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// What `WaitForEnd` gives for a process that was terminated with `exitCode`.
int StatusOfTerminated(std::uint32_t exitCode);

/// An environment variable that has `value`, in the system's ANSI encoding, as long as the object
/// lives.
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
void UnloadLibrary(void *library);
/// Whether this process has a library of that full path.
bool IsLibraryLoaded(const std::filesystem::path &path);

} // namespace os
