// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/WaylandShortcutsInhibitor.h"

#include "platform/linux/wayland/CompositorConnection.h"
#include "platform/linux/wayland/WaylandKeyboard.h"

#include <keyboard-shortcuts-inhibit-unstable-v1-client.h>
#include <utility>

namespace tarnwick {

WaylandShortcutsInhibitor::WaylandShortcutsInhibitor(std::shared_ptr<CompositorConnection> connection,
                                                     std::shared_ptr<const WaylandKeyboard> keyboard)
    : _connection(std::move(connection)), _keyboard(std::move(keyboard)),
      _manager(_connection->bind<zwp_keyboard_shortcuts_inhibit_manager_v1>(
          zwp_keyboard_shortcuts_inhibit_manager_v1_interface, 1))
{
}

WaylandShortcutsInhibitor::~WaylandShortcutsInhibitor()
{
    release();
    if (_manager)
        zwp_keyboard_shortcuts_inhibit_manager_v1_destroy(_manager);
}

bool WaylandShortcutsInhibitor::take()
{
    if (_inhibitor)
        return true; // a second one for the same window would be an error
    if (!_manager || !_keyboard->focus())
        return false;
    _inhibitor = zwp_keyboard_shortcuts_inhibit_manager_v1_inhibit_shortcuts(_manager, _keyboard->focus(),
                                                                             _keyboard->seat());
    _connection->flush();
    return true;
}

void WaylandShortcutsInhibitor::release()
{
    if (!_inhibitor)
        return;
    zwp_keyboard_shortcuts_inhibitor_v1_destroy(std::exchange(_inhibitor, nullptr));
    _connection->flush();
}

} // namespace tarnwick
