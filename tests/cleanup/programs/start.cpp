// Starts a command line as the program starts the clean-up script: hidden, at idle priority and
// without anything to read from. Standard input says what to do, a line in UTF-8 each:
//   set NAME=VALUE, unset NAME     a variable of the command's environment
//   attributes LETTERS PATH        adds attributes of h, r and s
//   cd PATH                        the command's working directory
//   wide LINE                      runs it; what it prints is printed
//   narrow LINE                    the same, by way of the ANSI code page
//   detached LINE                  the same as narrow; it inherits nothing, so nothing is printed
// The status is that of the command, 99 if something cannot be done, 0 without a command.

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <iostream>
#include <string>
#include <windows.h>

namespace {

const int cannotStart = 99;

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

// What is left of a text that went through the ANSI code page.
std::wstring Narrowed(const std::wstring &text)
{
    std::string narrow(text.size() * 4, '\0');
    const int size = ::WideCharToMultiByte(CP_ACP,
                                           0,
                                           text.data(),
                                           static_cast<int>(text.size()),
                                           &narrow[0],
                                           static_cast<int>(narrow.size()),
                                           nullptr,
                                           nullptr);
    std::wstring wide(text.size() * 4, L'\0');
    wide.resize(::MultiByteToWideChar(
        CP_ACP, 0, narrow.data(), size, &wide[0], static_cast<int>(wide.size())));
    return wide;
}

int StatusOf(const PROCESS_INFORMATION &process)
{
    ::SetPriorityClass(process.hProcess, IDLE_PRIORITY_CLASS);
    ::WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = cannotStart;
    ::GetExitCodeProcess(process.hProcess, &status);
    return static_cast<int>(status);
}

// Runs a line in a folder; what it prints goes into a pipe if there is one.
BOOL Start(std::wstring line, const std::wstring &folder, HANDLE pipe, PROCESS_INFORMATION *process)
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
    return ::CreateProcessW(nullptr,
                            &line[0],
                            nullptr,
                            nullptr,
                            pipe != nullptr,
                            0,
                            nullptr,
                            folder.c_str(),
                            &start,
                            process);
}

int Detached(const std::wstring &line, const std::wstring &folder)
{
    PROCESS_INFORMATION process = {};
    return Start(line, folder, nullptr, &process) != FALSE ? StatusOf(process) : cannotStart;
}

// Copies to standard output what comes out of a pipe, to its end.
void Pass(HANDLE pipe)
{
    char bytes[4096];
    DWORD count = 0;
    while (::ReadFile(pipe, bytes, sizeof bytes, &count, nullptr) != FALSE && count > 0) {
        std::fwrite(bytes, 1, count, stdout);
    }
    std::fflush(stdout);
}

int Observed(const std::wstring &line, const std::wstring &folder)
{
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (::CreatePipe(&reading, &writing, &inherited, 0) == FALSE) {
        return cannotStart;
    }
    ::SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
    PROCESS_INFORMATION process = {};
    const BOOL started = Start(line, folder, writing, &process);
    ::CloseHandle(writing);
    if (started == FALSE) {
        return cannotStart;
    }
    Pass(reading);
    return StatusOf(process);
}

bool AddAttributes(const std::string &text)
{
    const std::size_t blank = text.find(' ');
    const std::wstring path = Wide(text.substr(blank + 1));
    DWORD attributes = ::GetFileAttributesW(path.c_str());
    for (const char letter : text.substr(0, blank)) {
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
        const std::size_t blank = line.find(' ');
        const std::string word = line.substr(0, blank);
        const std::string rest = line.substr(blank + 1);
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
            return Detached(Narrowed(Wide(rest)), folder);
        } else {
            return Observed(word == "narrow" ? Narrowed(Wide(rest)) : Wide(rest), folder);
        }
        if (!done) {
            std::cerr << "cannot do: " << line << std::endl;
            return cannotStart;
        }
    }
    return 0;
}
