#pragma once

#include <utility>

namespace platform {

/// Owns one resource of the operating system and closes it at the end of its life. `Traits` names
/// the resource's `Type`, the `Empty` value that stands for none, and how to `Close` one without
/// changing the thread's last error.
template<class Traits> class Owner
{
public:
    using Type = typename Traits::Type;

    Owner() = default;
    // cppcheck-suppress passedByValue ; it is a pointer or a number
    explicit Owner(Type value)
        : value_(value)
    {
    }
    Owner(Owner &&other) noexcept
        : value_(std::exchange(other.value_, Traits::Empty()))
    {
    }
    Owner &operator=(Owner &&other) noexcept
    {
        Owner taken(std::move(other));
        std::swap(value_, taken.value_);
        return *this;
    }
    Owner(const Owner &) = delete;
    Owner &operator=(const Owner &) = delete;
    ~Owner()
    {
        Close();
    }

    explicit operator bool() const
    {
        return value_ != Traits::Empty();
    }
    Type Get() const
    {
        return value_;
    }

    /// Closes it; empty then. Keeps the last error.
    void Close()
    {
        if (*this) {
            Traits::Close(std::exchange(value_, Traits::Empty()));
        }
    }

private:
    Type value_ = Traits::Empty();
};

} // namespace platform
