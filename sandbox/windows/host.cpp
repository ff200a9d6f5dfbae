#include "sandbox/host.h"

#include "sandbox/windows/text.h"

#include <array>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

namespace host {

namespace fs = std::filesystem;

fs::path ExecutablePath()
{
    std::array<wchar_t, 4096> buffer = {};
    const DWORD length =
        ::GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    return std::wstring(buffer.data(), length);
}

// The arguments of `main` have gone through the ANSI code page, so they are taken from the source.
std::vector<std::string> Arguments(int, char **)
{
    int count = 0;
    wchar_t **words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int index = 1; words != nullptr && index < count; ++index) {
        arguments.push_back(ToUtf8(words[index]));
    }
    ::LocalFree(words);
    return arguments;
}

std::optional<std::string> EnvironmentVariable(const std::string &name)
{
    const std::wstring wideName = ToWide(name);
    std::array<wchar_t, 32768> buffer = {};
    ::SetLastError(ERROR_SUCCESS);
    const DWORD length = ::GetEnvironmentVariableW(
        wideName.c_str(), buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length == 0 && ::GetLastError() == ERROR_ENVVAR_NOT_FOUND) {
        return std::nullopt;
    }
    return ToUtf8({buffer.data(), length});
}

std::uint32_t OwnProcessId()
{
    return ::GetCurrentProcessId();
}

std::vector<std::string> OpenDescriptors()
{
    return {};
}

void AppendInOnePiece(const fs::path &file, std::string_view bytes)
{
    HANDLE handle = ::CreateFileW(file.c_str(),
                                  FILE_APPEND_DATA,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr,
                                  OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL,
                                  nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return;
    }
    DWORD written = 0;
    ::WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    ::CloseHandle(handle);
}

// A Windows process does not end with its parent.
void OutliveParent() {}

void BinaryOutput()
{
    ::_setmode(::_fileno(stdout), _O_BINARY);
}

void StartUnrelated(const fs::path &program)
{
    std::wstring command = L'"' + program.wstring() + L'"';
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (::CreateProcessW(program.c_str(),
                         command.data(),
                         nullptr,
                         nullptr,
                         FALSE,
                         DETACHED_PROCESS,
                         nullptr,
                         nullptr,
                         &startup,
                         &process) != 0) {
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
    }
}

bool IsBelow(const std::string &path, const std::string &root)
{
    std::wstring folder = fs::path(ToWide(root)).make_preferred().wstring();
    if (folder.empty() || folder.back() != L'\\') {
        folder += L'\\';
    }
    const std::wstring file = fs::path(ToWide(path)).make_preferred().wstring();
    return file.size() > folder.size() &&
           ::_wcsnicmp(file.c_str(), folder.c_str(), folder.size()) == 0;
}

} // namespace host
