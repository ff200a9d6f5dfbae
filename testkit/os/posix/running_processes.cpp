#include "testkit/os/os.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace os {

namespace {

constexpr std::string_view kDeleted = " (deleted)";

std::string ExecutableOf(const std::string &process)
{
    std::array<char, 4096> buffer = {};
    const ssize_t length =
        ::readlink(("/proc/" + process + "/exe").c_str(), buffer.data(), buffer.size());
    std::string path(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    if (path.size() > kDeleted.size() &&
        path.compare(path.size() - kDeleted.size(), kDeleted.size(), kDeleted) == 0) {
        path.resize(path.size() - kDeleted.size());
    }
    return path;
}

// Resident memory: the second number of `statm`, in pages.
std::uint64_t MemoryKb(const std::string &process)
{
    const int descriptor = ::open(("/proc/" + process + "/statm").c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor == -1) {
        return 0;
    }
    std::array<char, 128> buffer = {};
    const ssize_t length = ::read(descriptor, buffer.data(), buffer.size() - 1);
    ::close(descriptor);
    const std::string text(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    const auto space = text.find(' ');
    if (space == std::string::npos) {
        return 0;
    }
    const auto pages = std::strtoull(text.c_str() + space, nullptr, 10);
    return pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)) / 1024U;
}

bool EndsWithIgnoringCase(const std::string &path, std::string_view name)
{
    const auto same = [](char left, char right) {
        return std::tolower(static_cast<unsigned char>(left)) ==
               std::tolower(static_cast<unsigned char>(right));
    };
    return path.size() >= name.size() &&
           std::equal(name.rbegin(), name.rend(), path.rbegin(), same);
}

} // namespace

std::vector<RunningProcess> RunningProcesses(std::string_view wanted)
{
    std::vector<RunningProcess> running;
    const std::unique_ptr<DIR, int (*)(DIR *)> folder(::opendir("/proc"), ::closedir);
    while (const dirent *entry = folder ? ::readdir(folder.get()) : nullptr) {
        const std::string process = entry->d_name;
        if (process.find_first_not_of("0123456789") != std::string::npos) {
            continue;
        }
        const std::string path = ExecutableOf(process);
        if (!path.empty() && EndsWithIgnoringCase(path, wanted)) {
            running.push_back(
                {static_cast<std::uint32_t>(std::strtoul(process.c_str(), nullptr, 10)),
                 path,
                 MemoryKb(process)});
        }
    }
    return running;
}

} // namespace os
