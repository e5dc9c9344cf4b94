// SPDX-License-Identifier: MIT
#include "platform/qt/menu/KeyEquivalentText.h"

#include "foundation/Event.h"

#include <QKeySequence>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

struct NamedKey
{
    char16_t character;
    Qt::Key key;
};

/// Characters of the keys that type none, or a control character.
constexpr NamedKey NamedKeys[] = {
    {0x0003, Qt::Key_Enter},      {0x0008, Qt::Key_Backspace}, {0x0009, Qt::Key_Tab},
    {0x000A, Qt::Key_Return},     {0x000D, Qt::Key_Return},    {0x0019, Qt::Key_Backtab},
    {0x001B, Qt::Key_Escape},     {0x0020, Qt::Key_Space},     {0x007F, Qt::Key_Backspace},
    {0x23CF, Qt::Key_Eject},      {0xF700, Qt::Key_Up},        {0xF701, Qt::Key_Down},
    {0xF702, Qt::Key_Left},       {0xF703, Qt::Key_Right},     {0xF727, Qt::Key_Insert},
    {0xF728, Qt::Key_Delete},     {0xF729, Qt::Key_Home},      {0xF72B, Qt::Key_End},
    {0xF72C, Qt::Key_PageUp},     {0xF72D, Qt::Key_PageDown},  {0xF72E, Qt::Key_Print},
    {0xF72F, Qt::Key_ScrollLock}, {0xF730, Qt::Key_Pause},     {0xF731, Qt::Key_SysReq},
    {0xF735, Qt::Key_Menu},       {0xF738, Qt::Key_Print},     {0xF739, Qt::Key_Clear},
    {0xF746, Qt::Key_Help},
};

constexpr char16_t FirstFunctionKey = 0xF704; // F1
constexpr char16_t LastFunctionKey = 0xF726;  // F35
constexpr char16_t FirstKeyCharacter = 0xF700;
constexpr char16_t LastKeyCharacter = 0xF8FE;

QString nameOfKey(Qt::Key key)
{
    return QKeySequence(key).toString(QKeySequence::NativeText);
}

QString keyText(const QString& keyEquivalent)
{
    if (keyEquivalent.size() != 1)
        return keyEquivalent;
    const char16_t character = keyEquivalent.front().unicode();
    const auto* const named = std::find_if(std::begin(NamedKeys), std::end(NamedKeys),
                                           [&](const NamedKey& key) { return key.character == character; });
    if (named != std::end(NamedKeys))
        return nameOfKey(named->key);
    if (character >= FirstFunctionKey && character <= LastFunctionKey)
        return nameOfKey(static_cast<Qt::Key>(Qt::Key_F1 + (character - FirstFunctionKey)));
    if (character < 0x20 || (character >= FirstKeyCharacter && character <= LastKeyCharacter))
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

QString keyEquivalentText(const QString& keyEquivalent, quint64 modifierMask)
{
    const QString key = keyText(keyEquivalent);
    if (key.isEmpty())
        return {};
    // A capital letter is typed with Shift.
    const bool capital = keyEquivalent.size() == 1 && keyEquivalent.front().isUpper();
    QString text;
    if (modifierMask & ControlKeyMask)
        text += u"Super+"_s;
    if (modifierMask & CommandKeyMask)
        text += prefix(Qt::ControlModifier);
    if (modifierMask & AlternateKeyMask)
        text += prefix(Qt::AltModifier);
    if ((modifierMask & ShiftKeyMask) || capital)
        text += prefix(Qt::ShiftModifier);
    return text + key;
}

} // namespace tarnwick
