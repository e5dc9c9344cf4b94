// SPDX-License-Identifier: MIT
#include "shortcut/SpokenKeys.h"

#include "foundation/Event.h"
#include "shortcut/KeyStrings.h"
#include "shortcut/Localized.h"

#include <QStringList>

namespace tarnwick {

namespace {

struct SpokenKey
{
    qint64 code;
    const char* english;
};

constexpr SpokenKey SpokenKeys[] = {
    {51, QT_TRANSLATE_NOOP("ShortcutRecorder", "Delete")},
    {117, QT_TRANSLATE_NOOP("ShortcutRecorder", "Forward Delete")},
    {71, QT_TRANSLATE_NOOP("ShortcutRecorder", "Clear")},
    {123, QT_TRANSLATE_NOOP("ShortcutRecorder", "Left Arrow")},
    {124, QT_TRANSLATE_NOOP("ShortcutRecorder", "Right Arrow")},
    {126, QT_TRANSLATE_NOOP("ShortcutRecorder", "Up Arrow")},
    {125, QT_TRANSLATE_NOOP("ShortcutRecorder", "Down Arrow")},
    {119, QT_TRANSLATE_NOOP("ShortcutRecorder", "End")},
    {115, QT_TRANSLATE_NOOP("ShortcutRecorder", "Home")},
    {53, QT_TRANSLATE_NOOP("ShortcutRecorder", "Escape")},
    {121, QT_TRANSLATE_NOOP("ShortcutRecorder", "Page Down")},
    {116, QT_TRANSLATE_NOOP("ShortcutRecorder", "Page Up")},
    {36, QT_TRANSLATE_NOOP("ShortcutRecorder", "Return")},
    {76, QT_TRANSLATE_NOOP("ShortcutRecorder", "Enter")},
    {48, QT_TRANSLATE_NOOP("ShortcutRecorder", "Tab")},
    {114, QT_TRANSLATE_NOOP("ShortcutRecorder", "Help")},
};

QString spokenKey(qint64 code)
{
    for (const SpokenKey& key : SpokenKeys) {
        if (key.code == code)
            return localized(key.english);
    }
    return SRStringForKeyCode(code).value_or(QString());
}

} // namespace

QString spokenKeyCombo(const KeyCombo& keyCombo)
{
    QStringList words;
    if (keyCombo.flags & CommandKeyMask)
        words << localized("Command");
    if (keyCombo.flags & AlternateKeyMask)
        words << localized("Option");
    if (keyCombo.flags & ControlKeyMask)
        words << localized("Control");
    if (keyCombo.flags & ShiftKeyMask)
        words << localized("Shift");
    words << spokenKey(keyCombo.code);
    return words.join(u' ');
}

} // namespace tarnwick
