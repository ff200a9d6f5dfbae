#include "platform/window.h"
#include "tests/unit/platform/support/child.h"
#include "tests/unit/platform/support/desktop.h"

#include <gtest/gtest.h>

namespace {

using contract::StartedChild;
using contract::WaitUntil;
using platform::WindowHandle;

/// A process with one window on the screen.
class Shown : public StartedChild
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

bool IsInFront(WindowHandle window, WindowHandle other)
{
    return contract::IsShown(window) && contract::IsAbove(window, other) &&
           contract::IsActive(window);
}

/// Whether `BringToFront` works. It is asked again when that crosses with the focus that the
/// desktop gives to a window that has just opened: how long this is under way can be seen from no
/// side.
bool ComesToTheFront(WindowHandle window, WindowHandle other)
{
    constexpr std::chrono::seconds kPatience{3};
    return WaitUntil([=] {
        platform::BringToFront(window);
        return WaitUntil([=] { return IsInFront(window, other); }, kPatience);
    });
}

TEST(WindowContract, NothingIsNoWindow)
{
    EXPECT_FALSE(platform::WindowExists(0));
    EXPECT_FALSE(platform::WindowExists(0x1234567));
    EXPECT_FALSE(platform::WindowExists(0x7fffffff));
    EXPECT_FALSE(platform::WindowExists(0xffffffff));
    EXPECT_FALSE(platform::WindowExists(0xffffffffffffffff));
}

TEST(WindowContract, WindowOfAnotherProcessExistsUntilItIsClosed)
{
    Shown shown;
    EXPECT_TRUE(platform::WindowExists(shown.Window()));
    shown.Ask({"close-window"});
    EXPECT_FALSE(platform::WindowExists(shown.Window()));
}

TEST(WindowContract, WindowGoesWithItsProcess)
{
    Shown shown;
    shown.Process().EndAtOnce();
    EXPECT_TRUE(WaitUntil([&shown] { return !platform::WindowExists(shown.Window()); }));
}

TEST(WindowContract, CoveredWindowComesToTheFront)
{
    Shown lower;
    Shown upper;
    ASSERT_TRUE(ComesToTheFront(upper.Window(), lower.Window()));
    EXPECT_TRUE(ComesToTheFront(lower.Window(), upper.Window()));
}

TEST(WindowContract, MinimisedWindowIsRestoredAndComesToTheFront)
{
    Shown minimised;
    Shown other;
    contract::Minimise(minimised.Window());
    ASSERT_TRUE(WaitUntil([&] { return contract::IsMinimised(minimised.Window()); }));
    EXPECT_TRUE(ComesToTheFront(minimised.Window(), other.Window()));
}

TEST(WindowContract, WindowInFrontIsNotTopMost)
{
    Shown first;
    Shown second;
    ASSERT_TRUE(ComesToTheFront(first.Window(), second.Window()));
    EXPECT_FALSE(contract::IsTopMost(first.Window()));
    // So another one can still get above it.
    EXPECT_TRUE(ComesToTheFront(second.Window(), first.Window()));
}

TEST(WindowContract, BringingNothingToTheFrontChangesNothing)
{
    Shown closed;
    Shown other;
    ASSERT_TRUE(ComesToTheFront(other.Window(), closed.Window()));
    closed.Ask({"close-window"});
    platform::BringToFront(closed.Window());
    platform::BringToFront(0xffffffffffffffff);
    EXPECT_TRUE(contract::IsShown(other.Window()));
    EXPECT_TRUE(contract::IsActive(other.Window()));
}

TEST(WindowContract, DropShadowIsTheSystemsSetting)
{
    {
        const contract::SystemDropShadow with(true);
        EXPECT_TRUE(platform::DropShadowEnabled());
    }
    {
        const contract::SystemDropShadow without(false);
        EXPECT_FALSE(platform::DropShadowEnabled());
    }
}

} // namespace
