// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiQuestion.h"
#include "platform/linux/atspi/AtspiToolkit.h"
#include "platform/linux/menus/MenuRow.h"

namespace tarnwick {

enum class MenuLevel { Bar, Menu };

/// What to ask of every child of a menu bar or of a menu: no more than this toolkit makes necessary.
[[nodiscard]] QList<AtspiQuestion> itemQuestions(AtspiToolkit toolkit, MenuLevel level);

/// The visible entries. A first child, where there is one, must be a menu. Hidden items, tear-offs, items
/// without a name, and what is no menu item at all are left out.
[[nodiscard]] QList<MenuRow> normalForm(const QList<AtspiFacts>& items, AtspiToolkit toolkit,
                                        MenuLevel level);

/// Whether something that is no menu stands between a holder and its items: its only child is a menu
/// without a title. Then that child's contents are the items.
[[nodiscard]] std::optional<BusReference> menuInBetween(const QList<AtspiFacts>& items);

} // namespace tarnwick
