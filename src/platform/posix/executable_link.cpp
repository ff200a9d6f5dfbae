#include "platform/posix/executable_link.h"

#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace platform {
namespace {

std::optional<std::string> ReadLink(int folder, const char *link)
{
    constexpr std::size_t kFirstGuess = 256;
    std::string target(kFirstGuess, '\0');
    for (;;) {
        const ssize_t length = ::readlinkat(folder, link, target.data(), target.size());
        if (length < 0) {
            return std::nullopt;
        }
        if (static_cast<std::size_t>(length) < target.size()) {
            target.resize(static_cast<std::size_t>(length));
            break;
        }
        target.resize(target.size() * 2); // it may have been cut
    }
    constexpr std::string_view kDeletedMark = " (deleted)";
    if (target.size() >= kDeletedMark.size() &&
        target.compare(target.size() - kDeletedMark.size(), kDeletedMark.size(), kDeletedMark) ==
            0) {
        target.resize(target.size() - kDeletedMark.size());
    }
    return target;
}

} // namespace

std::optional<std::string> ReadExeLink(int processFolder)
{
    return ReadLink(processFolder, "exe");
}

std::optional<std::string> ReadOwnExeLink()
{
    // valgrind emulates exactly this path.
    return ReadLink(AT_FDCWD, "/proc/self/exe");
}

std::string FileNameOf(const std::string &path)
{
    return path.substr(path.rfind('/') + 1); // npos + 1 is 0
}

} // namespace platform
