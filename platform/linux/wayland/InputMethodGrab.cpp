// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/InputMethodGrab.h"

#include "platform/linux/wayland/CompositorConnection.h"
#include "platform/linux/wayland/KeyFeed.h"

#include <input-method-unstable-v2-client.h>
#include <unistd.h>
#include <utility>
#include <wayland-client.h>

namespace tarnwick {

InputMethodGrab::InputMethodGrab(CompositorConnection& connection, KeyFeed& feed)
    : _connection(connection), _feed(feed)
{
    if (connection.seat())
        _manager = connection.bind<zwp_input_method_manager_v2>(zwp_input_method_manager_v2_interface, 1);
}

InputMethodGrab::~InputMethodGrab()
{
    end();
    if (_manager)
        zwp_input_method_manager_v2_destroy(_manager);
}

void InputMethodGrab::begin()
{
    end();
    _undecided = true;
    // What is typed into the application is none of its business: all but the refusal is passed over.
    static constexpr zwp_input_method_v2_listener MethodListener{
        [](void*, zwp_input_method_v2*) {},
        [](void*, zwp_input_method_v2*) {},
        [](void*, zwp_input_method_v2*, const char*, quint32, quint32) {},
        [](void*, zwp_input_method_v2*, quint32) {},
        [](void*, zwp_input_method_v2*, quint32, quint32) {},
        [](void*, zwp_input_method_v2*) {},
        [](void* self, zwp_input_method_v2*) { static_cast<InputMethodGrab*>(self)->_decide(false); }};
    _method = zwp_input_method_manager_v2_get_input_method(_manager, _connection.seat());
    zwp_input_method_v2_add_listener(_method, &MethodListener, this);
    // A refusal comes at once. The compositor knows nothing then of a grab that is asked for all the same,
    // and to give that back would be an error, which ends the connection.
    _connection.roundTrip();
    if (_undecided)
        _grabKeyboard();
}

void InputMethodGrab::_grabKeyboard()
{
    static constexpr zwp_input_method_keyboard_grab_v2_listener GrabListener{
        [](void* data, zwp_input_method_keyboard_grab_v2*, quint32 format, int32_t file, quint32 size) {
            auto* self = static_cast<InputMethodGrab*>(data);
            if (format != WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1) {
                ::close(file);
                self->_decide(false);
                return;
            }
            self->_feed.setKeymap(file, size);
            self->_decide(true);
        },
        [](void* data, zwp_input_method_keyboard_grab_v2*, quint32, quint32 time, quint32 key,
           quint32 state) {
            static_cast<InputMethodGrab*>(data)->_feed.key(key, state == WL_KEYBOARD_KEY_STATE_PRESSED, time);
        },
        [](void* data, zwp_input_method_keyboard_grab_v2*, quint32, quint32, quint32 latched, quint32 locked,
           quint32 group) { static_cast<InputMethodGrab*>(data)->_feed.setLocked(latched | locked, group); },
        [](void* data, zwp_input_method_keyboard_grab_v2*, int32_t rate, int32_t delay) {
            static_cast<InputMethodGrab*>(data)->_feed.setRepeat(rate, std::chrono::milliseconds(delay));
        }};
    _grab = zwp_input_method_v2_grab_keyboard(_method);
    zwp_input_method_keyboard_grab_v2_add_listener(_grab, &GrabListener, this);
    _connection.flush();
}

void InputMethodGrab::end()
{
    _undecided = false;
    _feed.reset();
    if (_grab)
        zwp_input_method_keyboard_grab_v2_release(std::exchange(_grab, nullptr));
    if (_method)
        zwp_input_method_v2_destroy(std::exchange(_method, nullptr));
    _connection.flush();
}

void InputMethodGrab::_decide(bool granted)
{
    if (std::exchange(_undecided, false))
        Q_EMIT decided(granted);
    else if (!granted)
        Q_EMIT lost();
}

} // namespace tarnwick

#include "moc_InputMethodGrab.cpp"
