// SPDX-License-Identifier: MIT
#include "shortcut/KeyboardLayout.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

KeyboardLayout& KeyboardLayout::shared()
{
    return SharedPort<KeyboardLayout>::get();
}

void KeyboardLayout::setShared(KeyboardLayout* layout)
{
    SharedPort<KeyboardLayout>::set(layout);
}

} // namespace tarnwick
