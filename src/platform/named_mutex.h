#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace platform {

/// Last-error codes that tell whether another instance runs, with the numbers of Windows.
inline constexpr std::uint32_t kErrorNone = 0;
inline constexpr std::uint32_t kErrorAccessDenied = 5;
inline constexpr std::uint32_t kErrorAlreadyExists = 183;

/// A mutex that processes of one user session find by name. A handle does not imply ownership:
/// `Create` asks to own it, but also returns a handle if another process owns it. Empty by default;
/// the destructor closes the handle.
class NamedMutex
{
public:
    /// Creates the mutex and owns it, or opens it when it exists; `error` becomes the last error of
    /// that very call. Empty when the call gave no handle. The name must not contain a path
    /// separator.
    static NamedMutex Create(const std::wstring &name, std::uint32_t &error);

    explicit operator bool() const
    {
        return state_ != nullptr;
    }

    /// Releases the ownership; the handle stays. No effect when empty.
    void Release();

    /// Closes the handle; the object is empty then. No effect when empty. Keeps the last error.
    void Close();

private:
    struct State;
    std::unique_ptr<State, void (*)(State *)> state_{nullptr, nullptr};
};

} // namespace platform
