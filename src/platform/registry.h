#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace platform {

/// A key under HKEY_LOCAL_MACHINE, open for reading; empty by default. Any thread; what it reads is
/// what the registry held when the key was opened or later.
class RegistryKey
{
public:
    /// Opens `path` ("Software\\Maker\\Product", ANSI encoding) in the process's own view of the
    /// registry. The result is empty when there is no such key or it may not be read.
    static RegistryKey OpenLocalMachine(const std::string &path);

    explicit operator bool() const
    {
        return state_ != nullptr;
    }

    /// Copies the data of a value, whatever its type, into `buffer`: text in the ANSI encoding
    /// with its NUL, if the value has one. False if there is no such value or its data is longer
    /// than `capacity` bytes; the content of the buffer is then unspecified.
    bool Query(const std::string &name, char *buffer, std::size_t capacity) const;

    /// The data of a value of any length up to its first NUL; no value when there is none.
    std::optional<std::string> Text(const std::string &name) const;

private:
    struct State;
    std::unique_ptr<State, void (*)(State *)> state_{nullptr, nullptr};
};

} // namespace platform
