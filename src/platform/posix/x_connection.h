#pragma once

#include "platform/owner.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <xcb/xcb.h>

namespace platform {

struct FreeReply
{
    void operator()(void *reply) const
    {
        std::free(reply);
    }
};
template<class Type> using XReply = std::unique_ptr<Type, FreeReply>;

struct ConnectionTraits
{
    using Type = xcb_connection_t *;
    static Type Empty()
    {
        // xcb_connect() never returns null; a failed connection is in an error state.
        return nullptr;
    }
    static void Close(Type connection)
    {
        ::xcb_disconnect(connection);
    }
};

/// A connection of its own to the X display that `DISPLAY` names: a second start has no Qt
/// application to borrow one from, and an error on it affects no other connection.
class XConnection
{
public:
    XConnection();

    /// Whether there is a display.
    explicit operator bool() const;
    xcb_connection_t *Get() const
    {
        return connection_.Get();
    }
    /// Number of the display's default screen.
    int Screen() const
    {
        return screen_;
    }

    /// The atom of that name; none when no client has ever used it.
    xcb_atom_t ExistingAtom(const std::string &name) const;
    /// The root window above `window`; none when there is no such window.
    xcb_window_t RootOf(xcb_window_t window) const;
    /// Waits until the server has carried out all requests.
    void Synchronise() const;

private:
    int screen_ = 0;
    Owner<ConnectionTraits> connection_;
};

} // namespace platform
