#include "platform/named_mutex.h"

#include "platform/windows/handle.h"

#include <utility>

namespace platform {

struct NamedMutex::State
{
    ObjectHandle handle;
};

NamedMutex::NamedMutex() = default;
NamedMutex::NamedMutex(std::unique_ptr<State> state)
    : state_(std::move(state))
{
}
NamedMutex::NamedMutex(NamedMutex &&other) noexcept = default;
NamedMutex &NamedMutex::operator=(NamedMutex &&other) noexcept = default;
NamedMutex::~NamedMutex() = default;

NamedMutex NamedMutex::Create(const std::wstring &name, std::uint32_t &error)
{
    ObjectHandle handle(::CreateMutexW(nullptr, TRUE, name.c_str()));
    error = ::GetLastError();
    if (!handle) {
        return {};
    }
    auto state = std::make_unique<State>();
    state->handle = std::move(handle);
    return NamedMutex(std::move(state));
}

NamedMutex::operator bool() const
{
    return state_ != nullptr;
}

void NamedMutex::Release()
{
    if (state_) {
        ::ReleaseMutex(state_->handle.Get());
    }
}

void NamedMutex::Close()
{
    const DWORD lastError = ::GetLastError();
    state_.reset();
    ::SetLastError(lastError); // freeing the memory must not touch it either
}

} // namespace platform
