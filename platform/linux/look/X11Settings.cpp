// SPDX-License-Identifier: MIT
#include "platform/linux/look/X11Settings.h"

#include "platform/linux/x11/X11Connection.h"

#include <utility>

namespace tarnwick {

X11Settings::X11Settings()
{
    auto& x11 = X11Connection::shared();
    if (!x11)
        return;
    _property = x11.atom("_XSETTINGS_SETTINGS");
    connect(&_program, &X11SelectionOwner::changed, this, &X11Settings::_read);
    install();
    _values = _readFromOwner();
}

X11Settings::~X11Settings() = default;

bool X11Settings::filter(std::uint8_t type, xcb_generic_event_t& event)
{
    if (type != XCB_PROPERTY_NOTIFY)
        return false;
    const auto& change = x11EventAs<xcb_property_notify_event_t>(event);
    if (change.window == _owner && change.atom == _property)
        QMetaObject::invokeMethod(this, &X11Settings::_read, Qt::QueuedConnection);
    return false;
}

void X11Settings::_read()
{
    const XSettingValues before = std::exchange(_values, _readFromOwner());
    if (_values != before)
        Q_EMIT changed();
}

XSettingValues X11Settings::_readFromOwner()
{
    auto& x11 = X11Connection::shared();
    _owner = _program.window();
    if (_owner == XCB_WINDOW_NONE)
        return {};
    // The toolkit asks for the same events of this window on the same connection.
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(x11.get(), _owner, XCB_CW_EVENT_MASK, &events);
    const auto contents = x11.propertyText(_owner, "_XSETTINGS_SETTINGS");
    return contents ? decodeXSettings(*contents).value_or(XSettingValues()) : XSettingValues();
}

} // namespace tarnwick

#include "moc_X11Settings.cpp"
