// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11EventFilter.h"

#include <QByteArray>
#include <QObject>

namespace tarnwick {

/// The owner of a selection, by which a program says that it does something for the whole display. GUI thread
/// only.
class X11SelectionOwner final : public QObject, public X11EventFilter
{
    Q_OBJECT

public:
    /// Without an X server nobody ever owns it.
    explicit X11SelectionOwner(const QByteArray& selection);

    /// The owner's window now: a round trip; none without an owner.
    [[nodiscard]] xcb_window_t window() const;

Q_SIGNALS:
    /// Another program owns the selection, or none does any more. From the event loop, never where the server
    /// cannot tell.
    void changed();

protected:
    [[nodiscard]] bool filter(std::uint8_t type, xcb_generic_event_t& event) override;

private:
    void _watch();

    xcb_atom_t _selection = XCB_ATOM_NONE;
    std::uint8_t _changeEvent = 0; ///< 0 where the server cannot tell
};

} // namespace tarnwick
