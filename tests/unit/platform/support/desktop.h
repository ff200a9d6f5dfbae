#pragma once

#include "platform/window.h"

#include <memory>
#include <string>

/// Windows of a desktop, seen from outside the process that they belong to.
namespace contract {

/// A visible top-level window of the calling thread.
class TestWindow
{
public:
    TestWindow();
    ~TestWindow();
    TestWindow(const TestWindow &) = delete;
    TestWindow &operator=(const TestWindow &) = delete;
    TestWindow(TestWindow &&) = delete;
    TestWindow &operator=(TestWindow &&) = delete;

    platform::WindowHandle Handle() const;
    /// Handles what the system has sent. To be called again and again.
    void Pump();

private:
    struct State;
    std::unique_ptr<State> state_;
};

void Minimise(platform::WindowHandle window);
bool IsMinimised(platform::WindowHandle window);
/// Whether it can be seen: mapped or visible, and not minimised.
bool IsShown(platform::WindowHandle window);
bool IsAbove(platform::WindowHandle upper, platform::WindowHandle lower);
bool IsActive(platform::WindowHandle window);
/// Whether it stays above all ordinary windows.
bool IsTopMost(platform::WindowHandle window);

/// Sets whether the system draws drop shadows, as long as the object lives.
class SystemDropShadow
{
public:
    explicit SystemDropShadow(bool enabled);
    ~SystemDropShadow();
    SystemDropShadow(const SystemDropShadow &) = delete;
    SystemDropShadow &operator=(const SystemDropShadow &) = delete;
    SystemDropShadow(SystemDropShadow &&) = delete;
    SystemDropShadow &operator=(SystemDropShadow &&) = delete;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace contract
