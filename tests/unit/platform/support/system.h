#pragma once

#include "testkit/os/os.h"
#include "testkit/os/waiting.h"

#include <filesystem>
#include <memory>
#include <string>

/// What the contract tests need of the operating system beside the code under test.
namespace contract {

using namespace os; // NOLINT(google-build-using-namespace): one vocabulary for the tests

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
