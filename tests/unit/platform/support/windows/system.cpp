#include "tests/unit/platform/support/system.h"

#include "platform/windows/handle.h"

#include <utility>

namespace contract {
namespace {

class HeldHandle : public Held
{
public:
    explicit HeldHandle(HANDLE handle)
        : handle_(handle)
    {
    }

private:
    platform::ObjectHandle handle_;
};

class HeldFile : public Held
{
public:
    explicit HeldFile(platform::SnapshotHandle file)
        : file_(std::move(file))
    {
    }

private:
    platform::SnapshotHandle file_;
};

} // namespace

platform::ProcessId OwnProcessId()
{
    return ::GetCurrentProcessId();
}

std::filesystem::path OwnProgram()
{
    constexpr std::size_t kLongest = 32768;
    std::wstring path(kLongest, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

std::wstring WideText(const std::filesystem::path &path)
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

void UnloadLibrary(platform::LibraryHandle library)
{
    ::FreeLibrary(static_cast<HMODULE>(library));
}

bool IsLibraryLoaded(const std::filesystem::path &path)
{
    return ::GetModuleHandleW(path.c_str()) != nullptr;
}

// An access list without an entry lets nobody in.
std::unique_ptr<Held> ForbidMutex(const std::string &name, const std::filesystem::path &)
{
    ACL nobody = {};
    SECURITY_DESCRIPTOR descriptor = {};
    ::InitializeAcl(&nobody, sizeof(nobody), ACL_REVISION);
    ::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    ::SetSecurityDescriptorDacl(&descriptor, TRUE, &nobody, FALSE);
    SECURITY_ATTRIBUTES attributes = {sizeof(attributes), &descriptor, FALSE};
    return std::make_unique<HeldHandle>(::CreateMutexA(&attributes, FALSE, name.c_str()));
}

// The name already belongs to another kind of object.
std::unique_ptr<Held> ObstructMutex(const std::string &name, const std::filesystem::path &)
{
    return std::make_unique<HeldHandle>(::CreateEventA(nullptr, TRUE, FALSE, name.c_str()));
}

// Access lists count for an administrator as well.
std::unique_ptr<Held> DropPrivileges()
{
    return std::make_unique<Held>();
}

std::unique_ptr<Held> OpenExclusivelyInheritable(const std::filesystem::path &path)
{
    SECURITY_ATTRIBUTES inheritable = {sizeof(inheritable), nullptr, TRUE};
    constexpr DWORD kShareNothing = 0;
    platform::SnapshotHandle file(::CreateFileW(path.c_str(),
                                                GENERIC_READ | GENERIC_WRITE,
                                                kShareNothing,
                                                &inheritable,
                                                OPEN_ALWAYS,
                                                FILE_ATTRIBUTE_NORMAL,
                                                nullptr));
    return file ? std::make_unique<HeldFile>(std::move(file)) : nullptr;
}

std::string OwnPriority()
{
    switch (::GetPriorityClass(::GetCurrentProcess())) {
    case IDLE_PRIORITY_CLASS:
        return "idle";
    case NORMAL_PRIORITY_CLASS:
        return "normal";
    default:
        return "other";
    }
}

std::string OwnFacts()
{
    STARTUPINFOA startup = {};
    ::GetStartupInfoA(&startup);
    return "flags " + std::to_string(startup.dwFlags) + "\nshow " +
           std::to_string(startup.wShowWindow) + '\n';
}

bool IsHidden(const std::string &facts)
{
    return facts.find("flags 1\nshow 0\n") != std::string::npos;
}

} // namespace contract
