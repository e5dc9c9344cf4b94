// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/look/XSettingsDecode.h"

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <xcb/xcb.h>

namespace tarnwick {

/// What the settings program of this display tells; nothing while there is none. GUI thread only.
class X11Settings final : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// Without X11 there are no settings.
    X11Settings();
    ~X11Settings() override;

    [[nodiscard]] const XSettingValues& values() const { return _values; }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

Q_SIGNALS:
    /// values() are others now.
    void changed();

private:
    void _read();
    [[nodiscard]] XSettingValues _readFromOwner();

    xcb_atom_t _selection = XCB_ATOM_NONE;
    xcb_atom_t _property = XCB_ATOM_NONE;
    std::uint8_t _selectionEvent = 0; ///< 0 without the extension that tells
    xcb_window_t _owner = XCB_WINDOW_NONE;
    XSettingValues _values;
};

} // namespace tarnwick
