#include "platform/window.h"
#include "tests/unit/platform/support/child.h"
#include "tests/unit/platform/support/desktop.h"

#include <gtest/gtest.h>

namespace {

using contract::WaitUntil;
using platform::WindowHandle;

/// A process with one window on the screen.
class Shown : public contract::StartedChild
{
public:
    Shown()
        : window_(std::stoull(Ask({"open-window"})))
    {
        EXPECT_TRUE(WaitUntil([this] { return contract::IsShown(window_); }));
    }

    WindowHandle Window() const
    {
        return window_;
    }

private:
    WindowHandle window_;
};

/// Whether `BringToFront` works. It is called again when the desktop gives the focus to a window
/// that has just opened: nothing tells how long that takes.
bool ComesToTheFront(const Shown &window, const Shown &other)
{
    constexpr std::chrono::seconds kPatience{3};
    const WindowHandle handle = window.Window();
    return WaitUntil([&] {
        platform::BringToFront(handle);
        return WaitUntil(
            [&] {
                return contract::IsShown(handle) && contract::IsAbove(handle, other.Window()) &&
                       contract::IsActive(handle);
            },
            kPatience);
    });
}

TEST(WindowContract, AnotherNumberIsNoWindow)
{
    for (const WindowHandle none :
         {0ULL, 0x1234567ULL, 0x7fffffffULL, 0xffffffffULL, 0xffffffffffffffffULL}) {
        EXPECT_FALSE(platform::WindowExists(none)) << none;
    }
}

TEST(WindowContract, WindowOfAnotherProcessExistsUntilItIsClosedOrItsProcessEnds)
{
    Shown closed;
    EXPECT_TRUE(platform::WindowExists(closed.Window()));
    closed.Ask({"close-window"});
    EXPECT_FALSE(platform::WindowExists(closed.Window()));
    Shown ended;
    ended.Process().EndAtOnce();
    EXPECT_TRUE(WaitUntil([&ended] { return !platform::WindowExists(ended.Window()); }));
}

TEST(WindowContract, CoveredWindowComesToTheFrontButIsNotTopMost)
{
    const Shown first;
    const Shown second;
    ASSERT_TRUE(ComesToTheFront(first, second));
    EXPECT_FALSE(contract::IsTopMost(first.Window()));
    EXPECT_TRUE(ComesToTheFront(second, first));
}

TEST(WindowContract, MinimisedWindowIsRestoredAndComesToTheFront)
{
    const Shown minimised;
    const Shown other;
    contract::Minimise(minimised.Window());
    ASSERT_TRUE(WaitUntil([&] { return contract::IsMinimised(minimised.Window()); }));
    EXPECT_TRUE(ComesToTheFront(minimised, other));
}

TEST(WindowContract, BringingNoWindowToTheFrontChangesNothing)
{
    Shown closed;
    const Shown other;
    ASSERT_TRUE(ComesToTheFront(other, closed));
    closed.Ask({"close-window"});
    platform::BringToFront(closed.Window());
    platform::BringToFront(0xffffffffffffffff);
    EXPECT_TRUE(contract::IsShown(other.Window()));
    EXPECT_TRUE(contract::IsActive(other.Window()));
}

TEST(WindowContract, DropShadowIsTheSystemsSetting)
{
    for (const bool enabled : {true, false}) {
        const contract::Held setting = contract::SystemDropShadow(enabled);
        EXPECT_EQ(platform::DropShadowEnabled(), enabled);
    }
}

} // namespace
