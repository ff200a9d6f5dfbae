#include "platform/named_mutex.h"

#include "platform/windows/handle.h"

#include <utility>

namespace platform {

struct NamedMutex::State
{
    ObjectHandle handle;
};

NamedMutex NamedMutex::Create(const std::wstring &name, std::uint32_t &error)
{
    ObjectHandle handle(::CreateMutexW(nullptr, TRUE, name.c_str()));
    error = ::GetLastError(); // before any other call can change it
    NamedMutex mutex;
    if (handle) {
        mutex.state_ = {new State{std::move(handle)}, DeleteState<State>};
    }
    return mutex;
}

void NamedMutex::Release()
{
    if (state_) {
        ::ReleaseMutex(state_->handle.Get());
    }
}

void NamedMutex::Close()
{
    state_.reset();
}

} // namespace platform
