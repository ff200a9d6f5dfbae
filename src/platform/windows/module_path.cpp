#include "platform/module_path.h"

#include "platform/text.h"

#include <windows.h>

namespace platform {
namespace {

/// Reads into a zero-filled buffer and cuts at the first NUL: GetModuleFileName may fill the buffer
/// without one.
template<class Text, class Read> Text ReadBounded(std::size_t capacity, Read read)
{
    if (capacity == 0) {
        return {};
    }
    Text buffer(capacity, 0);
    read(nullptr, buffer.data(), static_cast<DWORD>(capacity));
    buffer.back() = 0;
    buffer.resize(buffer.find(typename Text::value_type(0)));
    return buffer;
}

template<class Text> Text FolderOf(const Text &path, typename Text::value_type separator)
{
    const std::size_t cut = path.rfind(separator);
    return cut == Text::npos ? Text() : path.substr(0, cut);
}

} // namespace

std::string ExecutablePath(std::size_t capacity)
{
    return ReadBounded<std::string>(capacity, ::GetModuleFileNameA);
}

bool IsExecutableFolderExact(std::size_t capacity)
{
    constexpr std::size_t kLongestPath = 32768;
    const std::string ansi = FolderOf(ExecutablePath(capacity), kNativeSeparator);
    const int length = static_cast<int>(ansi.size());
    std::wstring widened(ansi.size(), 0);
    const int used = ::MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, widened.data(), length);
    widened.resize(static_cast<std::size_t>(used));
    return !widened.empty() &&
           widened == FolderOf(ExecutablePathWide(kLongestPath), kNativeSeparatorWide);
}

std::wstring ExecutablePathWide(std::size_t capacity)
{
    return ReadBounded<std::wstring>(capacity, ::GetModuleFileNameW);
}

} // namespace platform
