#include "platform/posix/x_connection.h"

namespace platform {

XConnection::XConnection()
    : connection_(::xcb_connect(nullptr, &screen_))
{
}

XConnection::operator bool() const
{
    return ::xcb_connection_has_error(Get()) == 0;
}

xcb_atom_t XConnection::ExistingAtom(const std::string &name) const
{
    constexpr std::uint8_t kOnlyExisting = 1;
    const auto cookie = ::xcb_intern_atom(
        Get(), kOnlyExisting, static_cast<std::uint16_t>(name.size()), name.data());
    const XReply<xcb_intern_atom_reply_t> reply(::xcb_intern_atom_reply(Get(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_window_t XConnection::RootOf(xcb_window_t window) const
{
    // The tree, not the geometry: a pixmap has a geometry too.
    const XReply<xcb_query_tree_reply_t> reply(
        ::xcb_query_tree_reply(Get(), ::xcb_query_tree(Get(), window), nullptr));
    return reply ? reply->root : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

void XConnection::Synchronise() const
{
    const XReply<xcb_get_input_focus_reply_t> reply(
        ::xcb_get_input_focus_reply(Get(), ::xcb_get_input_focus(Get()), nullptr));
}

} // namespace platform
