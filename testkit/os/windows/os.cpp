#include "testkit/os/os.h"

#include "testkit/os/windows/text.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>
#include <winternl.h>

namespace os {

namespace fs = std::filesystem;

namespace {

// cppcheck-suppress constParameter ; a handle points to nothing
bool IsStandard(HANDLE handle)
{
    return handle == ::GetStdHandle(STD_INPUT_HANDLE) ||
           handle == ::GetStdHandle(STD_OUTPUT_HANDLE) ||
           handle == ::GetStdHandle(STD_ERROR_HANDLE);
}

/// The system's type name of a handle, such as "File" or "Mutant".
std::string KindOf(HANDLE handle)
{
    alignas(PUBLIC_OBJECT_TYPE_INFORMATION) std::array<std::byte, 1024> buffer = {};
    if (::NtQueryObject(handle,
                        ObjectTypeInformation,
                        buffer.data(),
                        static_cast<ULONG>(buffer.size()),
                        nullptr) != 0) {
        return "unknown";
    }
    const auto *type = reinterpret_cast<const PUBLIC_OBJECT_TYPE_INFORMATION *>(buffer.data());
    return ToUtf8({type->TypeName.Buffer, type->TypeName.Length / sizeof(wchar_t)});
}

} // namespace

fs::path ExecutablePath()
{
    std::array<wchar_t, 4096> buffer = {};
    const DWORD length =
        ::GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    return std::wstring(buffer.data(), length);
}

// The arguments of `main` are in the ANSI code page, so read the UTF-16 command line.
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
    // Handles are small numbers. Only an inherited handle is inheritable here: nothing else has
    // been opened yet.
    constexpr std::uintptr_t kStep = 4;
    constexpr std::uintptr_t kMost = 4096;
    std::vector<std::string> open;
    for (std::uintptr_t value = kStep; value < kMost; value += kStep) {
        HANDLE const handle = reinterpret_cast<HANDLE>(value);
        DWORD flags = 0;
        if (::GetHandleInformation(handle, &flags) != 0 && (flags & HANDLE_FLAG_INHERIT) != 0 &&
            !IsStandard(handle)) {
            open.push_back(KindOf(handle) + ' ' + std::to_string(value));
        }
    }
    return open;
}

void AppendAtomically(const fs::path &file, std::string_view bytes)
{
    // LockFileEx needs the right to read.
    HANDLE handle = ::CreateFileW(file.c_str(),
                                  FILE_APPEND_DATA | FILE_READ_DATA,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr,
                                  OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL,
                                  nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return;
    }
    // Wine finds the end first and then writes there: without a lock, two processes write to the
    // same place. The locked byte is far behind the end, so that the file can still be read.
    OVERLAPPED last = {};
    last.OffsetHigh = MAXLONG;
    ::LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &last);
    DWORD written = 0;
    ::WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    ::UnlockFileEx(handle, 0, 1, 0, &last);
    ::CloseHandle(handle);
}

// A Windows process does not end with its parent.
void OutliveParent() {}

// The code of a crash: a plain number would look like a normal exit.
void EndByForce()
{
    ::TerminateProcess(::GetCurrentProcess(), STATUS_ACCESS_VIOLATION);
    std::abort();
}

void BinaryOutput()
{
    ::_setmode(::_fileno(stdout), _O_BINARY);
}

void StartDetached(const fs::path &program)
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

std::wstring WideText(const fs::path &path)
{
    return path.wstring();
}

std::string ProgramExtension()
{
    return ".exe";
}

std::uint32_t LastError()
{
    return ::GetLastError();
}

void SetLastError(std::uint32_t error)
{
    ::SetLastError(error);
}

ScopedVariable::ScopedVariable(std::string name, const std::string &value)
    : name_(std::move(name))
{
    constexpr std::size_t kLongest = 32768;
    std::string previous(kLongest, '\0');
    ::SetLastError(ERROR_SUCCESS);
    previous.resize(::GetEnvironmentVariableA(name_.c_str(), previous.data(), kLongest));
    wasSet_ = ::GetLastError() != ERROR_ENVVAR_NOT_FOUND;
    previous_ = previous;
    ::SetEnvironmentVariableA(name_.c_str(), value.c_str());
}

ScopedVariable::~ScopedVariable()
{
    ::SetEnvironmentVariableA(name_.c_str(), wasSet_ ? previous_.c_str() : nullptr);
}

} // namespace os
