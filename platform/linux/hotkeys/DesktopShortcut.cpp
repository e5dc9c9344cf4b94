// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/DesktopShortcut.h"

#include "platform/linux/keys/Accelerator.h"
#include "platform/linux/keys/KeysymNames.h"
#include "platform/linux/keys/PortableShortcut.h"

#include <xkbcommon/xkbcommon.h>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr quint32 Command = 0x100;
constexpr quint32 Shift = 0x200;
constexpr quint32 Option = 0x800;
constexpr quint32 Control = 0x1000;

constexpr quint16 AboveTabKeyCode = 49;

quint32 eventModifiers(bool control, bool shift, bool alt, bool super)
{
    return (control ? Control : 0) | (shift ? Shift : 0) | (alt ? Option : 0) | (super ? Command : 0);
}

} // namespace

std::optional<DesktopShortcut> DesktopShortcut::ofAccelerator(const QString& text)
{
    const auto accelerator = Accelerator::parse(text);
    if (!accelerator)
        return std::nullopt;
    const auto& [control, shift, alt, super, meta, key] = *accelerator;
    DesktopShortcut shortcut;
    shortcut.modifiers = eventModifiers(control, shift, alt || meta, super);
    if (key == u"Above_Tab") {
        shortcut.keyCode = AboveTabKeyCode;
    } else if (key.startsWith(u"0x"_s)) {
        bool number = false;
        shortcut.keyCode = key.mid(2).toUShort(&number, 16);
        if (!number || shortcut.keyCode == 0)
            return std::nullopt;
    } else {
        shortcut.keysym = xkb_keysym_to_lower(keysymNamed(key));
        if (shortcut.keysym == XKB_KEY_NoSymbol)
            return std::nullopt;
    }
    return shortcut;
}

std::optional<DesktopShortcut> DesktopShortcut::ofPortableText(const QString& text)
{
    const auto read = PortableShortcut::parse(text);
    if (!read)
        return std::nullopt;
    return DesktopShortcut{read->keysym, 0,
                           eventModifiers(read->control, read->shift, read->alt, read->super)};
}

} // namespace tarnwick
