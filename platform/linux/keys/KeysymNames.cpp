// SPDX-License-Identifier: MIT
#include "platform/linux/keys/KeysymNames.h"

namespace tarnwick {

namespace {

/// Of 29 bits, as the X protocol has them. A name like "0xffffffff" is a number of more.
constexpr xkb_keysym_t LargestKeysym = 0x1fffffff;

} // namespace

xkb_keysym_t keysymNamed(const QString& name)
{
    if (name.contains(QChar(u'\0'))) // the library would read the name up to there
        return XKB_KEY_NoSymbol;
    const QByteArray bytes = name.toUtf8();
    xkb_keysym_t keysym = xkb_keysym_from_name(bytes.constData(), XKB_KEYSYM_NO_FLAGS);
    if (keysym == XKB_KEY_NoSymbol)
        keysym = xkb_keysym_from_name(bytes.constData(), XKB_KEYSYM_CASE_INSENSITIVE);
    return keysym <= LargestKeysym ? keysym : XKB_KEY_NoSymbol;
}

} // namespace tarnwick
