#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace platform {

/// Codes of the last error on which a start decides, with the numbers that Windows gives them.
inline constexpr std::uint32_t kErrorNone = 0;
inline constexpr std::uint32_t kErrorAccessDenied = 5;
inline constexpr std::uint32_t kErrorAlreadyExists = 183;

/// A mutex that processes of one user session find by name. Having a handle on it and owning it are
/// two things: `Create` asks to own it, but gives a handle also when another process owns it. Empty
/// by default; the handle is closed at the end of the object's life.
class NamedMutex
{
public:
    /// Creates the mutex and owns it, or opens it when it exists; `error` becomes the last error of
    /// that very call. Empty when the call gave no handle. The name takes no part of a path.
    static NamedMutex Create(const std::wstring &name, std::uint32_t &error);

    explicit operator bool() const
    {
        return state_ != nullptr;
    }

    /// Gives the ownership up; the handle stays. No effect when empty.
    void Release();

    /// Closes the handle; the object is empty then. No effect when empty. Keeps the last error.
    void Close();

private:
    struct State;
    std::unique_ptr<State, void (*)(State *)> state_{nullptr, nullptr};
};

} // namespace platform
