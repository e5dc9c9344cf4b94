// SPDX-License-Identifier: MIT
#include "shortcut/SRValidator.h"

#include "foundation/Application.h"
#include "foundation/Event.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "shortcut/KeyStrings.h"
#include "shortcut/Localized.h"
#include "shortcut/ModifierFlags.h"
#include "shortcut/ShownKeys.h"
#include "shortcut/SymbolicHotKeys.h"

#include <QStringList>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 ComparedModifiers = CarbonCommandKey | CarbonOptionKey | CarbonShiftKey | CarbonControlKey;

KeyCombo comboOf(qint64 keyCode, quint64 carbonFlags)
{
    return {SRCarbonToCocoaFlags(carbonFlags), keyCode};
}

SRError takenError(qint64 keyCode, quint64 carbonFlags, const QString& explanation)
{
    const QString title = filledIn(localized("The key combination %@ can't be used!"),
                                   {shownKeyCombo(comboOf(keyCode, carbonFlags))});
    SRError error;
    error.userInfo = {{NSLocalizedDescriptionKey, title},
                      {NSLocalizedRecoverySuggestionErrorKey, explanation},
                      {NSLocalizedRecoveryOptionsErrorKey, QStringList{localized("OK")}}};
    return error;
}

bool sameModifiers(quint64 oneCarbonFlags, quint64 otherCarbonFlags)
{
    return ((oneCarbonFlags ^ otherCarbonFlags) & ComparedModifiers) == 0;
}

bool matches(const MenuItem& item, qint64 keyCode, quint64 carbonFlags)
{
    return !item.keyEquivalent().isEmpty() && item.keyEquivalent().toUpper() == SRStringForKeyCode(keyCode) &&
           sameModifiers(SRCocoaToCarbonFlags(item.keyEquivalentModifierMask()), carbonFlags);
}

} // namespace

bool SRValidator::isKeyCodeAndFlagsTakenError(qint64 keyCode, quint64 carbonFlags,
                                              std::optional<SRError>* error)
{
    if (_isTakenByDelegate(keyCode, carbonFlags, error))
        return true;
    const auto mainMenu = Application::shared().mainMenu();
    return _isTakenBySystem(keyCode, carbonFlags, error) ||
           isKeyCodeAndFlagsTakenInMenuError(keyCode, carbonFlags, mainMenu.get(), error);
}

bool SRValidator::_isTakenByDelegate(qint64 keyCode, quint64 carbonFlags, std::optional<SRError>* error)
{
    std::optional<QString> reason;
    if (!_delegate || !_delegate->shortcutValidatorIsKeyCodeAndFlagsTakenReason(
                          *this, keyCode, SRCarbonToCocoaFlags(carbonFlags), reason))
        return false;
    if (error) {
        const bool told = reason && !reason->isEmpty();
        *error = takenError(keyCode, carbonFlags,
                            filledIn(localized("The key combination \"%@\" can't be used because %@."),
                                     {readableKeyCombo(comboOf(keyCode, carbonFlags)),
                                      told ? *reason : localized("it's already used")}));
    }
    return true;
}

bool SRValidator::_isTakenBySystem(qint64 keyCode, quint64 carbonFlags, std::optional<SRError>* error) const
{
    const auto hotKeys =
        SymbolicHotKeys::shared().copySymbolicHotKeys(keyCode, static_cast<quint32>(carbonFlags));
    if (!hotKeys)
        return true; // strict on purpose: a list that can't be read may hold anything
    for (const SymbolicHotKey& hotKey : *hotKeys) {
        if (!hotKey.enabled)
            continue;
        if (SRStringForKeyCode(keyCode).value_or(QString()).isEmpty())
            return true;
        if (hotKey.code != keyCode || !sameModifiers(static_cast<quint32>(hotKey.modifiers), carbonFlags))
            continue;
        if (error) {
            *error = takenError(
                keyCode, carbonFlags,
                filledIn(localized("The key combination \"%@\" can't be used because it's already used by a "
                                   "system-wide keyboard shortcut. (If you really want to use this key "
                                   "combination, most shortcuts can be changed in the Keyboard & Mouse panel "
                                   "in System Preferences.)"),
                         {readableKeyCombo(comboOf(keyCode, carbonFlags))}));
        }
        return true;
    }
    return false;
}

bool SRValidator::isKeyCodeAndFlagsTakenInMenuError(qint64 keyCode, quint64 carbonFlags, const Menu* menu,
                                                    std::optional<SRError>* error) const
{
    if (!menu)
        return false;
    for (const auto& item : menu->itemArray()) {
        if (isKeyCodeAndFlagsTakenInMenuError(keyCode, carbonFlags, item->submenu().get(), error))
            return true;
        if (!matches(*item, keyCode, carbonFlags))
            continue;
        if (error) {
            *error = takenError(
                keyCode, carbonFlags,
                filledIn(
                    localized("The key combination \"%@\" can't be used because it's already used by the "
                              "menu item \"%@\"."),
                    {readableKeyCombo({item->keyEquivalentModifierMask(), keyCode}), item->title()}));
        }
        return true;
    }
    return false;
}

} // namespace tarnwick
