#include "platform/registry.h"

#include "platform/module_path.h"
#include "platform/posix/registry_file.h"
#include "platform/posix/text_file.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace platform {

namespace {

// Longer than any path that the kernel tells.
constexpr std::size_t kLongestPath = 4097;

std::string RegistryFile()
{
    const std::string executable = ExecutablePath(kLongestPath);
    return executable.substr(0, executable.rfind('/') + 1) + "registry.reg";
}

} // namespace

// The values as they were when the key was opened.
struct RegistryKey::Data
{
    RegistryValues values;

    const std::string *Find(const std::string &name) const
    {
        const auto found = values.find(SmallLetters(name));
        return found != values.end() ? &found->second : nullptr;
    }
};

RegistryKey RegistryKey::OpenLocalMachine(const std::string &path)
{
    RegistryKeys keys = ParseRegistry(ReadTextFile(RegistryFile()));
    const auto key = keys.find(SmallLetters(path));
    if (key == keys.end()) {
        return {};
    }
    auto data = std::make_unique<Data>();
    data->values = std::move(key->second);
    return RegistryKey(std::move(data));
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
    const std::string *const found = data_ ? data_->Find(name) : nullptr;
    if (found == nullptr || found->size() > capacity) {
        return false;
    }
    std::copy(found->begin(), found->end(), buffer);
    return true;
}

std::optional<std::string> RegistryKey::Text(const std::string &name) const
{
    const std::string *const found = data_ ? data_->Find(name) : nullptr;
    return found != nullptr ? std::optional(found->substr(0, found->find('\0'))) : std::nullopt;
}

} // namespace platform
