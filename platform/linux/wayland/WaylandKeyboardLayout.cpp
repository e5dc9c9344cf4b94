// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/WaylandKeyboardLayout.h"

#include "platform/linux/wayland/WaylandKeyboard.h"

#include <utility>

namespace tarnwick {

WaylandKeyboardLayout::WaylandKeyboardLayout(std::shared_ptr<const WaylandKeyboard> keyboard)
    : _keyboard(std::move(keyboard))
{
    connect(_keyboard.get(), &WaylandKeyboard::changed, this, &WaylandKeyboardLayout::notifyLater);
}

std::shared_ptr<const XkbKeymap> WaylandKeyboardLayout::keymap() const
{
    return _keyboard->keymap();
}

} // namespace tarnwick

#include "moc_WaylandKeyboardLayout.cpp"
