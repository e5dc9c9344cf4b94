// SPDX-License-Identifier: MIT
#include "platform/qt/menu/HeldKeys.h"

namespace tarnwick {

void HeldKeys::released(quint8 keyCode, quint32 time)
{
    if (const auto key = _keys.find(keyCode); key != _keys.end())
        *key = time;
}

bool HeldKeys::pressedAnew(quint8 keyCode, quint32 time)
{
    const auto key = _keys.find(keyCode);
    if (key == _keys.end())
        return true;
    // Without a release that we could see the press is that of a repeat, whose release went elsewhere.
    if (!key->has_value() || **key == time)
        return false;
    _keys.erase(key);
    return true;
}

} // namespace tarnwick
