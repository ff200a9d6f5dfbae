// Starts a command line as the program starts the clean-up script: hidden, at idle priority and
// without standard input. Its own standard input has one instruction per line, in UTF-8:
//   set NAME=VALUE, unset NAME     a variable of the command's environment
//   attributes LETTERS PATH        adds attributes of h, r and s
//   cd PATH                        the command's working directory
//   wide LINE                      runs it and prints its output
//   ansi LINE                      the same, with the line converted to the ANSI code page
//   detached LINE                  like ansi, but the command inherits no handles: no output
// The exit code is that of the command, 99 if an instruction fails, 0 without a command.

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <iostream>
#include <string>
#include <windows.h>

namespace {

const int kFailed = 99;

std::wstring Wide(const std::string &text)
{
    std::wstring wide(text.size(), L'\0');
    wide.resize(::MultiByteToWideChar(CP_UTF8,
                                      0,
                                      text.data(),
                                      static_cast<int>(text.size()),
                                      &wide[0],
                                      static_cast<int>(wide.size())));
    return wide;
}

// The text converted to the ANSI code page and back.
std::wstring ThroughAnsi(const std::wstring &text)
{
    std::string ansi(text.size() * 4, '\0');
    const int size = ::WideCharToMultiByte(CP_ACP,
                                           0,
                                           text.data(),
                                           static_cast<int>(text.size()),
                                           &ansi[0],
                                           static_cast<int>(ansi.size()),
                                           nullptr,
                                           nullptr);
    std::wstring wide(text.size() * 4, L'\0');
    wide.resize(::MultiByteToWideChar(
        CP_ACP, 0, ansi.data(), size, &wide[0], static_cast<int>(wide.size())));
    return wide;
}

int WaitForExitCode(const PROCESS_INFORMATION &process)
{
    ::WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = kFailed;
    ::GetExitCodeProcess(process.hProcess, &status);
    return static_cast<int>(status);
}

// Starts a line in a folder, with its output in the pipe if there is one. The priority is set as
// the program does it, after the start. A failure is printed where the tests see it.
bool Start(std::wstring line, const std::wstring &folder, HANDLE pipe, PROCESS_INFORMATION *process)
{
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_HIDE;
    if (pipe != nullptr) {
        start.dwFlags |= STARTF_USESTDHANDLES;
        start.hStdOutput = pipe;
        start.hStdError = pipe;
    }
    if (::CreateProcessW(nullptr,
                         &line[0],
                         nullptr,
                         nullptr,
                         pipe != nullptr,
                         0,
                         nullptr,
                         folder.c_str(),
                         &start,
                         process) == FALSE) {
        std::printf("CreateProcessW failed with error %lu", ::GetLastError());
        return false;
    }
    ::SetPriorityClass(process->hProcess, IDLE_PRIORITY_CLASS);
    return true;
}

int Detached(const std::wstring &line, const std::wstring &folder)
{
    PROCESS_INFORMATION process = {};
    return Start(line, folder, nullptr, &process) ? WaitForExitCode(process) : kFailed;
}

// Copies a pipe to standard output, up to its end.
void CopyToOutput(HANDLE pipe)
{
    char bytes[4096];
    DWORD count = 0;
    while (::ReadFile(pipe, bytes, sizeof bytes, &count, nullptr) != FALSE && count > 0) {
        std::fwrite(bytes, 1, count, stdout);
    }
    std::fflush(stdout);
}

int WithOutput(const std::wstring &line, const std::wstring &folder)
{
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (::CreatePipe(&reading, &writing, &inherited, 0) == FALSE) {
        return kFailed;
    }
    ::SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
    PROCESS_INFORMATION process = {};
    const bool started = Start(line, folder, writing, &process);
    ::CloseHandle(writing);
    if (!started) {
        return kFailed;
    }
    CopyToOutput(reading);
    return WaitForExitCode(process);
}

bool AddAttributes(const std::string &text)
{
    const std::size_t space = text.find(' ');
    const std::wstring path = Wide(text.substr(space + 1));
    DWORD attributes = ::GetFileAttributesW(path.c_str());
    for (const char letter : text.substr(0, space)) {
        attributes |= letter == 'h'   ? FILE_ATTRIBUTE_HIDDEN
                      : letter == 's' ? FILE_ATTRIBUTE_SYSTEM
                                      : FILE_ATTRIBUTE_READONLY;
    }
    return ::SetFileAttributesW(path.c_str(), attributes) != FALSE;
}

} // namespace

int wmain()
{
    ::_setmode(_fileno(stdout), _O_BINARY);
    std::wstring folder = L"C:\\";
    for (std::string line; std::getline(std::cin, line);) {
        const std::size_t space = line.find(' ');
        const std::string word = line.substr(0, space);
        const std::string rest = line.substr(space + 1);
        bool done = true;
        if (word == "set") {
            const std::size_t sign = rest.find('=');
            done = ::SetEnvironmentVariableW(Wide(rest.substr(0, sign)).c_str(),
                                             Wide(rest.substr(sign + 1)).c_str()) != FALSE;
        } else if (word == "unset") {
            ::SetEnvironmentVariableW(Wide(rest).c_str(), nullptr);
        } else if (word == "attributes") {
            done = AddAttributes(rest);
        } else if (word == "cd") {
            folder = Wide(rest);
        } else if (word == "detached") {
            return Detached(ThroughAnsi(Wide(rest)), folder);
        } else {
            return WithOutput(word == "ansi" ? ThroughAnsi(Wide(rest)) : Wide(rest), folder);
        }
        if (!done) {
            std::cout << "failed: " << line << std::endl;
            return kFailed;
        }
    }
    return 0;
}
