// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Connection.h"

namespace tarnwick {

template <auto Fetch>
class XcbAnswer;

/// A question that is on its way to the X server, so that several can be before the first answer is waited
/// for. `Fetch` is the function of xcb that takes the answer in: `XcbAnswer<&xcb_get_property_reply>`.
template <typename Reply, typename Cookie, Reply* (*Fetch)(xcb_connection_t*, Cookie, xcb_generic_error_t**)>
class XcbAnswer<Fetch>
{
public:
    XcbAnswer(X11Connection& x11, Cookie cookie) : _x11(x11.get()), _cookie(cookie) {}
    ~XcbAnswer()
    {
        if (!_taken)
            xcb_discard_reply(_x11, _cookie.sequence);
    }
    XcbAnswer(const XcbAnswer&) = delete;
    XcbAnswer& operator=(const XcbAnswer&) = delete;

    /// Waits for it; nothing when the server refuses. To be called once.
    [[nodiscard]] XcbOwned<Reply> take()
    {
        _taken = true;
        return XcbOwned<Reply>(Fetch(_x11, _cookie, nullptr));
    }

private:
    xcb_connection_t* _x11;
    Cookie _cookie;
    bool _taken = false;
};

} // namespace tarnwick
