// SPDX-License-Identifier: MIT
#include "platform/linux/look/X11Settings.h"

#include "platform/linux/x11/X11Connection.h"

#include <QCoreApplication>
#include <xcb/xfixes.h>

#include <utility>

namespace tarnwick {

X11Settings::X11Settings()
{
    auto& x11 = X11Connection::shared();
    if (!x11)
        return;
    _selection = x11.atom("_XSETTINGS_S0");
    _property = x11.atom("_XSETTINGS_SETTINGS");
    _selectionEvent = x11.watchSelectionOwner(_selection);
    QCoreApplication::instance()->installNativeEventFilter(this);
    _values = _readFromOwner();
}

X11Settings::~X11Settings() = default;

bool X11Settings::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const std::uint8_t type = event->response_type & 0x7F;
    bool ours = false;
    if (type == XCB_PROPERTY_NOTIFY) {
        const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event);
        ours = change->window == _owner && change->atom == _property;
    } else if (_selectionEvent != 0 && type == _selectionEvent) {
        ours = reinterpret_cast<const xcb_xfixes_selection_notify_event_t*>(event)->selection == _selection;
    }
    if (ours)
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
    const XcbOwned<xcb_get_selection_owner_reply_t> answer(
        xcb_get_selection_owner_reply(x11.get(), xcb_get_selection_owner(x11.get(), _selection), nullptr));
    _owner = answer ? answer->owner : xcb_window_t(XCB_WINDOW_NONE);
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
