// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Connection.h"

#include <QSet>

namespace tarnwick {

/// Another program on the display: its requests and grabs are not ours. They end with it.
class OtherClient
{
public:
    OtherClient() : _own(xcb_connect(nullptr, nullptr)), _x11(_own) {}
    ~OtherClient() { xcb_disconnect(_own); }
    OtherClient(const OtherClient&) = delete;
    OtherClient& operator=(const OtherClient&) = delete;

    [[nodiscard]] X11Connection& x11() { return _x11; }

    /// False when somebody else has the key with these modifiers.
    bool grab(quint8 keyCode, quint16 modifiers)
    {
        const auto cookie = xcb_grab_key_checked(_own, 0, _x11.root(), modifiers, keyCode,
                                                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return XcbOwned<xcb_generic_error_t>(xcb_request_check(_own, cookie)) == nullptr;
    }

    /// The modifiers with which somebody else has the key, of all 256 combinations.
    [[nodiscard]] QSet<quint16> heldByOthers(quint8 keyCode)
    {
        constexpr quint16 combinations = 256;
        QSet<quint16> held;
        for (quint16 modifiers = 0; modifiers < combinations; ++modifiers)
            if (!grab(keyCode, modifiers))
                held.insert(modifiers);
        xcb_ungrab_key(_own, keyCode, _x11.root(), XCB_MOD_MASK_ANY);
        _x11.sync();
        return held;
    }

    /// False when somebody else has the keyboard.
    bool grabKeyboard()
    {
        const XcbOwned<xcb_grab_keyboard_reply_t> reply(
            xcb_grab_keyboard_reply(_own,
                                    xcb_grab_keyboard(_own, 0, _x11.root(), XCB_CURRENT_TIME,
                                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                    nullptr));
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    }
    void ungrabKeyboard()
    {
        xcb_ungrab_keyboard(_own, XCB_CURRENT_TIME);
        _x11.sync();
    }

    /// Whether nobody else has the keyboard. It is given back at once.
    [[nodiscard]] bool canTakeKeyboard()
    {
        const bool taken = grabKeyboard();
        ungrabKeyboard();
        return taken;
    }

    /// As with the keyboard.
    [[nodiscard]] bool canTakePointer()
    {
        const bool taken = takePointer();
        givePointerBack();
        return taken;
    }

    /// Takes it and keeps it. False when somebody else has it.
    [[nodiscard]] bool takePointer()
    {
        const XcbOwned<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(
            _own,
            xcb_grab_pointer(_own, 0, _x11.root(), 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                             XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME),
            nullptr));
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    }

    void givePointerBack()
    {
        xcb_ungrab_pointer(_own, XCB_CURRENT_TIME);
        _x11.sync();
    }

private:
    xcb_connection_t* _own;
    X11Connection _x11;
};

} // namespace tarnwick
