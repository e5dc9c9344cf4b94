// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Connection.h"

#include <QList>
#include <QString>

#include <optional>

namespace tarnwick {

/// A window of an application. A default-made one is none.
struct X11Window
{
    xcb_window_t id = XCB_WINDOW_NONE;
    std::optional<qint64> processIdentifier; ///< whose it is, where that is known

    explicit operator bool() const { return id != XCB_WINDOW_NONE; }
    friend bool operator==(const X11Window&, const X11Window&) = default;
};

/// What windows say of themselves and of each other. A window that is gone says nothing, but
/// the server may still know whose it was.
class X11Windows
{
public:
    /// The connection must outlive this; used on the connection's thread.
    explicit X11Windows(X11Connection& x11) : _x11(x11) {}

    /// Whether a window manager keeps the root's properties.
    [[nodiscard]] bool managed();
    /// What the window manager calls itself; empty without one that tells.
    [[nodiscard]] QString managerName();
    /// The active window, or none, also when it has just gone; nothing when the active one is no
    /// application's window: a dock, a tooltip, a notification, or one that the window manager does not
    /// manage. Without a window manager that tells, the window with the input focus.
    [[nodiscard]] std::optional<X11Window> front();
    /// The managed windows of a process, oldest first.
    [[nodiscard]] QList<xcb_window_t> windowsOf(qint64 processIdentifier);

    [[nodiscard]] std::optional<qint64> processIdentifier(xcb_window_t window);
    /// None when there is none.
    [[nodiscard]] xcb_window_t transientFor(xcb_window_t window);
    /// The window and those that it is transient for, itself first.
    [[nodiscard]] QList<xcb_window_t> withOwners(xcb_window_t window);
    [[nodiscard]] std::optional<QString> title(xcb_window_t window);
    /// The application's desktop-file id, then class and instance, as far as the window tells them.
    [[nodiscard]] QList<QString> applicationNames(xcb_window_t window);
    /// Whether the list property holds the atom.
    [[nodiscard]] bool lists(xcb_window_t window, const QByteArray& property, const QByteArray& atom);

private:
    [[nodiscard]] xcb_window_t _focused();
    class Managing;
    class Standing;
    class Process;
    struct Identity;
    [[nodiscard]] QList<xcb_window_t> _all();

    X11Connection& _x11;
    xcb_window_t _managingBefore = XCB_WINDOW_NONE; ///< what the window manager's window was when last asked
    xcb_window_t _frontBefore = XCB_WINDOW_NONE;
};

} // namespace tarnwick
