// SPDX-License-Identifier: MIT
#include "platform/linux/X11Keyboard.h"

#include "platform/linux/X11Connection.h"

namespace tarnwick {

X11Keys keysDown(X11Connection& connection)
{
    const XcbOwned<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection.get(), xcb_query_keymap(connection.get()), nullptr));
    X11Keys keys;
    if (!reply)
        return keys;
    for (std::size_t keyCode = 0; keyCode < keys.size(); ++keyCode)
        keys[keyCode] = (reply->keys[keyCode / 8] >> (keyCode % 8)) & 1;
    return keys;
}

} // namespace tarnwick
