// SPDX-License-Identifier: MIT
#include "menu/AlternateFolding.h"

#include "foundation/Event.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"

namespace tarnwick {

namespace {

constexpr quint64 ComparedModifiers = ShiftKeyMask | ControlKeyMask | AlternateKeyMask;

bool foldsInto(const MenuItem& item, const MenuItem& before)
{
    return item.isAlternate() && !item.isSeparatorItem() && !before.isSeparatorItem() &&
           item.keyEquivalent() == before.keyEquivalent() &&
           item.keyEquivalentModifierMask() != before.keyEquivalentModifierMask();
}

} // namespace

QList<std::shared_ptr<MenuItem>> itemsShownWithModifiers(const Menu& menu, quint64 heldModifiers)
{
    const quint64 held = heldModifiers & ComparedModifiers;
    QList<std::shared_ptr<MenuItem>> shown;
    shown.reserve(menu.numberOfItems());
    const MenuItem* before = nullptr;
    bool alternateShown = false;
    for (const auto& item : menu.itemArray()) {
        if (!before || !foldsInto(*item, *before)) {
            shown.append(item);
            alternateShown = false;
        } else if (!alternateShown && (item->keyEquivalentModifierMask() & ComparedModifiers) == held) {
            shown.last() = item;
            alternateShown = true;
        }
        before = item.get();
    }
    return shown;
}

} // namespace tarnwick
