#pragma once

#include <filesystem>
#include <string>
#include <windows.h>

/// A program that was started; destroying the object ends it.
class Process
{
public:
    /// `output`, if given, is the file for what it prints.
    Process(std::wstring line, const std::filesystem::path &folder, const std::wstring &output = {})
    {
        SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        if (!output.empty()) {
            startup.dwFlags = STARTF_USESTDHANDLES;
            startup.hStdOutput = startup.hStdError = ::CreateFileW(output.c_str(),
                                                                   GENERIC_WRITE,
                                                                   FILE_SHARE_READ,
                                                                   &inherited,
                                                                   CREATE_ALWAYS,
                                                                   0,
                                                                   nullptr);
        }
        const BOOL inherits = output.empty() ? FALSE : TRUE;
        auto *const in = folder.c_str();
        ::CreateProcessW(
            nullptr, &line[0], nullptr, nullptr, inherits, 0, nullptr, in, &startup, &process_);
        ::CloseHandle(startup.hStdOutput);
    }
    ~Process()
    {
        ::TerminateProcess(process_.hProcess, 1);
        ::CloseHandle(process_.hThread);
        ::CloseHandle(process_.hProcess);
    }
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;
    Process(Process &&) = delete;
    Process &operator=(Process &&) = delete;

    /// Its status, or -1 if it was not started or does not end in time.
    int Wait(DWORD milliseconds) const
    {
        DWORD status = 0;
        const bool ended = ::WaitForSingleObject(process_.hProcess, milliseconds) == WAIT_OBJECT_0;
        const BOOL known = ::GetExitCodeProcess(process_.hProcess, &status);
        return ended && known != FALSE ? static_cast<int>(status) : -1;
    }
    bool Runs() const
    {
        return ::WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
    }
    DWORD Id() const
    {
        return process_.dwProcessId;
    }

private:
    PROCESS_INFORMATION process_ = {};
};
