// SPDX-License-Identifier: MIT
#include "shortcut/KeyStrings.h"

#include "foundation/Event.h"
#include "shortcut/CurrentLayout.h"
#include "shortcut/Localized.h"
#include "shortcut/ModifierFlags.h"
#include "shortcut/SRKeyCodeTransformer.h"

#include <QLocale>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// The first letter of a word as the user's language writes it.
QString capitalized(const QString& unit)
{
    if (unit.isEmpty())
        return unit;
    const QChar letter = unit.at(0);
    if (letter.toTitleCase() != letter.toUpper())
        return letter.toTitleCase();
    const QLocale locale;
    const QString upper = locale.toUpper(unit);
    return upper.left(1) + locale.toLower(upper.mid(1));
}

} // namespace

std::optional<QString> SRStringForKeyCode(qint64 keyCode)
{
    static const SRKeyCodeTransformer transformer;
    const QVariant string = transformer.transformedValue(static_cast<qint16>(keyCode));
    return string.isValid() ? std::optional(string.toString()) : std::nullopt;
}

QString SRStringForCocoaModifierFlags(quint64 flags)
{
    QString glyphs;
    if (flags & ControlKeyMask)
        glyphs += u'\u2303';
    if (flags & AlternateKeyMask)
        glyphs += u'\u2325';
    if (flags & ShiftKeyMask)
        glyphs += u'\u21E7';
    if (flags & CommandKeyMask)
        glyphs += u'\u2318';
    return glyphs;
}

QString SRStringForCarbonModifierFlags(quint64 flags)
{
    return SRStringForCocoaModifierFlags(SRCarbonToCocoaFlags(flags));
}

QString SRStringForCocoaModifierFlagsAndKeyCode(quint64 flags, qint64 keyCode)
{
    return filledIn(u"%@%@"_s, {SRStringForCocoaModifierFlags(flags), SRStringForKeyCode(keyCode)});
}

QString SRStringForCarbonModifierFlagsAndKeyCode(quint64 flags, qint64 keyCode)
{
    return SRStringForCocoaModifierFlagsAndKeyCode(SRCarbonToCocoaFlags(flags), keyCode);
}

QString SRReadableStringForCocoaModifierFlagsAndKeyCode(quint64 flags, qint64 keyCode)
{
    const auto word = [flags](quint64 mask, const char* english) {
        return flags & mask ? localized(english) : QString(u""_s);
    };
    return filledIn(u"%@%@%@%@%@"_s, {word(CommandKeyMask, "Command + "), word(AlternateKeyMask, "Option + "),
                                      word(ControlKeyMask, "Control + "), word(ShiftKeyMask, "Shift + "),
                                      SRStringForKeyCode(keyCode)});
}

QString SRReadableStringForCarbonModifierFlagsAndKeyCode(quint64 flags, qint64 keyCode)
{
    return SRReadableStringForCocoaModifierFlagsAndKeyCode(SRCarbonToCocoaFlags(flags), keyCode);
}

std::optional<QString> SRCharacterForKeyCodeAndCocoaFlags(qint64 keyCode, quint64 flags)
{
    // The Carbon masks themselves, not shifted to the byte that the layout would expect.
    quint32 modifierKeyState = 0;
    if (flags & AlternateKeyMask)
        modifierKeyState |= CarbonOptionKey;
    if (flags & ShiftKeyMask)
        modifierKeyState |= CarbonShiftKey;
    const auto unit = unitForKeyOnCurrentLayout(static_cast<quint16>(keyCode), modifierKeyState);
    return unit ? capitalized(*unit) : SRStringForKeyCode(keyCode);
}

std::optional<QString> SRCharacterForKeyCodeAndCarbonFlags(qint64 keyCode, quint64 flags)
{
    return SRCharacterForKeyCodeAndCocoaFlags(keyCode, SRCarbonToCocoaFlags(flags));
}

} // namespace tarnwick
