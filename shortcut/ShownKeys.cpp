// SPDX-License-Identifier: MIT
#include "shortcut/ShownKeys.h"

#include "foundation/Event.h"
#include "shortcut/KeyNames.h"
#include "shortcut/KeyStrings.h"
#include "shortcut/Localized.h"
#include "shortcut/RecorderSettings.h"

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

/// In the desktop's words; nothing where it has none.
std::optional<QString> namedKeyCombo(const KeyCombo& keyCombo)
{
    const KeyNames* names = KeyNames::sharedOrNull();
    if (!names)
        return std::nullopt;
    const auto key = names->key(keyCombo.code);
    return names->modifiers(keyCombo.flags) +
           (key ? *key : SRStringForKeyCode(keyCombo.code).value_or(QString()));
}

QString wordsOfKeyCombo(const KeyCombo& keyCombo)
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

} // namespace

QString shownModifiers(quint64 flags)
{
    const KeyNames* names = KeyNames::sharedOrNull();
    return names ? names->modifiers(flags) : SRStringForCocoaModifierFlags(flags);
}

QString shownKeyCombo(const KeyCombo& keyCombo)
{
    const auto named = namedKeyCombo(keyCombo);
    return named ? *named : SRStringForCocoaModifierFlagsAndKeyCode(keyCombo.flags, keyCombo.code);
}

QString readableKeyCombo(const KeyCombo& keyCombo)
{
    const auto named = namedKeyCombo(keyCombo);
    return named ? *named : SRReadableStringForCocoaModifierFlagsAndKeyCode(keyCombo.flags, keyCombo.code);
}

QString spokenKeyCombo(const KeyCombo& keyCombo)
{
    const auto named = namedKeyCombo(keyCombo);
    return named ? *named : wordsOfKeyCombo(keyCombo);
}

QStringList longestKeyCombos()
{
    constexpr qint64 LastKeyCode = 127;
    QStringList texts;
    for (qint64 code = 0; code <= LastKeyCode; ++code) {
        if (!SRStringForKeyCode(code).value_or(QString()).isEmpty())
            texts << shownKeyCombo({RecorderSettings::AllModifiers, code});
    }
    return texts;
}

} // namespace tarnwick
