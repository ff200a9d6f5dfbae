#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace platform {

using ProcessId = std::uint32_t;

struct ProcessEntry
{
    ProcessId id = 0;
    std::wstring imageName; ///< file name of the executable, without its directory
};

/// Takes a snapshot of the processes that run now, calls `visit` for each, in the system's order,
/// and closes the snapshot. No call when the system gives no snapshot or the snapshot has no first
/// entry.
void VisitProcesses(const std::function<void(const ProcessEntry &entry)> &visit);

/// A process opened with the rights to ask for its path and to end it, and no others. Empty by
/// default.
class OpenedProcess
{
public:
    /// Empty when there is no such process or when it may not be opened.
    static OpenedProcess Open(ProcessId id);

    explicit operator bool() const
    {
        return state_ != nullptr;
    }

    /// Full path of the executable. No value when the system does not tell it or when it does not
    /// fit into `capacity` characters with its NUL.
    std::optional<std::wstring> ImagePath(std::size_t capacity) const;

    /// Ends the process at once with `exitCode` (which Linux cannot pass on). No effect when empty
    /// or when the process has ended.
    void Terminate(std::uint32_t exitCode) const;

private:
    struct State;
    std::unique_ptr<State, void (*)(State *)> state_{nullptr, nullptr};
};

} // namespace platform
