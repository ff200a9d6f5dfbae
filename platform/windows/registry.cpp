#include "platform/registry.h"

#include <windows.h>

#include <string>
#include <utility>

namespace platform {

struct RegistryKey::Data
{
    explicit Data(HKEY opened)
        : key(opened)
    {
    }
    ~Data()
    {
        ::RegCloseKey(key);
    }
    Data(const Data &) = delete;
    Data &operator=(const Data &) = delete;
    Data(Data &&) = delete;
    Data &operator=(Data &&) = delete;

    HKEY key;
};

RegistryKey RegistryKey::OpenLocalMachine(const std::string &path)
{
    HKEY key = nullptr;
    if (::RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return {};
    }
    return RegistryKey(std::make_unique<Data>(key));
}

RegistryKey::RegistryKey() = default;
RegistryKey::RegistryKey(std::unique_ptr<Data> data)
    : data_(std::move(data))
{
}
RegistryKey::~RegistryKey() = default;
RegistryKey::RegistryKey(RegistryKey &&other) noexcept = default;
RegistryKey &RegistryKey::operator=(RegistryKey &&other) noexcept = default;

RegistryKey::operator bool() const
{
    return data_ != nullptr;
}

bool RegistryKey::Query(const std::string &name, char *buffer, std::size_t capacity) const
{
    auto size = static_cast<DWORD>(capacity);
    return data_ && ::RegQueryValueExA(data_->key,
                                       name.c_str(),
                                       nullptr,
                                       nullptr,
                                       reinterpret_cast<BYTE *>(buffer),
                                       &size) == ERROR_SUCCESS;
}

std::optional<std::string> RegistryKey::Text(const std::string &name) const
{
    DWORD size = 0;
    if (!data_ || ::RegQueryValueExA(data_->key, name.c_str(), nullptr, nullptr, nullptr, &size) !=
                      ERROR_SUCCESS) {
        return std::nullopt;
    }
    // One more, so that data without a terminating zero has one.
    std::string text(size + 1, '\0');
    if (!Query(name, text.data(), size)) {
        return std::nullopt;
    }
    return text.c_str();
}

} // namespace platform
