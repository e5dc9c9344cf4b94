// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/look/XSettingsDecode.h"
#include "platform/linux/x11/X11EventFilter.h"
#include "platform/linux/x11/X11SelectionOwner.h"

#include <QObject>
#include <xcb/xcb.h>

namespace tarnwick {

/// What the settings program of this display tells; nothing while there is none. GUI thread only.
class X11Settings final : public QObject, public X11EventFilter
{
    Q_OBJECT

public:
    /// Without X11 there are no settings.
    X11Settings();
    ~X11Settings() override;

    [[nodiscard]] const XSettingValues& values() const { return _values; }

Q_SIGNALS:
    /// values() are others now.
    void changed();

protected:
    [[nodiscard]] bool filter(std::uint8_t type, xcb_generic_event_t& event) override;

private:
    void _read();
    [[nodiscard]] XSettingValues _readFromOwner();

    X11SelectionOwner _program{"_XSETTINGS_S0"};
    xcb_atom_t _property = XCB_ATOM_NONE;
    xcb_window_t _owner = XCB_WINDOW_NONE; ///< as it was when it was last read
    XSettingValues _values;
};

} // namespace tarnwick
