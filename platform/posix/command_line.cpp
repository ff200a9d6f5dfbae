#include "platform/posix/command_line.h"

#include <string_view>
#include <sys/stat.h>

namespace platform {
namespace {

constexpr std::string_view kWhitespace = " \t";

bool IsWhitespace(char character)
{
    return kWhitespace.find(character) != std::string_view::npos;
}

bool IsFile(const std::string &path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Length of the longest leading part that names a file; 0 when there is none.
std::size_t ProgramLength(const std::string &text)
{
    for (std::size_t length = text.size(); length > 0; --length) {
        const bool ends = length == text.size() || IsWhitespace(text[length]);
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
        } else if (IsWhitespace(character) && !quoted) {
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
    CommandLine parts;
    std::size_t end = 0;
    if (!text.empty() && text.front() == '"') {
        const std::size_t closing = text.find('"', 1);
        const std::string program =
            text.substr(1, closing == std::string::npos ? closing : closing - 1);
        if (!IsFile(program)) {
            return parts;
        }
        parts.push_back(program);
        end = closing == std::string::npos ? text.size() : closing + 1;
    } else {
        end = ProgramLength(text);
        if (end == 0) {
            return parts;
        }
        parts.push_back(text.substr(0, end));
    }
    AppendArguments(std::string_view(text).substr(end), parts);
    return parts;
}

} // namespace platform
