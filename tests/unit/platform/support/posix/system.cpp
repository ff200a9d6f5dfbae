#include "tests/unit/platform/support/system.h"

#include <fcntl.h>
#include <fstream>
#include <sched.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

namespace contract {

bool CreateLink(const std::filesystem::path &link, const std::filesystem::path &target)
{
    std::filesystem::create_symlink(target, link);
    return true;
}

Held ForbidMutex(const std::string &name, const std::filesystem::path &lockFolder)
{
    const std::filesystem::path file = lockFolder / (name + ".lock");
    WriteFile(file, "");
    std::filesystem::permissions(file, std::filesystem::perms::none);
    return {};
}

Held ObstructMutex(const std::string &, const std::filesystem::path &lockFolder)
{
    std::filesystem::remove_all(lockFolder);
    return {};
}

// The kernel would let root open everything.
Held DropPrivileges()
{
    constexpr uid_t kNobody = 65534;
    if (::geteuid() != 0) {
        return {};
    }
    (void)::setresuid(kNobody, kNobody, 0); // the saved user allows the way back
    return AtEnd([] { (void)::setresuid(0, 0, 0); });
}

Held OpenExclusivelyInheritable(const std::filesystem::path &path)
{
    // Without O_CLOEXEC, on purpose.
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT, S_IRUSR | S_IWUSR);
    Held open = AtEnd([file] { ::close(file); });
    return ::flock(file, LOCK_EX | LOCK_NB) == 0 ? open : nullptr;
}

std::string OwnPriority()
{
    constexpr int kLowest = 19;
    const int nice = ::getpriority(PRIO_PROCESS, 0);
    const int policy = ::sched_getscheduler(0);
    if (nice == kLowest && policy == SCHED_IDLE) {
        return "idle";
    }
    return nice == 0 && policy == SCHED_OTHER ? "normal" : "other";
}

std::string OwnFacts()
{
    std::string facts = "session " + std::to_string(::getsid(0)) + '\n' + "parent " +
                        std::to_string(::getppid()) + '\n';
    for (const auto &item : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        const std::filesystem::path target = std::filesystem::read_symlink(item.path(), error);
        // The folder that is being read is open as well.
        if (!error && target.string().find("/fd") == std::string::npos) {
            facts += "descriptor " + item.path().filename().string() + ' ' + target.string() + '\n';
        }
    }
    std::ifstream status("/proc/self/status"); // blocked and ignored signals, among others
    for (std::string line; std::getline(status, line);) {
        facts += line.rfind("Sig", 0) == 0 ? line + '\n' : "";
    }
    return facts;
}

bool IsHidden(const std::string &facts)
{
    const auto has = [&facts](const std::string &line) {
        return facts.find(line + '\n') != std::string::npos;
    };
    return !has("session " + std::to_string(::getsid(0))) && has("descriptor 0 /dev/null") &&
           has("descriptor 1 /dev/null") && has("descriptor 2 /dev/null");
}

} // namespace contract
