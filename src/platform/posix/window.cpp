#include "platform/window.h"

#include "platform/posix/x_connection.h"

#include <array>
#include <limits>

namespace platform {
namespace {

/// The X identifier in `window`; none when it is too large to be one.
xcb_window_t XWindow(WindowHandle window)
{
    return window <= std::numeric_limits<xcb_window_t>::max()
               ? static_cast<xcb_window_t>(window)
               : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

/// Asks the window manager to activate `window`, as a pager does: window managers that would refuse
/// an application that steals the focus obey a pager.
void RequestActivation(const XConnection &display, xcb_window_t root, xcb_window_t window)
{
    constexpr std::uint32_t kSourcePager = 2;
    constexpr std::uint32_t kMask =
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    const xcb_atom_t message = display.ExistingAtom("_NET_ACTIVE_WINDOW");
    if (message == XCB_ATOM_NONE) {
        return; // no window manager that knows it
    }
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = message;
    event.data.data32[0] = kSourcePager;
    event.data.data32[1] = XCB_CURRENT_TIME;
    ::xcb_send_event(display.Get(), 0, root, kMask, reinterpret_cast<const char *>(&event));
}

} // namespace

bool WindowExists(WindowHandle window)
{
    const XConnection display;
    return display && display.RootOf(XWindow(window)) != XCB_WINDOW_NONE;
}

void BringToFront(WindowHandle window)
{
    const XConnection display;
    const xcb_window_t target = XWindow(window);
    const xcb_window_t root =
        display ? display.RootOf(target) : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
    if (root == XCB_WINDOW_NONE) {
        return;
    }
    const std::array<std::uint32_t, 1> above = {XCB_STACK_MODE_ABOVE};
    ::xcb_map_window(display.Get(), target);
    ::xcb_configure_window(display.Get(), target, XCB_CONFIG_WINDOW_STACK_MODE, above.data());
    RequestActivation(display, root, target);
    display.Synchronise(); // the window may have gone meanwhile; such errors stay unread
}

bool DropShadowEnabled()
{
    const XConnection display;
    if (!display) {
        return false;
    }
    const xcb_atom_t manager =
        display.ExistingAtom("_NET_WM_CM_S" + std::to_string(display.Screen()));
    if (manager == XCB_ATOM_NONE) {
        return false;
    }
    const XReply<xcb_get_selection_owner_reply_t> reply(::xcb_get_selection_owner_reply(
        display.Get(), ::xcb_get_selection_owner(display.Get(), manager), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace platform
