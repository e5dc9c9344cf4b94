// SPDX-License-Identifier: MIT
#include "platform/linux/keys/DesktopKeyNames.h"

#include "foundation/Event.h"
#include "platform/qt/menu/KeyEquivalentText.h"

#include <algorithm>
#include <iterator>

namespace tarnwick {

namespace {

struct NamedKey
{
    qint64 code;
    Qt::Key key;
};

/// Those that are shown as glyphs where the keys have their glyphs on them.
constexpr NamedKey NamedKeys[] = {
    {36, Qt::Key_Return},    {48, Qt::Key_Tab},     {49, Qt::Key_Space},   {51, Qt::Key_Backspace},
    {53, Qt::Key_Escape},    {71, Qt::Key_NumLock}, {76, Qt::Key_Enter},   {114, Qt::Key_Insert},
    {115, Qt::Key_Home},     {116, Qt::Key_PageUp}, {117, Qt::Key_Delete}, {119, Qt::Key_End},
    {121, Qt::Key_PageDown}, {123, Qt::Key_Left},   {124, Qt::Key_Right},  {125, Qt::Key_Down},
    {126, Qt::Key_Up},
};

} // namespace

QString DesktopKeyNames::modifiers(quint64 cocoaFlags) const
{
    return namesOfModifiers((cocoaFlags & CommandKeyMask) != 0, (cocoaFlags & ControlKeyMask) != 0,
                            (cocoaFlags & AlternateKeyMask) != 0, (cocoaFlags & ShiftKeyMask) != 0);
}

std::optional<QString> DesktopKeyNames::key(qint64 keyCode) const
{
    const auto* const named = std::ranges::find(NamedKeys, keyCode, &NamedKey::code);
    return named == std::end(NamedKeys) ? std::nullopt : std::optional(nameOfKey(named->key));
}

} // namespace tarnwick
