// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>

namespace tarnwick {

struct XcbFree
{
    void operator()(void* reply) const noexcept { std::free(reply); }
};

/// For replies, errors and events that xcb hands over to the caller.
template <typename Reply>
using XcbOwned = std::unique_ptr<Reply, XcbFree>;

/// An X connection, usually the one that Qt runs on, with the few look-ups that every X11 adapter needs. All
/// windows and coordinates are of the default screen's root, in X pixels. A failed request gives nothing. GUI
/// thread only.
class X11Connection
{
public:
    /// Qt's own connection; must be called with a QGuiApplication on the "xcb" platform alive.
    static X11Connection& shared();
    /// For another connection, which stays the caller's; to be used from one thread only.
    explicit X11Connection(xcb_connection_t* connection);

    /// Where Qt does not run on X11, one that has failed: nothing that is asked on it has an answer.
    [[nodiscard]] xcb_connection_t* get() const { return _connection; }
    explicit operator bool() const { return _there; }
    [[nodiscard]] xcb_window_t root() const { return _root; }

    /// The atom of this name, made when there is none; looked up once.
    [[nodiscard]] xcb_atom_t atom(const QByteArray& name);

    /// A property of 32-bit items (windows, cardinals, atoms), at most `limit` items; nothing when it is
    /// missing or of another format.
    [[nodiscard]] std::optional<QList<std::uint32_t>> property32(xcb_window_t window, const QByteArray& name,
                                                                 std::uint32_t limit = 1024);
    /// A text property's bytes, at most 64 KiB.
    [[nodiscard]] std::optional<QByteArray> propertyText(xcb_window_t window, const QByteArray& name);

    /// One round trip: every request sent before has been processed by the server when it returns.
    void sync();

private:
    void _knowUsualAtoms();
    xcb_atom_t _take(const QByteArray& name, xcb_intern_atom_cookie_t cookie);

    xcb_connection_t* _connection;
    bool _there;
    xcb_window_t _root = XCB_WINDOW_NONE;
    QHash<QByteArray, xcb_atom_t> _atoms;
};

} // namespace tarnwick
