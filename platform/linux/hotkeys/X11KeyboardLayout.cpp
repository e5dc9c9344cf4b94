// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11KeyboardLayout.h"

#include "platform/linux/input/X11KeyboardMap.h"

namespace tarnwick {

X11KeyboardLayout::X11KeyboardLayout()
{
    connect(&X11KeyboardMap::shared(), &X11KeyboardMap::changed, this, &X11KeyboardLayout::notifyLater);
    connect(&X11KeyboardMap::shared(), &X11KeyboardMap::groupChanged, this, &X11KeyboardLayout::notifyLater);
}

std::shared_ptr<const XkbKeymap> X11KeyboardLayout::keymap() const
{
    return X11KeyboardMap::shared().keymap();
}

} // namespace tarnwick

#include "moc_X11KeyboardLayout.cpp"
