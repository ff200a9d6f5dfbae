#include "platform/window.h"

#include "platform/posix/x_connection.h"
#include "tests/unit/platform/support/desktop.h"

#include <gtest/gtest.h>

namespace {

using platform::XConnection;
using platform::XReply;

// A window manager may refuse an application (source 1) that takes the focus from another one.
TEST(ActivationRequest, NamesAPagerAsItsSource)
{
    const contract::TestWindow window = contract::OpenWindow();
    ASSERT_TRUE(contract::WaitUntil([&window] { return contract::IsShown(window.handle); }));
    // Sees what clients send to the window manager.
    const XConnection display;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const xcb_window_t root = display.RootOf(static_cast<xcb_window_t>(window.handle));
    ::xcb_change_window_attributes(display.Get(), root, XCB_CW_EVENT_MASK, &mask);
    display.Synchronise();

    platform::BringToFront(window.handle);
    display.Synchronise();
    constexpr unsigned kNotSynthetic = 0x7f;
    int requests = 0;
    while (const XReply<xcb_generic_event_t> event{::xcb_poll_for_event(display.Get())}) {
        const auto &message = *reinterpret_cast<xcb_client_message_event_t *>(event.get());
        if ((event->response_type & kNotSynthetic) == XCB_CLIENT_MESSAGE &&
            message.type == display.ExistingAtom("_NET_ACTIVE_WINDOW")) {
            ++requests;
            EXPECT_EQ(message.window, window.handle);
            EXPECT_EQ(message.format, 32);
            EXPECT_EQ(message.data.data32[0], 2U);
            EXPECT_EQ(message.data.data32[1], std::uint32_t{XCB_CURRENT_TIME});
        }
    }
    EXPECT_EQ(requests, 1);
}

TEST(XWindow, ANumberOfMoreThan32BitsIsNoWindow)
{
    const contract::TestWindow window = contract::OpenWindow();
    EXPECT_TRUE(platform::WindowExists(window.handle));
    EXPECT_FALSE(platform::WindowExists(window.handle + (1ULL << 32U)));
}

TEST(NoDisplay, HasNoWindowsAndNoShadows)
{
    for (const char *name : {"", "nonsense", "unix:/nowhere/socket:0"}) {
        const contract::ScopedVariable display("DISPLAY", name);
        EXPECT_FALSE(platform::WindowExists(1)) << name;
        platform::BringToFront(1); // must return
        EXPECT_FALSE(platform::DropShadowEnabled()) << name;
    }
}

} // namespace
