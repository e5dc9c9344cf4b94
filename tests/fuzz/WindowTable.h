// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <xcb/xcb.h>

#include <optional>

namespace tarnwick {

/// What the functions of xcb answer in this program: there is no X server, but windows that say whatever is
/// laid down here. Answers have the form that a server gives them, since the library takes no other.
struct WindowTable
{
    static constexpr xcb_window_t Root = 1;

    struct Property
    {
        quint8 format = 8; ///< 8, 16 or 32
        QByteArray contents;
    };

    struct Window
    {
        bool mapped = true;
        bool overrideRedirect = false;
        xcb_window_t parent = Root;
        std::optional<quint32> process; ///< as the server knows it
        QHash<xcb_atom_t, Property> properties;
    };

    /// Those of the program.
    static WindowTable& shared();

    /// The same as X11Connection::atom() gives.
    static xcb_atom_t atom(const QByteArray& name);

    QHash<xcb_window_t, Window> windows;
    xcb_window_t focus = XCB_WINDOW_NONE;
};

} // namespace tarnwick
