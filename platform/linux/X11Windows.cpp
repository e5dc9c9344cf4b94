// SPDX-License-Identifier: MIT
#include "platform/linux/X11Windows.h"

#include <QSysInfo>
#include <xcb/res.h>

#include <algorithm>

namespace tarnwick {

namespace {

/// Longest chain of windows that is followed: parents, or owners of transient windows.
constexpr int MaximumChain = 32;

} // namespace

bool X11Windows::managed()
{
    const auto check = _x11.property32(_x11.root(), "_NET_SUPPORTING_WM_CHECK", 1);
    if (!check || check->isEmpty())
        return false;
    const xcb_window_t window = check->first();
    const auto itself = _x11.property32(window, "_NET_SUPPORTING_WM_CHECK", 1);
    return itself && itself->startsWith(window) && lists(_x11.root(), "_NET_SUPPORTED", "_NET_ACTIVE_WINDOW");
}

std::optional<FrontWindow> X11Windows::front()
{
    xcb_window_t window = XCB_WINDOW_NONE;
    if (managed()) {
        const auto active = _x11.property32(_x11.root(), "_NET_ACTIVE_WINDOW", 1);
        window = active ? active->value(0) : 0;
    } else {
        window = _focused();
    }
    if (window == XCB_WINDOW_NONE)
        return FrontWindow{};
    switch (_standing(window)) {
    case Standing::Gone: // not every window manager says so
        return FrontWindow{};
    case Standing::Other:
        return std::nullopt;
    case Standing::Application:
        break;
    }
    return FrontWindow{window, processIdentifier(window)};
}

xcb_window_t X11Windows::_focused()
{
    const XcbOwned<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(_x11.get(), xcb_get_input_focus(_x11.get()), nullptr));
    if (!focus || focus->focus <= XCB_INPUT_FOCUS_POINTER_ROOT || focus->focus == _x11.root())
        return XCB_WINDOW_NONE;
    xcb_window_t window = focus->focus;
    for (int i = 0; i < MaximumChain; ++i) {
        if (_x11.property32(window, "WM_STATE", 1))
            return window;
        const XcbOwned<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(_x11.get(), xcb_query_tree(_x11.get(), window), nullptr));
        if (!tree)
            return XCB_WINDOW_NONE;
        if (tree->parent == _x11.root() || tree->parent == XCB_WINDOW_NONE)
            return window;
        window = tree->parent;
    }
    return XCB_WINDOW_NONE;
}

X11Windows::Standing X11Windows::_standing(xcb_window_t window)
{
    const XcbOwned<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(_x11.get(), xcb_get_window_attributes(_x11.get(), window), nullptr));
    if (!attributes || attributes->map_state == XCB_MAP_STATE_UNMAPPED)
        return Standing::Gone;
    if (attributes->override_redirect != 0)
        return Standing::Other;
    const auto types = _x11.property32(window, "_NET_WM_WINDOW_TYPE").value_or(QList<std::uint32_t>());
    const bool other = std::any_of(types.cbegin(), types.cend(), [this](std::uint32_t type) {
        return type == _x11.atom("_NET_WM_WINDOW_TYPE_DOCK") ||
               type == _x11.atom("_NET_WM_WINDOW_TYPE_TOOLTIP") ||
               type == _x11.atom("_NET_WM_WINDOW_TYPE_NOTIFICATION");
    });
    return other ? Standing::Other : Standing::Application;
}

QList<xcb_window_t> X11Windows::_all()
{
    if (const auto listed = _x11.property32(_x11.root(), "_NET_CLIENT_LIST"))
        return *listed;
    QList<xcb_window_t> windows;
    const XcbOwned<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(_x11.get(), xcb_query_tree(_x11.get(), _x11.root()), nullptr));
    if (!tree)
        return windows;
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i)
        if (_x11.propertyText(children[i], "WM_CLASS") && _standing(children[i]) == Standing::Application)
            windows.append(children[i]);
    return windows;
}

QList<xcb_window_t> X11Windows::windowsOf(qint64 processIdentifier)
{
    QList<xcb_window_t> windows = _all();
    windows.removeIf(
        [&](xcb_window_t window) { return this->processIdentifier(window) != processIdentifier; });
    return windows;
}

bool X11Windows::_isOfThisMachine(xcb_window_t window)
{
    const auto machine = _x11.propertyText(window, "WM_CLIENT_MACHINE");
    const auto host = [](const QString& name) { return name.section(u'.', 0, 0); }; // without its domain
    return !machine || host(QString::fromLocal8Bit(*machine)) == host(QSysInfo::machineHostName());
}

std::optional<qint64> X11Windows::_clientProcess(xcb_window_t window)
{
    const auto* extension = xcb_get_extension_data(_x11.get(), &xcb_res_id);
    if (!extension || extension->present == 0)
        return std::nullopt;
    const xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const XcbOwned<xcb_res_query_client_ids_reply_t> reply(xcb_res_query_client_ids_reply(
        _x11.get(), xcb_res_query_client_ids(_x11.get(), 1, &wanted), nullptr));
    if (!reply)
        return std::nullopt;
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        const auto& [identity, bytes] = *ids.data;
        const bool isProcess = (identity.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
        if (isProcess && bytes >= sizeof(quint32))
            return *xcb_res_client_id_value_value(ids.data);
    }
    return std::nullopt;
}

std::optional<qint64> X11Windows::processIdentifier(xcb_window_t window)
{
    if (!_isOfThisMachine(window))
        return std::nullopt;
    // The server's word goes first: inside a sandbox, programs count their processes from 1.
    if (const auto client = _clientProcess(window))
        return client;
    const auto told = _x11.property32(window, "_NET_WM_PID", 1);
    if (!told || told->isEmpty())
        return std::nullopt;
    return told->first();
}

xcb_window_t X11Windows::transientFor(xcb_window_t window)
{
    const auto owner = _x11.property32(window, "WM_TRANSIENT_FOR", 1);
    return owner && owner->value(0) != _x11.root() ? owner->value(0) : 0;
}

QList<xcb_window_t> X11Windows::withOwners(xcb_window_t window)
{
    QList<xcb_window_t> chain;
    while (window != XCB_WINDOW_NONE && chain.size() < MaximumChain && !chain.contains(window)) {
        chain.append(window);
        window = transientFor(window);
    }
    return chain;
}

std::optional<QString> X11Windows::title(xcb_window_t window)
{
    if (const auto text = _x11.propertyText(window, "_NET_WM_NAME"))
        return QString::fromUtf8(*text);
    if (const auto text = _x11.propertyText(window, "WM_NAME"))
        return QString::fromLatin1(*text);
    return std::nullopt;
}

QList<QString> X11Windows::applicationNames(xcb_window_t window)
{
    QList<QString> names;
    if (const auto identifier = _x11.propertyText(window, "_GTK_APPLICATION_ID"))
        names.append(QString::fromUtf8(*identifier));
    const QList<QByteArray> classes =
        _x11.propertyText(window, "WM_CLASS").value_or(QByteArray()).split('\0');
    for (const qsizetype index : {1, 0}) // instance, class
        if (index < classes.size() && !classes[index].isEmpty())
            names.append(QString::fromLatin1(classes[index]));
    return names;
}

bool X11Windows::lists(xcb_window_t window, const QByteArray& property, const QByteArray& atom)
{
    const auto atoms = _x11.property32(window, property);
    return atoms && atoms->contains(_x11.atom(atom));
}

} // namespace tarnwick
