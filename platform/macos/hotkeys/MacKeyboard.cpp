// SPDX-License-Identifier: MIT
#include "platform/macos/hotkeys/MacKeyboard.h"

#include "shortcut/KeyboardLayout.h"

#include <QKeyEvent>

namespace tarnwick {
namespace {

constexpr quint16 KeyActionDisplay = 3;
constexpr quint32 NoDeadKeys = 1;
// As the translation itself counts: the event's modifiers, shifted right by eight.
constexpr quint32 ShiftHeld = 0x200 >> 8;
constexpr quint32 HighestKeyCode = 127;

std::optional<quint16> keyCodeOf(const QKeyEvent& event)
{
    const quint32 code = event.nativeVirtualKey();
    return code <= HighestKeyCode ? std::optional(static_cast<quint16>(code)) : std::nullopt;
}

QString letterOf(const KeyboardLayout& layout, quint16 keyCode, bool shift)
{
    const auto table = layout.copyCurrentKeyboardInputSource();
    if (!table)
        return {};
    quint32 deadKeys = 0;
    const auto typed = table->keyTranslate(keyCode, KeyActionDisplay, shift ? ShiftHeld : 0,
                                           layout.keyboardType(), NoDeadKeys, deadKeys);
    return typed.value_or(QString());
}

} // namespace

QtEventConverter makeMacEventConverter(const KeyboardLayout& layout)
{
    return QtEventConverter({
        keyCodeOf,
        [&layout](quint16 keyCode, bool shift) { return letterOf(layout, keyCode, shift); },
    });
}

} // namespace tarnwick
