#include "tests/unit/platform/support/system.h"

#include <atomic>
#include <fstream>
#include <iterator>
#include <utility>

namespace contract {

Held AtEnd(std::function<void()> action)
{
    return {new std::function<void()>(std::move(action)), [](auto *pending) {
                (*pending)();
                delete pending;
            }};
}

ScratchFolder::ScratchFolder()
    : path_(std::filesystem::temp_directory_path() / UniqueName("contract"))
{
    path_.make_preferred();
    std::filesystem::create_directories(path_);
    // Windows keeps the file of a program for a moment after its end.
    removal_ = AtEnd([path = path_] {
        WaitUntil([&path] {
            std::error_code error;
            std::filesystem::remove_all(path, error);
            return !error;
        });
    });
}

std::string UniqueName(const std::string &beginning)
{
    static std::atomic<int> count{0};
    return beginning + '_' + std::to_string(OwnProcessId()) + '_' + std::to_string(++count);
}

void WriteFile(const std::filesystem::path &path, const std::string &content)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
}

std::string ReadFile(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace contract
