// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Connection.h"

#include "platform/linux/x11/X11Property.h"

#include <QGuiApplication>

#include <utility>

namespace tarnwick {

namespace {

constexpr std::uint32_t LongestText = 64 * 1024 / 4; // in words

/// What windows are asked for time and again.
const char* const UsualAtoms[] = {
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_SUPPORTED",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_TOOLTIP",
    "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "_NET_WM_PID",
    "_NET_WM_NAME",
    "WM_NAME",
    "WM_CLASS",
    "WM_CLIENT_MACHINE",
    "WM_TRANSIENT_FOR",
    "_GTK_APPLICATION_ID",
    "_GTK_MENUBAR_OBJECT_PATH",
    "_GTK_UNIQUE_BUS_NAME",
    "_GTK_APPLICATION_OBJECT_PATH",
    "_GTK_WINDOW_OBJECT_PATH",
    "_NET_SYSTEM_TRAY_S0",
    "_XSETTINGS_S0",
    "_XSETTINGS_SETTINGS",
};

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t* connection, const QByteArray& name)
{
    return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
}

/// One to no display: all that is asked on it has no answer.
xcb_connection_t* noConnection()
{
    return xcb_connect("no display", nullptr);
}

xcb_connection_t* connectionOfQt()
{
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

} // namespace

X11Connection& X11Connection::shared()
{
    static X11Connection connection(connectionOfQt());
    return connection;
}

X11Connection::X11Connection(xcb_connection_t* connection)
    : _connection(connection ? connection : noConnection()), _there(connection != nullptr)
{
    if (!_there)
        return;
    _root = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data->root;
    _knowUsualAtoms();
}

/// One round trip for all.
void X11Connection::_knowUsualAtoms()
{
    QList<std::pair<QByteArray, xcb_intern_atom_cookie_t>> asked;
    for (const char* name : UsualAtoms)
        asked.append({name, askForAtom(_connection, name)});
    for (const auto& [name, cookie] : std::as_const(asked))
        _take(name, cookie);
}

xcb_atom_t X11Connection::_take(const QByteArray& name, xcb_intern_atom_cookie_t cookie)
{
    const XcbOwned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(_connection, cookie, nullptr));
    if (!reply)
        return XCB_ATOM_NONE;
    _atoms.insert(name, reply->atom);
    return reply->atom;
}

xcb_atom_t X11Connection::atom(const QByteArray& name)
{
    const auto known = _atoms.constFind(name);
    return known != _atoms.cend() ? *known : _take(name, askForAtom(_connection, name));
}

std::optional<QList<std::uint32_t>> X11Connection::property32(xcb_window_t window, const QByteArray& name,
                                                              std::uint32_t limit)
{
    return X11Property(*this, window, name, limit).items();
}

std::optional<QByteArray> X11Connection::propertyText(xcb_window_t window, const QByteArray& name)
{
    return X11Property(*this, window, name, LongestText).text();
}

void X11Connection::sync()
{
    const XcbOwned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
}

} // namespace tarnwick
