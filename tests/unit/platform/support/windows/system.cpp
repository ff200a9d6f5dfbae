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
