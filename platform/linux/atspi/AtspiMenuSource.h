// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiBus.h"
#include "platform/linux/atspi/AtspiNormalForm.h"
#include "platform/linux/atspi/AtspiToolkits.h"
#include "platform/linux/atspi/ChildrenJustTold.h"
#include "platform/linux/atspi/RememberedKeyBindings.h"
#include "platform/linux/menus/MenuSource.h"
#include "platform/linux/menus/ReadingBudget.h"

#include <QObject>

namespace tarnwick {

/// Menus in the accessibility tree.
class AtspiMenuSource final : public MenuSource
{
public:
    /// All must outlive this.
    AtspiMenuSource(AtspiBus& bus, ReadingBudget& budget, AtspiToolkits& toolkits,
                    ChildrenJustTold& childrenJustTold);

    std::optional<QList<MenuRow>> readBar(const BusReference& bar) override;
    std::optional<QList<MenuRow>> readMenu(const BusReference& contents) override;
    bool press(const MenuRow& row) override;

private:
    std::optional<QList<MenuRow>> _read(const BusReference& menu, MenuLevel level);
    std::optional<QList<AtspiFacts>> _childrenOf(const BusReference& menu, AtspiToolkit toolkit,
                                                 MenuLevel level, Deadline deadline);
    /// Fills in the keys of the `remembered` items, asks those of them that are other items by now, and
    /// remembers what these and the `asked` ones have told.
    void _completeKeyBindings(QList<AtspiFacts*> asked, const QList<AtspiFacts*>& remembered,
                              Deadline deadline);
    /// A child that is no menu is a part of the item itself, not its submenu.
    void _dropOtherChildren(QList<AtspiFacts>& items, Deadline deadline);

    AtspiBus& _bus;
    ReadingBudget& _budget;
    AtspiToolkits& _toolkits;
    ChildrenJustTold& _childrenJustTold;
    RememberedKeyBindings _keyBindings;
    QObject _presses; ///< owns those on their way
};

} // namespace tarnwick
