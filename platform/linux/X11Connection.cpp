// SPDX-License-Identifier: MIT
#include "platform/linux/X11Connection.h"

#include <QGuiApplication>
#include <xcb/xfixes.h>

#include <algorithm>

namespace tarnwick {

namespace {

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

X11Connection::X11Connection(xcb_connection_t* connection) : _connection(connection)
{
    if (_connection)
        _root = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data->root;
}

xcb_atom_t X11Connection::atom(const QByteArray& name)
{
    const auto known =
        std::find_if(_atoms.cbegin(), _atoms.cend(), [&](const auto& entry) { return entry.first == name; });
    if (known != _atoms.cend())
        return known->second;
    const auto cookie =
        xcb_intern_atom(_connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const XcbOwned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(_connection, cookie, nullptr));
    if (!reply)
        return XCB_ATOM_NONE;
    _atoms.append({name, reply->atom});
    return reply->atom;
}

XcbOwned<xcb_get_property_reply_t> X11Connection::_property(xcb_window_t window, const QByteArray& name,
                                                            std::uint32_t words)
{
    const auto cookie =
        xcb_get_property(_connection, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, words);
    XcbOwned<xcb_get_property_reply_t> reply(xcb_get_property_reply(_connection, cookie, nullptr));
    if (reply && reply->type == XCB_ATOM_NONE)
        reply.reset();
    return reply;
}

std::optional<QList<std::uint32_t>> X11Connection::property32(xcb_window_t window, const QByteArray& name,
                                                              std::uint32_t limit)
{
    const auto reply = _property(window, name, limit);
    if (!reply || reply->format != 32)
        return std::nullopt;
    const auto* items = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return QList<std::uint32_t>(items, items + reply->value_len);
}

std::optional<QByteArray> X11Connection::propertyText(xcb_window_t window, const QByteArray& name)
{
    const auto reply = _property(window, name, 64 * 1024 / 4);
    if (!reply || reply->format != 8)
        return std::nullopt;
    return QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

std::uint8_t X11Connection::watchSelectionOwner(xcb_atom_t selection)
{
    const auto* extension = xcb_get_extension_data(_connection, &xcb_xfixes_id);
    if (!extension || !extension->present)
        return 0;
    const XcbOwned<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
        _connection,
        xcb_xfixes_query_version(_connection, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION), nullptr));
    if (!version)
        return 0;
    xcb_xfixes_select_selection_input(_connection, _root, selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    return std::uint8_t(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
}

void X11Connection::sync()
{
    const XcbOwned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
}

} // namespace tarnwick
