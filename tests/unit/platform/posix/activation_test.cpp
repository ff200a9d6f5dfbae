#include "platform/posix/x_connection.h"
#include "platform/window.h"
#include "tests/unit/platform/support/desktop.h"
#include "tests/unit/platform/support/system.h"

#include <gtest/gtest.h>
#include <optional>

namespace {

using platform::XConnection;
using platform::XReply;

/// Sees what clients send to the window manager.
class RootWindow
{
public:
    explicit RootWindow(platform::WindowHandle below)
    {
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        const xcb_window_t root = display_.RootOf(static_cast<xcb_window_t>(below));
        ::xcb_change_window_attributes(display_.Get(), root, XCB_CW_EVENT_MASK, &mask);
        display_.Synchronise();
    }

    /// The first message of that type that was sent before the call.
    std::optional<xcb_client_message_event_t> Message(const std::string &type) const
    {
        constexpr unsigned kNotSynthetic = 0x7f;
        const xcb_atom_t atom = display_.ExistingAtom(type);
        while (const XReply<xcb_generic_event_t> event{::xcb_poll_for_event(display_.Get())}) {
            if ((event->response_type & kNotSynthetic) == XCB_CLIENT_MESSAGE) {
                const auto message =
                    *reinterpret_cast<const xcb_client_message_event_t *>(event.get());
                if (message.type == atom) {
                    return message;
                }
            }
        }
        return std::nullopt;
    }

private:
    XConnection display_;
};

// A window manager may refuse an application (source 1) that takes the focus from another one.
TEST(ActivationRequest, NamesAPagerAsItsSource)
{
    const contract::TestWindow window;
    ASSERT_TRUE(contract::WaitUntil([&window] { return contract::IsShown(window.Handle()); }));
    const RootWindow root(window.Handle());
    platform::BringToFront(window.Handle());
    const auto message = root.Message("_NET_ACTIVE_WINDOW");
    ASSERT_TRUE(message);
    EXPECT_EQ(message->window, window.Handle());
    EXPECT_EQ(message->format, 32);
    EXPECT_EQ(message->data.data32[0], 2U);
    EXPECT_EQ(message->data.data32[1], std::uint32_t{XCB_CURRENT_TIME});
}

} // namespace
