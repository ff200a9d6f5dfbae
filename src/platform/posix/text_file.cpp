#include "platform/posix/text_file.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace platform {

std::string ReadTextFile(const std::string &path)
{
    constexpr std::uintmax_t kLongest = 16U << 20U;
    std::error_code error;
    // A FIFO or a device could block forever.
    if (!std::filesystem::is_regular_file(path, error) ||
        std::filesystem::file_size(path, error) > kLongest) {
        return {};
    }
    std::ifstream file(path, std::ios::binary);
    std::string content;
    if (file) {
        content.assign(std::istreambuf_iterator<char>(file), {});
    }
    return content;
}

} // namespace platform
