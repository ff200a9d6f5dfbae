#include "tests/unit/platform/support/desktop.h"

#include "platform/posix/x_connection.h"
#include "tests/unit/platform/support/system.h"

#include <algorithm>
#include <vector>

namespace contract {
namespace {

using platform::WindowHandle;
using platform::XConnection;
using platform::XReply;

/// The 32-bit values of a property; empty when it is not set.
std::vector<std::uint32_t>
Property(const XConnection &display, xcb_window_t window, const std::string &name)
{
    constexpr std::uint32_t kMost = 1024;
    const auto cookie = ::xcb_get_property(
        display.Get(), 0, window, display.ExistingAtom(name), XCB_ATOM_ANY, 0, kMost);
    const XReply<xcb_get_property_reply_t> reply(
        ::xcb_get_property_reply(display.Get(), cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto *const first =
        static_cast<const std::uint32_t *>(::xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

xcb_window_t Root(const XConnection &display, WindowHandle window)
{
    return display.RootOf(static_cast<xcb_window_t>(window));
}

bool HasState(WindowHandle window, const std::string &state)
{
    const XConnection display;
    const auto states = Property(display, static_cast<xcb_window_t>(window), "_NET_WM_STATE");
    const xcb_atom_t atom = display.ExistingAtom(state);
    return std::find(states.begin(), states.end(), atom) != states.end();
}

} // namespace

struct TestWindow::State
{
    XConnection display;
    xcb_window_t window = XCB_WINDOW_NONE;
};

TestWindow::TestWindow()
    : state_(std::make_unique<State>())
{
    constexpr std::int16_t kPlace = 50;
    constexpr std::uint16_t kWidth = 300;
    constexpr std::uint16_t kHeight = 200;
    xcb_connection_t *const display = state_->display.Get();
    const xcb_screen_t *const screen = ::xcb_setup_roots_iterator(::xcb_get_setup(display)).data;
    state_->window = ::xcb_generate_id(display);
    ::xcb_create_window(display,
                        XCB_COPY_FROM_PARENT,
                        state_->window,
                        screen->root,
                        kPlace,
                        kPlace,
                        kWidth,
                        kHeight,
                        0,
                        XCB_WINDOW_CLASS_INPUT_OUTPUT,
                        screen->root_visual,
                        0,
                        nullptr);
    ::xcb_map_window(display, state_->window);
    state_->display.Synchronise();
}

TestWindow::~TestWindow()
{
    ::xcb_destroy_window(state_->display.Get(), state_->window);
    state_->display.Synchronise();
}

WindowHandle TestWindow::Handle() const
{
    return state_->window;
}

void TestWindow::Pump()
{
    while (const XReply<xcb_generic_event_t> event{::xcb_poll_for_event(state_->display.Get())}) {
    }
}

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
    ::xcb_send_event(
        display.Get(), 0, Root(display, window), kMask, reinterpret_cast<const char *>(&event));
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
    const auto managed = Property(display, Root(display, window), "_NET_CLIENT_LIST");
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE && !IsMinimised(window) &&
           std::find(managed.begin(), managed.end(), window) != managed.end();
}

bool IsAbove(WindowHandle upper, WindowHandle lower)
{
    const XConnection display;
    const auto stacking =
        Property(display, Root(display, upper), "_NET_CLIENT_LIST_STACKING"); // bottom first
    const auto place = std::find(stacking.begin(), stacking.end(), lower);
    return std::find(place, stacking.end(), upper) != stacking.end();
}

bool IsActive(WindowHandle window)
{
    const XConnection display;
    const auto active = Property(display, Root(display, window), "_NET_ACTIVE_WINDOW");
    return !active.empty() && active.front() == window;
}

bool IsTopMost(WindowHandle window)
{
    return HasState(window, "_NET_WM_STATE_ABOVE");
}

struct SystemDropShadow::State
{
    XConnection display;
};

SystemDropShadow::SystemDropShadow(bool enabled)
    : state_(std::make_unique<State>())
{
    if (!enabled) {
        return; // nobody else composites on a display of our own
    }
    xcb_connection_t *const display = state_->display.Get();
    const std::string name = "_NET_WM_CM_S" + std::to_string(state_->display.Screen());
    const XReply<xcb_intern_atom_reply_t> atom(::xcb_intern_atom_reply(
        display,
        ::xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    const xcb_screen_t *const screen = ::xcb_setup_roots_iterator(::xcb_get_setup(display)).data;
    const xcb_window_t owner = ::xcb_generate_id(display);
    ::xcb_create_window(display,
                        XCB_COPY_FROM_PARENT,
                        owner,
                        screen->root,
                        0,
                        0,
                        1,
                        1,
                        0,
                        XCB_WINDOW_CLASS_INPUT_ONLY,
                        XCB_COPY_FROM_PARENT,
                        0,
                        nullptr);
    ::xcb_set_selection_owner(display, owner, atom->atom, XCB_CURRENT_TIME);
    state_->display.Synchronise();
}

// Disconnecting gives the selection up; the server does it in its own time.
SystemDropShadow::~SystemDropShadow()
{
    state_.reset();
    WaitUntil([] { return !platform::DropShadowEnabled(); });
}

} // namespace contract
