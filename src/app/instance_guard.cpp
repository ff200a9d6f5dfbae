#include "app/instance_guard.h"

#include "platform/named_mutex.h"

namespace {

constexpr const wchar_t *kInstanceMutexName = L"ktr_uninstall_version_2023_Ostrel_Torvan";

platform::NamedMutex &InstanceMutex()
{
    static platform::NamedMutex mutex;
    return mutex;
}

} // namespace

bool CheckAlreadyRunning()
{
    std::uint32_t error = platform::kErrorNone;
    InstanceMutex() = platform::NamedMutex::Create(kInstanceMutexName, error);
    if (error == platform::kErrorAccessDenied || error == platform::kErrorAlreadyExists) {
        InstanceMutex().Close();
        return true;
    }
    return false;
}

void ReleaseInstanceMutex()
{
    InstanceMutex().Release();
    InstanceMutex().Close();
}
