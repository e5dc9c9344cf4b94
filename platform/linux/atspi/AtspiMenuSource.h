// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiBus.h"
#include "platform/linux/atspi/AtspiNormalForm.h"
#include "platform/linux/atspi/AtspiToolkits.h"
#include "platform/linux/atspi/ChildrenJustTold.h"
#include "platform/linux/atspi/RememberedKeyBindings.h"
#include "platform/linux/menus/MenuSource.h"
#include "platform/linux/menus/ReadingBudget.h"

#include <QHash>
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
    [[nodiscard]] bool isDisabledNow(const MenuRow& row, Deadline deadline) override;

    /// Reads all menus below the bar that was read last, if `service` has it, for `most` at most. The pop-up
    /// that is open or opens next shows those that were read whole as they are now, whatever becomes of them.
    /// False when it is another's.
    bool readAhead(const QByteArray& service, std::chrono::milliseconds most);

private:
    struct Answer
    {
        std::optional<QList<MenuRow>> rows;
        bool whole = false; ///< nothing is missing
    };

    std::optional<QList<MenuRow>> _read(const BusReference& menu, MenuLevel level);
    /// Menus of one application, all at once; an answer for each.
    QList<Answer> _readAll(const QList<BusReference>& menus, MenuLevel level, Deadline deadline);
    /// Their items, with an empty place where nothing is told.
    QList<std::optional<QList<AtspiFacts>>> _itemsOf(const QList<BusReference>& menus, AtspiToolkit toolkit,
                                                     MenuLevel level, Deadline deadline);
    QList<std::optional<QList<BusReference>>> _childrenOf(const QList<BusReference>& menus,
                                                          Deadline deadline);
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
    QByteArray _service;                        ///< that has the bar that was read last
    QList<BusReference> _menusOfBar;            ///< of that one
    QHash<BusReference, QList<MenuRow>> _ahead; ///< while our menu is open, or opens
    QObject _presses;                           ///< owns those on their way
};

} // namespace tarnwick
