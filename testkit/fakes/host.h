#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the fakes ask of the operating system. They do not use the program's own platform layer
/// for it: a fault in there must not hide itself. All texts are UTF-8.
namespace host {

/// Full path of the running executable.
std::filesystem::path ExecutablePath();

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

} // namespace host
