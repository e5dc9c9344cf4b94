// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/XcbAnswer.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace tarnwick {

/// A property of a window. The constructor sends the question; one of the functions below takes the answer
/// in, once.
class X11Property
{
public:
    /// At most `words` times four bytes of it.
    X11Property(X11Connection& x11, xcb_window_t window, const QByteArray& name, std::uint32_t words = 1024);

    /// Its 32-bit items (windows, cardinals, atoms); nothing when it is missing or of another format.
    [[nodiscard]] std::optional<QList<std::uint32_t>> items();
    /// The first of them, 0 without one.
    [[nodiscard]] std::uint32_t firstItem();
    /// Its bytes; nothing when it is missing or no text.
    [[nodiscard]] std::optional<QByteArray> text();

private:
    [[nodiscard]] XcbOwned<xcb_get_property_reply_t> _reply(std::uint8_t format);

    XcbAnswer<&xcb_get_property_reply> _answer;
};

} // namespace tarnwick
