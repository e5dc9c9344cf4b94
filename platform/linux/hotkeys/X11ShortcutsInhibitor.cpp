// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11ShortcutsInhibitor.h"

#include "platform/linux/input/X11Focus.h"
#include "platform/linux/x11/X11Connection.h"

namespace tarnwick {

X11ShortcutsInhibitor::X11ShortcutsInhibitor() : _keyboard(X11Connection::shared()) {}

bool X11ShortcutsInhibitor::take()
{
    X11Connection& x11 = X11Connection::shared();
    // The focus may have gone before recording begins: the field shows a transition first.
    return x11 && isToolkitWindow(focusWindow(x11)) && _keyboard.take(1);
}

void X11ShortcutsInhibitor::release()
{
    _keyboard.release();
}

} // namespace tarnwick
