#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What fakes and tests need of the operating system, without the program's own platform layer: a
/// bug in it must not hide itself. Texts are UTF-8 unless said otherwise.
namespace os {

/// Full path of the running executable.
std::filesystem::path ExecutablePath();

/// A path as wide text; `wstring()` fails on POSIX for characters that the C++ locale lacks.
std::wstring WideText(const std::filesystem::path &path);

/// The file-name extension of programs, with its dot; empty where programs have none.
std::string ProgramExtension();

/// The command-line arguments without the program.
std::vector<std::string> Arguments(int argc, char **argv);

/// Value of an environment variable; no value when it is not set.
std::optional<std::string> EnvironmentVariable(const std::string &name);

std::uint32_t OwnProcessId();

/// The open descriptors beyond the three standard ones: their numbers; on Windows the inherited
/// handles, each with its type. Call it before anything is opened.
std::vector<std::string> OpenDescriptors();

/// Appends `bytes` to the file atomically, also while other processes do. Failure has no effect.
void AppendAtomically(const std::filesystem::path &file, std::string_view bytes);

/// The end of the session or terminal that started this process does not end it.
void OutliveParent();

/// Ends this process at once, as another process would terminate it.
[[noreturn]] void EndByForce();

/// Sets standard output to binary mode.
void BinaryOutput();

/// Starts `program`, without arguments and detached: it is not a child of this process and inherits
/// nothing. Returns when it runs or could not be started. May be called while a library loads.
void StartDetached(const std::filesystem::path &program);

/// Whether `path` lies below the folder `root`.
bool IsBelow(const std::string &path, const std::string &root);

struct RunningProcess
{
    std::uint32_t id = 0;
    std::string path; ///< of the executable, also when that has been deleted
    std::uint64_t memoryKb = 0;
};

/// Every process whose executable can be read. `wanted`, when not empty, is an image name (any
/// case) to which the result may be restricted.
std::vector<RunningProcess> RunningProcesses(std::string_view wanted);

/// The calling thread's last error.
std::uint32_t LastError();
void SetLastError(std::uint32_t error);

/// A child process. Destroying the object ends it.
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

/// Unloads a library once. The program never does.
void UnloadLibrary(void *library);
/// Whether this process has loaded the library with that full path.
bool IsLibraryLoaded(const std::filesystem::path &path);

} // namespace os
