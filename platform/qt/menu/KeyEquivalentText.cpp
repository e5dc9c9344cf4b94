// SPDX-License-Identifier: MIT
#include "platform/qt/menu/KeyEquivalentText.h"

#include "foundation/Event.h"
#include "platform/qt/menu/KeyCharacters.h"

#include <QKeySequence>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

QString keyText(const QString& keyEquivalent)
{
    if (keyEquivalent.size() != 1)
        return keyEquivalent;
    const char16_t character = keyEquivalent.front().unicode();
    if (const auto key = keyOfCharacter(character))
        return nameOfKey(*key);
    if (standsForKey(character))
        return {};
    const QString upper = keyEquivalent.toUpper();
    return upper.size() == 1 ? upper : keyEquivalent;
}

/// "Ctrl+" in the user's language.
QString prefix(Qt::KeyboardModifier modifier)
{
    QString text = QKeySequence(QKeyCombination(modifier, Qt::Key_A)).toString(QKeySequence::NativeText);
    text.chop(1);
    return text;
}

} // namespace

QString nameOfKey(Qt::Key key)
{
    return QKeySequence(key).toString(QKeySequence::NativeText);
}

QString namesOfModifiers(bool super, bool control, bool alt, bool shift)
{
    QString text;
    if (super)
        text += u"Super+"_s;
    if (control)
        text += prefix(Qt::ControlModifier);
    if (alt)
        text += prefix(Qt::AltModifier);
    if (shift)
        text += prefix(Qt::ShiftModifier);
    return text;
}

QString keyEquivalentText(const QString& keyEquivalent, quint64 modifierMask)
{
    const QString key = keyText(keyEquivalent);
    if (key.isEmpty())
        return {};
    // A capital letter is typed with Shift.
    const bool capital = keyEquivalent.size() == 1 && keyEquivalent.front().isUpper();
    return namesOfModifiers((modifierMask & ControlKeyMask) != 0, (modifierMask & CommandKeyMask) != 0,
                            (modifierMask & AlternateKeyMask) != 0,
                            (modifierMask & ShiftKeyMask) != 0 || capital) +
           key;
}

} // namespace tarnwick
