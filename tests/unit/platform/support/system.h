#pragma once

#include "testkit/os/os.h"
#include "testkit/os/waiting.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

/// What the contract tests need of the operating system besides the code under test.
namespace contract {

using namespace os; // NOLINT(google-build-using-namespace): one vocabulary for the tests

/// Keeps something in effect, such as an open handle or a setting, as long as the object lives.
using Held = std::shared_ptr<void>;
/// Calls `action` at the end of the object's life.
Held AtEnd(std::function<void()> action);

/// A new, empty folder; the destructor removes it with its content.
class ScratchFolder
{
public:
    ScratchFolder();

    const std::filesystem::path &Path() const
    {
        return path_;
    }
    std::filesystem::path operator/(const std::filesystem::path &name) const
    {
        return path_ / name;
    }

private:
    std::filesystem::path path_;
    Held removal_;
};

/// A name that is unique across processes and calls.
std::string UniqueName(const std::string &beginning);

/// Creates or replaces the file.
void WriteFile(const std::filesystem::path &path, const std::string &content);
/// Content of the file; empty when there is none.
std::string ReadFile(const std::filesystem::path &path);

/// Creates a symbolic link to a file that need not exist; false if the system refuses.
bool CreateLink(const std::filesystem::path &link, const std::filesystem::path &target);

/// Makes `name` a mutex that exists but that a process without privileges may not open.
/// `lockFolder` is where lock files lie, on systems that have them.
Held ForbidMutex(const std::string &name, const std::filesystem::path &lockFolder);
/// Makes it impossible to create a mutex called `name`, for a reason other than permission.
Held ObstructMutex(const std::string &name, const std::filesystem::path &lockFolder);
/// Takes the process's privileges away, where it has any.
Held DropPrivileges();

/// Opens `path` for this process alone with a handle that a started process would inherit if it
/// inherited handles at all. Null when another handle on it is open.
Held OpenExclusivelyInheritable(const std::filesystem::path &path);

/// "idle", "normal" or "other": the scheduling class of this process.
std::string OwnPriority();
/// Facts of this process that only one system has, a line each.
std::string OwnFacts();
/// Whether such facts are those of a hidden process: one that was told to hide, or, on Linux, one
/// with a session of its own and streams to nowhere.
bool IsHidden(const std::string &facts);

} // namespace contract
