#include "tests/unit/platform/support/scratch_folder.h"

#include "tests/unit/platform/support/system.h"

#include <atomic>
#include <fstream>
#include <iterator>

namespace contract {

ScratchFolder::ScratchFolder()
    : path_(std::filesystem::temp_directory_path() / UniqueName("contract"))
{
    path_.make_preferred();
    std::filesystem::create_directories(path_);
}

ScratchFolder::~ScratchFolder()
{
    // Windows keeps the file of a program for a moment after its end.
    WaitUntil([this] {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
        return !error;
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
