#include "platform/module_path.h"

#include "platform/posix/executable_link.h"
#include "platform/posix/multibyte_text.h"

namespace platform {
namespace {

std::string OwnExecutable()
{
    return ReadOwnExeLink().value_or(std::string());
}

/// What fits into `capacity` with its NUL.
template<class Text> Text Cut(Text text, std::size_t capacity)
{
    if (text.size() >= capacity) {
        text.resize(capacity == 0 ? 0 : capacity - 1);
    }
    return text;
}

} // namespace

std::string ExecutablePath(std::size_t capacity)
{
    return Cut(OwnExecutable(), capacity);
}

bool IsExecutableFolderExact(std::size_t capacity)
{
    const std::string path = OwnExecutable();
    return !path.empty() && Cut(path, capacity).rfind('/') == path.rfind('/');
}

std::wstring ExecutablePathWide(std::size_t capacity)
{
    return Cut(ToWide(OwnExecutable()), capacity);
}

} // namespace platform
