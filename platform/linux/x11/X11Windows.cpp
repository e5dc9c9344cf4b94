// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Windows.h"

#include "platform/linux/x11/X11Property.h"

#include <QSysInfo>
#include <xcb/res.h>

#include <algorithm>
#include <limits>
#include <sys/types.h>

namespace tarnwick {

namespace {

/// Longest chain of windows that is followed: parents, or owners of transient windows.
constexpr int MaximumChain = 32;

/// Nothing for a number that is no process: the server says 0 of those that its system does not show it.
std::optional<qint64> processOf(std::uint32_t told)
{
    return told > 0 && told <= std::numeric_limits<pid_t>::max() ? std::optional<qint64>(told) : std::nullopt;
}

} // namespace

// The constructors of the following classes send their questions; only answer() and window() wait for a
// reply.

/// Whether a window manager keeps the root's properties.
class X11Windows::Managing
{
public:
    /// `expected` is the window that will most likely be named by the root, and is to name itself.
    Managing(X11Connection& x11, xcb_window_t expected)
        : _x11(x11), _check(x11, x11.root(), "_NET_SUPPORTING_WM_CHECK", 1),
          _supported(x11, x11.root(), "_NET_SUPPORTED"), _window(expected),
          _itself(std::in_place, x11, expected, "_NET_SUPPORTING_WM_CHECK", 1)
    {
    }

    /// The window that is named by the root; asks it, too, if it is not the expected one.
    [[nodiscard]] xcb_window_t window()
    {
        if (const xcb_window_t named = _check.firstItem(); named != _window)
            _itself.emplace(_x11, _window = named, "_NET_SUPPORTING_WM_CHECK", 1);
        return _window;
    }

    /// Once window() has been called.
    [[nodiscard]] bool answer()
    {
        const auto supported = _supported.items();
        return _window != XCB_WINDOW_NONE && _itself->firstItem() == _window && supported &&
               supported->contains(_x11.atom("_NET_ACTIVE_WINDOW"));
    }

private:
    X11Connection& _x11;
    X11Property _check;
    X11Property _supported;
    xcb_window_t _window;
    std::optional<X11Property> _itself;
};

/// What a window is to the user.
class X11Windows::Standing
{
public:
    enum class Kind { Application, Other, Gone };

    Standing(X11Connection& x11, xcb_window_t window)
        : _x11(x11), _attributes(x11, xcb_get_window_attributes(x11.get(), window)),
          _types(x11, window, "_NET_WM_WINDOW_TYPE")
    {
    }

    [[nodiscard]] Kind answer()
    {
        const auto attributes = _attributes.take();
        if (!attributes || attributes->map_state == XCB_MAP_STATE_UNMAPPED)
            return Kind::Gone;
        if (attributes->override_redirect != 0)
            return Kind::Other;
        const auto types = _types.items().value_or(QList<std::uint32_t>());
        const bool other = std::any_of(types.cbegin(), types.cend(), [this](std::uint32_t type) {
            return type == _x11.atom("_NET_WM_WINDOW_TYPE_DOCK") ||
                   type == _x11.atom("_NET_WM_WINDOW_TYPE_TOOLTIP") ||
                   type == _x11.atom("_NET_WM_WINDOW_TYPE_NOTIFICATION");
        });
        return other ? Kind::Other : Kind::Application;
    }

private:
    X11Connection& _x11;
    XcbAnswer<&xcb_get_window_attributes_reply> _attributes;
    X11Property _types;
};

/// The process whose window it is.
class X11Windows::Process
{
public:
    Process(X11Connection& x11, xcb_window_t window)
        : _machine(x11, window, "WM_CLIENT_MACHINE"), _told(x11, window, "_NET_WM_PID", 1)
    {
        const auto* extension = xcb_get_extension_data(x11.get(), &xcb_res_id);
        const xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        if (extension && extension->present != 0)
            _client.emplace(x11, xcb_res_query_client_ids(x11.get(), 1, &wanted));
    }

    [[nodiscard]] std::optional<qint64> answer()
    {
        if (!_isOfThisMachine())
            return std::nullopt;
        // The server's word goes first: inside a sandbox, programs count their processes from 1.
        if (const auto client = _clientProcess())
            return client;
        return processOf(_told.firstItem());
    }

private:
    [[nodiscard]] bool _isOfThisMachine()
    {
        const auto machine = _machine.text();
        const auto host = [](const QString& name) { return name.section(u'.', 0, 0); }; // without its domain
        return !machine || host(QString::fromLocal8Bit(*machine)) == host(QSysInfo::machineHostName());
    }

    [[nodiscard]] std::optional<qint64> _clientProcess()
    {
        const auto reply = _client ? _client->take() : nullptr;
        if (!reply)
            return std::nullopt;
        for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
             xcb_res_client_id_value_next(&ids)) {
            const auto& [identity, bytes] = *ids.data;
            const bool isProcess = (identity.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
            if (isProcess && bytes >= sizeof(quint32))
                return processOf(*xcb_res_client_id_value_value(ids.data));
        }
        return std::nullopt;
    }

    X11Property _machine;
    X11Property _told;
    std::optional<XcbAnswer<&xcb_res_query_client_ids_reply>> _client;
};

struct X11Windows::Identity
{
    Identity(X11Connection& x11, xcb_window_t of) : window(of), standing(x11, of), process(x11, of) {}

    xcb_window_t window;
    Standing standing;
    Process process;
};

bool X11Windows::managed()
{
    Managing managing(_x11, _managingBefore);
    _managingBefore = managing.window();
    return managing.answer();
}

QString X11Windows::managerName()
{
    const xcb_window_t manager = X11Property(_x11, _x11.root(), "_NET_SUPPORTING_WM_CHECK", 1).firstItem();
    const auto name = _x11.propertyText(manager, "_NET_WM_NAME");
    return name ? QString::fromUtf8(*name) : QString();
}

std::optional<X11Window> X11Windows::front()
{
    // This is asked again and again: one round trip while a window manager says what it said before.
    Managing managing(_x11, _managingBefore);
    X11Property active(_x11, _x11.root(), "_NET_ACTIVE_WINDOW", 1);
    std::optional<Identity> identity;
    if (_frontBefore != XCB_WINDOW_NONE)
        identity.emplace(_x11, _frontBefore);
    _managingBefore = managing.window();
    const xcb_window_t window = managing.answer() ? active.firstItem() : _focused();
    _frontBefore = window;
    if (window == XCB_WINDOW_NONE)
        return X11Window{};
    if (!identity || identity->window != window)
        identity.emplace(_x11, window);
    switch (identity->standing.answer()) {
    case Standing::Kind::Gone: // not every window manager says so
        return X11Window{};
    case Standing::Kind::Other:
        return std::nullopt;
    case Standing::Kind::Application:
        break;
    }
    return X11Window{window, identity->process.answer()};
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
        if (_x11.propertyText(children[i], "WM_CLASS") &&
            Standing(_x11, children[i]).answer() == Standing::Kind::Application)
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

std::optional<qint64> X11Windows::processIdentifier(xcb_window_t window)
{
    return Process(_x11, window).answer();
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
    if (const auto identifier = _x11.propertyText(window, "_GTK_APPLICATION_ID");
        identifier && !identifier->isEmpty())
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
