#include "tests/unit/platform/support/system.h"

#include <windows.h>

namespace contract {
namespace {

Held Owned(HANDLE handle)
{
    return AtEnd([handle] { ::CloseHandle(handle); });
}

} // namespace

bool CreateLink(const std::filesystem::path &link, const std::filesystem::path &target)
{
    const auto native = std::filesystem::path(target).make_preferred();
    constexpr DWORD kUnprivileged = 2; // Windows before 10.0.15063 refuses this flag
    for (const DWORD flags : {kUnprivileged, DWORD{0}}) {
        ::CreateSymbolicLinkW(link.c_str(), native.c_str(), flags);
    }
    // Wine claims success.
    return ::GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// An empty access list denies access to all.
Held ForbidMutex(const std::string &name, const std::filesystem::path &)
{
    ACL empty = {};
    SECURITY_DESCRIPTOR descriptor = {};
    ::InitializeAcl(&empty, sizeof(empty), ACL_REVISION);
    ::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    ::SetSecurityDescriptorDacl(&descriptor, TRUE, &empty, FALSE);
    SECURITY_ATTRIBUTES attributes = {sizeof(attributes), &descriptor, FALSE};
    return Owned(::CreateMutexA(&attributes, FALSE, name.c_str()));
}

// The name already belongs to another kind of object.
Held ObstructMutex(const std::string &name, const std::filesystem::path &)
{
    return Owned(::CreateEventA(nullptr, TRUE, FALSE, name.c_str()));
}

// Access lists count for an administrator as well.
Held DropPrivileges()
{
    return {};
}

Held OpenExclusivelyInheritable(const std::filesystem::path &path)
{
    SECURITY_ATTRIBUTES inheritable = {sizeof(inheritable), nullptr, TRUE};
    constexpr DWORD kShareNothing = 0;
    HANDLE file = ::CreateFileW(path.c_str(),
                                GENERIC_READ | GENERIC_WRITE,
                                kShareNothing,
                                &inheritable,
                                OPEN_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL,
                                nullptr);
    return file != INVALID_HANDLE_VALUE ? Owned(file) : nullptr;
}

std::string OwnPriority()
{
    const DWORD priority = ::GetPriorityClass(::GetCurrentProcess());
    return priority == IDLE_PRIORITY_CLASS     ? "idle"
           : priority == NORMAL_PRIORITY_CLASS ? "normal"
                                               : "other";
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
