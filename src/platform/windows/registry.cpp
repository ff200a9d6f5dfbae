#include "platform/registry.h"

#include "platform/windows/handle.h"

namespace platform {

struct RegistryKey::State
{
    RegistryHandle key;
};

RegistryKey RegistryKey::OpenLocalMachine(const std::string &path)
{
    HKEY key = nullptr;
    RegistryKey opened;
    if (::RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS) {
        opened.state_ = {new State{RegistryHandle(key)}, DeleteState<State>};
    }
    return opened;
}

bool RegistryKey::Query(const std::string &name, char *buffer, std::size_t capacity) const
{
    auto size = static_cast<DWORD>(capacity);
    return state_ && ::RegQueryValueExA(state_->key.Get(),
                                        name.c_str(),
                                        nullptr,
                                        nullptr,
                                        reinterpret_cast<BYTE *>(buffer),
                                        &size) == ERROR_SUCCESS;
}

std::optional<std::string> RegistryKey::Text(const std::string &name) const
{
    DWORD size = 0;
    if (!state_ ||
        ::RegQueryValueExA(state_->key.Get(), name.c_str(), nullptr, nullptr, nullptr, &size) !=
            ERROR_SUCCESS) {
        return std::nullopt;
    }
    // One more, so that data without a NUL gets one.
    std::string text(size + 1, '\0');
    if (!Query(name, text.data(), size)) {
        return std::nullopt;
    }
    return text.c_str();
}

} // namespace platform
