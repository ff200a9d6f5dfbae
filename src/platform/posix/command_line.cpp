#include "platform/posix/command_line.h"

#include <string_view>
#include <sys/stat.h>

namespace platform {
namespace {

bool IsFile(const std::string &path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Length of the longest leading part that names a file; 0 when there is none.
std::size_t ProgramLength(const std::string &text)
{
    for (std::size_t length = text.size(); length > 0; --length) {
        const bool ends = length == text.size() || text[length] == ' ';
        if (ends && IsFile(text.substr(0, length))) {
            return length;
        }
    }
    return 0;
}

void AppendArguments(std::string_view rest, CommandLine &parts)
{
    std::string current;
    bool begun = false;
    bool quoted = false;
    for (const char character : rest) {
        if (character == '"') {
            quoted = !quoted;
            begun = true; // "" is an argument too
        } else if (character == ' ' && !quoted) {
            if (begun) {
                parts.push_back(current);
            }
            current.clear();
            begun = false;
        } else {
            current.push_back(character);
            begun = true;
        }
    }
    if (begun) {
        parts.push_back(current);
    }
}

} // namespace

CommandLine SplitCommandLine(const std::string &text)
{
    const std::size_t end = ProgramLength(text);
    if (end == 0) {
        return {};
    }
    CommandLine parts = {text.substr(0, end)};
    AppendArguments(std::string_view(text).substr(end), parts);
    return parts;
}

} // namespace platform
