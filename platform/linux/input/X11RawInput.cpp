// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11RawInput.h"

#include "platform/linux/x11/X11Connection.h"

#include <xcb/xinput.h>

namespace tarnwick {

namespace {

/// Raw events reach a client in spite of others' grabs when it has announced 2.1 or later; the toolkit
/// announces at least this.
constexpr quint16 AnnouncedMajor = 2;
constexpr quint16 AnnouncedMinor = 2;

bool reportsRawInput(X11Connection& connection)
{
    const XcbOwned<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection.get(), xcb_input_xi_query_version(connection.get(), AnnouncedMajor, AnnouncedMinor),
        nullptr));
    return version &&
           (version->major_version > 2 || (version->major_version == 2 && version->minor_version >= 1));
}

} // namespace

X11RawInput& X11RawInput::shared()
{
    static X11RawInput input;
    return input;
}

X11RawInput::X11RawInput() : _connection(X11Connection::shared())
{
    if (!_connection)
        return;
    const auto* extension = xcb_get_extension_data(_connection.get(), &xcb_input_id);
    if (!extension || !extension->present || !reportsRawInput(_connection))
        return;
    _opcode = extension->major_opcode;
    _select();
    install();
}

void X11RawInput::_watchKeys(int change)
{
    _keyWatches += change;
    if (available())
        _select();
}

void X11RawInput::_select()
{
    struct
    {
        xcb_input_event_mask_t head;
        quint32 mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE};
    if (_keyWatches > 0)
        selection.mask |= XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    // The toolkit's own selection on the root window is for all devices and stays as it is.
    xcb_input_xi_select_events(_connection.get(), _connection.root(), 1, &selection.head);
    xcb_flush(_connection.get());
}

bool X11RawInput::filter(std::uint8_t /*type*/, xcb_generic_event_t& event)
{
    if (!isOfX11Extension(event, _opcode))
        return false;
    const auto& raw = x11EventAs<xcb_input_raw_button_press_event_t>(event);
    switch (raw.event_type) {
    case XCB_INPUT_RAW_BUTTON_PRESS:
        _sincePress.start();
        Q_EMIT buttonPressed(raw.detail);
        break;
    case XCB_INPUT_RAW_BUTTON_RELEASE:
        Q_EMIT buttonReleased(raw.detail);
        break;
    case XCB_INPUT_RAW_KEY_RELEASE:
        Q_EMIT keyReleased(raw.detail);
        break;
    default:
        break;
    }
    return false;
}

} // namespace tarnwick

#include "moc_X11RawInput.cpp"
