#include "platform/registry.h"

#include "platform/module_path.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/registry_file.h"
#include "platform/posix/text_file.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

// Longer than any path that the kernel returns.
constexpr std::size_t kLongestPath = 4097;

std::string RegistryFile()
{
    const std::string executable = ExecutablePath(kLongestPath);
    return executable.substr(0, executable.rfind('/') + 1) + "registry.reg";
}

} // namespace

// The values as they were when the key was opened.
struct RegistryKey::State
{
    RegistryValues values;

    const std::string *Find(const std::string &name) const
    {
        const auto found = values.find(ToLowerAscii(name));
        return found != values.end() ? &found->second : nullptr;
    }
};

RegistryKey RegistryKey::OpenLocalMachine(const std::string &path)
{
    RegistryKeys keys = ParseRegistry(ReadTextFile(RegistryFile()));
    const auto key = keys.find(ToLowerAscii(path));
    RegistryKey opened;
    if (key != keys.end()) {
        opened.state_ = {new State{std::move(key->second)}, DeleteState<State>};
    }
    return opened;
}

bool RegistryKey::Query(const std::string &name, char *buffer, std::size_t capacity) const
{
    const std::string *const found = state_ ? state_->Find(name) : nullptr;
    if (found == nullptr || found->size() > capacity) {
        return false;
    }
    std::copy(found->begin(), found->end(), buffer);
    return true;
}

std::optional<std::string> RegistryKey::Text(const std::string &name) const
{
    const std::string *const found = state_ ? state_->Find(name) : nullptr;
    return found != nullptr ? std::optional(found->substr(0, found->find('\0'))) : std::nullopt;
}

} // namespace platform
