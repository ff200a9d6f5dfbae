#include "platform/processes.h"

#include "platform/posix/executable_link.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/multibyte_text.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <string_view>
#include <sys/syscall.h>
#include <utility>

namespace platform {
namespace {

FileDescriptor OpenProcessFolder(ProcessId id)
{
    const std::string path = "/proc/" + std::to_string(id);
    return FileDescriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

/// Process id of a `/proc` entry; 0 if its name is not a number.
ProcessId ProcessIdOf(std::string_view folderName)
{
    ProcessId id = 0;
    const char *const end = folderName.data() + folderName.size();
    const auto [stop, error] = std::from_chars(folderName.data(), end, id);
    return error == std::errc() && stop == end ? id : 0;
}

/// Signals the process whose `/proc` folder is open, which a re-used identifier cannot redirect.
/// Falls back to kill() if the kernel lacks the call.
bool Signal(int processFolder, ProcessId id, int signal)
{
    if (::syscall(SYS_pidfd_send_signal, processFolder, signal, nullptr, 0U) == 0) {
        return true;
    }
    if (errno != ENOSYS && errno != EBADF) {
        return false;
    }
    return ::kill(static_cast<pid_t>(id), signal) == 0;
}

/// A zombie still has its `/proc` folder.
bool HasEnded(int processFolder)
{
    return !ReadExeLink(processFolder) && (errno == ENOENT || errno == ESRCH);
}

} // namespace

void VisitProcesses(const std::function<void(const ProcessEntry &entry)> &visit)
{
    const FolderStream folder(::opendir("/proc"));
    if (!folder) {
        return;
    }
    while (const dirent *const item = ::readdir(folder.Get())) {
        const ProcessId id = ProcessIdOf(item->d_name);
        const FileDescriptor process = id != 0 ? OpenProcessFolder(id) : FileDescriptor();
        const auto path = process ? ReadExeLink(process.Get()) : std::nullopt;
        // No path: a kernel thread, one that has just ended, or one that we may not inspect.
        if (path) {
            visit({id, ToWide(FileNameOf(*path))});
        }
    }
}

struct OpenedProcess::State
{
    FileDescriptor folder;
    ProcessId id;
};

OpenedProcess OpenedProcess::Open(ProcessId id)
{
    FileDescriptor folder = OpenProcessFolder(id);
    constexpr int kOnlyAsk = 0;
    OpenedProcess process;
    if (folder && !HasEnded(folder.Get()) && Signal(folder.Get(), id, kOnlyAsk)) {
        process.state_ = {new State{std::move(folder), id}, DeleteState<State>};
    }
    return process;
}

std::optional<std::wstring> OpenedProcess::ImagePath(std::size_t capacity) const
{
    const auto path = state_ ? ReadExeLink(state_->folder.Get()) : std::nullopt;
    if (!path) {
        return std::nullopt;
    }
    std::wstring text = ToWide(*path);
    if (text.size() >= capacity) {
        return std::nullopt;
    }
    return text;
}

void OpenedProcess::Terminate(std::uint32_t) const
{
    if (state_) {
        Signal(state_->folder.Get(), state_->id, SIGKILL);
    }
}

} // namespace platform
