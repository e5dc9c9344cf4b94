// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/WaylandKeyboard.h"

#include "platform/linux/wayland/CompositorConnection.h"
#include "platform/linux/wayland/CompositorKeymap.h"

#include <QGuiApplication>

#include <unistd.h>
#include <utility>
#include <wayland-client.h>

namespace tarnwick {

namespace {

/// The last one whose events are all named here.
constexpr quint32 SeatVersion = 4;

WaylandKeyboard& of(void* self)
{
    return *static_cast<WaylandKeyboard*>(self);
}

} // namespace

WaylandKeyboard::WaylandKeyboard(std::shared_ptr<CompositorConnection> connection)
    : _connection(std::move(connection)), _seat(_connection->bind<wl_seat>(wl_seat_interface, SeatVersion))
{
    static constexpr wl_seat_listener Listener{
        [](void* self, wl_seat* /*seat*/, quint32 capabilities) {
            of(self)._setPresent((capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0);
        },
        [](void* /*self*/, wl_seat* /*seat*/, const char* /*name*/) {}};
    if (!_seat)
        return;
    wl_seat_add_listener(_seat, &Listener, this);
    // A window that is gone has the keyboard no more, though the compositor tells it later or not at all.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (!window)
            _setFocus(nullptr);
    });
    _connection->flush();
}

WaylandKeyboard::~WaylandKeyboard()
{
    _setPresent(false);
    if (_seat)
        wl_seat_destroy(_seat);
}

void WaylandKeyboard::_setPresent(bool present)
{
    if (present == (_keyboard != nullptr))
        return;
    if (!present) {
        // The map stays what it was: a keyboard that comes back is most often the same one.
        wl_keyboard_release(std::exchange(_keyboard, nullptr));
        _setFocus(nullptr);
        return;
    }
    static constexpr wl_keyboard_listener Listener{
        [](void* self, wl_keyboard* /*keyboard*/, quint32 format, int file, quint32 size) {
            of(self)._setKeymap(format, file, size);
        },
        [](void* self, wl_keyboard* /*keyboard*/, quint32 /*serial*/, wl_surface* surface,
           wl_array* /*keys*/) { of(self)._setFocus(surface); },
        [](void* self, wl_keyboard* /*keyboard*/, quint32 /*serial*/, wl_surface* /*surface*/) {
            of(self)._setFocus(nullptr);
        },
        [](void* /*self*/, wl_keyboard* /*keyboard*/, quint32 /*serial*/, quint32 /*time*/, quint32 /*key*/,
           quint32 /*state*/) {},
        [](void* self, wl_keyboard* /*keyboard*/, quint32 /*serial*/, quint32 /*depressed*/,
           quint32 /*latched*/, quint32 /*locked*/, quint32 group) { of(self)._setGroup(group); },
        [](void* /*self*/, wl_keyboard* /*keyboard*/, int /*rate*/, int /*delay*/) {}};
    _keyboard = wl_seat_get_keyboard(_seat);
    wl_keyboard_add_listener(_keyboard, &Listener, this);
    // Whoever reads the events sends it before it waits for more.
}

void WaylandKeyboard::_setKeymap(quint32 format, int file, std::size_t size)
{
    if (format != WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1) {
        close(file);
        return;
    }
    auto keymap = XkbKeymap::adopt(compileKeymap(file, size).release(), _group);
    if (!keymap)
        return;
    _keymap = std::move(keymap);
    Q_EMIT changed();
}

void WaylandKeyboard::_setGroup(xkb_layout_index_t group)
{
    if (std::exchange(_group, group) == group || !_keymap)
        return;
    // A look-up that is going on keeps the map that it began with.
    _keymap = _keymap->withGroup(group);
    Q_EMIT changed();
}

void WaylandKeyboard::_setFocus(wl_surface* surface)
{
    if (std::exchange(_focus, surface) != surface)
        Q_EMIT focusChanged();
}

} // namespace tarnwick

#include "moc_WaylandKeyboard.cpp"
