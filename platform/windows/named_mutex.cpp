#include "platform/named_mutex.h"

#include "platform/windows/handle.h"

namespace platform {

struct NamedMutex::State
{
    ObjectHandle handle;

    static void Delete(State *state)
    {
        KeepLastError([state] { delete state; }); // freeing memory may change it
    }
};

NamedMutex NamedMutex::Create(const std::wstring &name, std::uint32_t &error)
{
    ObjectHandle handle(::CreateMutexW(nullptr, TRUE, name.c_str()));
    error = ::GetLastError();
    NamedMutex mutex;
    if (handle) {
        mutex.state_ = {new State{std::move(handle)}, State::Delete};
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
