#include "tests/unit/platform/support/desktop.h"

#include "platform/posix/x_connection.h"

#include <algorithm>
#include <vector>

namespace contract {
namespace {

using platform::WindowHandle;
using platform::XConnection;
using platform::XReply;

/// The 32-bit values of a property; empty when it is not set.
std::vector<std::uint32_t>
Property(const XConnection &display, WindowHandle window, const std::string &name)
{
    constexpr std::uint32_t kMost = 1024;
    const auto cookie = ::xcb_get_property(display.Get(),
                                           0,
                                           static_cast<xcb_window_t>(window),
                                           display.ExistingAtom(name),
                                           XCB_ATOM_ANY,
                                           0,
                                           kMost);
    const XReply<xcb_get_property_reply_t> reply(
        ::xcb_get_property_reply(display.Get(), cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto *const first =
        static_cast<const std::uint32_t *>(::xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

/// A property of the root window above `window`, which the window manager sets.
std::vector<std::uint32_t>
RootProperty(const XConnection &display, WindowHandle window, const std::string &name)
{
    return Property(display, display.RootOf(static_cast<xcb_window_t>(window)), name);
}

bool HasState(WindowHandle window, const std::string &state)
{
    const XConnection display;
    const auto states = Property(display, window, "_NET_WM_STATE");
    const xcb_atom_t atom = display.ExistingAtom(state);
    return std::find(states.begin(), states.end(), atom) != states.end();
}

/// A new window, which is not shown yet.
xcb_window_t NewWindow(const XConnection &display)
{
    constexpr std::int16_t kPlace = 50;
    constexpr std::uint16_t kWidth = 300;
    constexpr std::uint16_t kHeight = 200;
    const xcb_window_t window = ::xcb_generate_id(display.Get());
    ::xcb_create_window(display.Get(),
                        XCB_COPY_FROM_PARENT,
                        window,
                        ::xcb_setup_roots_iterator(::xcb_get_setup(display.Get())).data->root,
                        kPlace,
                        kPlace,
                        kWidth,
                        kHeight,
                        0,
                        XCB_WINDOW_CLASS_INPUT_OUTPUT,
                        XCB_COPY_FROM_PARENT,
                        0,
                        nullptr);
    return window;
}

} // namespace

TestWindow OpenWindow()
{
    const auto display = std::make_shared<XConnection>();
    const xcb_window_t window = NewWindow(*display);
    ::xcb_map_window(display->Get(), window);
    display->Synchronise();
    return {window, AtEnd([display, window] {
                ::xcb_destroy_window(display->Get(), window);
                display->Synchronise();
            })};
}

void PumpMessages() {}

void Minimise(WindowHandle window)
{
    constexpr std::uint32_t kIconicState = 3;
    constexpr std::uint32_t kMask =
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    const XConnection display;
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = static_cast<xcb_window_t>(window);
    event.type = display.ExistingAtom("WM_CHANGE_STATE");
    event.data.data32[0] = kIconicState;
    ::xcb_send_event(display.Get(),
                     0,
                     display.RootOf(event.window),
                     kMask,
                     reinterpret_cast<const char *>(&event));
    display.Synchronise();
}

bool IsMinimised(WindowHandle window)
{
    return HasState(window, "_NET_WM_STATE_HIDDEN");
}

bool IsShown(WindowHandle window)
{
    const XConnection display;
    const auto cookie =
        ::xcb_get_window_attributes(display.Get(), static_cast<xcb_window_t>(window));
    const XReply<xcb_get_window_attributes_reply_t> reply(
        ::xcb_get_window_attributes_reply(display.Get(), cookie, nullptr));
    // The window manager names a window in its list once it takes care of it.
    const auto managed = RootProperty(display, window, "_NET_CLIENT_LIST");
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE && !IsMinimised(window) &&
           std::find(managed.begin(), managed.end(), window) != managed.end();
}

bool IsAbove(WindowHandle upper, WindowHandle lower)
{
    const XConnection display;
    const auto stacking = RootProperty(display, upper, "_NET_CLIENT_LIST_STACKING"); // bottom first
    const auto place = std::find(stacking.begin(), stacking.end(), lower);
    return std::find(place, stacking.end(), upper) != stacking.end();
}

bool IsActive(WindowHandle window)
{
    const XConnection display;
    const auto active = RootProperty(display, window, "_NET_ACTIVE_WINDOW");
    return !active.empty() && active.front() == window;
}

bool IsTopMost(WindowHandle window)
{
    return HasState(window, "_NET_WM_STATE_ABOVE");
}

Held SystemDropShadow(bool enabled)
{
    if (!enabled) {
        return {}; // the test's own display has no compositing manager
    }
    auto display = std::make_shared<XConnection>();
    const std::string name = "_NET_WM_CM_S" + std::to_string(display->Screen());
    const auto cookie =
        ::xcb_intern_atom(display->Get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const XReply<xcb_intern_atom_reply_t> atom(
        ::xcb_intern_atom_reply(display->Get(), cookie, nullptr));
    ::xcb_set_selection_owner(display->Get(), NewWindow(*display), atom->atom, XCB_CURRENT_TIME);
    display->Synchronise();
    // Disconnecting gives the selection up; the server does it in its own time.
    return AtEnd([display]() mutable {
        display.reset();
        WaitUntil([] { return !platform::DropShadowEnabled(); });
    });
}

} // namespace contract
