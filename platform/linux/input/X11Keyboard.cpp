// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11Keyboard.h"

namespace tarnwick {

X11KeysQuestion::X11KeysQuestion(X11Connection& connection)
    : _answer(connection, xcb_query_keymap(connection.get()))
{
}

X11Keys X11KeysQuestion::answer()
{
    const auto reply = _answer.take();
    X11Keys keys;
    if (!reply)
        return keys;
    for (std::size_t keyCode = 0; keyCode < keys.size(); ++keyCode)
        keys[keyCode] = (reply->keys[keyCode / 8] >> (keyCode % 8)) & 1;
    return keys;
}

X11Keys keysDown(X11Connection& connection)
{
    return X11KeysQuestion(connection).answer();
}

} // namespace tarnwick
