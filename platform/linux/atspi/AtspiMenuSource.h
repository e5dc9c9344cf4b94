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
#include <QSet>

namespace tarnwick {

/// Menus in the accessibility tree. One that has nothing in it is either empty or made when it opens, and
/// nothing in the tree says which. But for those of Qt, programs grey what holds an empty menu: where it can
/// be opened, in place of what is not there yet stands one greyed row that says what helps.
class AtspiMenuSource final : public MenuSource
{
public:
    /// All must outlive this.
    AtspiMenuSource(AtspiBus& bus, ReadingBudget& budget, AtspiToolkits& toolkits,
                    ChildrenJustTold& childrenJustTold);

    std::optional<QList<MenuRow>> readBar(const BusReference& bar) override;
    std::optional<QList<MenuRow>> readMenu(const BusReference& contents) override;
    /// The application has made all menus of this bar: one that has nothing in it is empty.
    void menusAreMade(const BusReference& bar);
    bool press(const MenuRow& row) override;
    [[nodiscard]] bool isDisabledNow(const MenuRow& row, Deadline deadline) override;

    void readAhead(const QByteArray& service, std::chrono::milliseconds most) override;

private:
    struct Answer
    {
        std::optional<QList<MenuRow>> rows;
        bool whole = false; ///< nothing is missing
    };

    /// What these hold may be yet to be made.
    void _rememberHolders(const QList<MenuRow>& rows);
    /// Our menu has closed: what is below the bar is read again before it is shown.
    void _forgetBelowBar();
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
    QByteArray _service;             ///< that has the bar that was read last
    QList<BusReference> _menusOfBar; ///< of that one
    bool _allMade = false;           ///< all menus of that one
    QSet<BusReference> _unmade;      ///< menus of that one that are yet to be made, if empty
    QSet<BusReference> _barsWithMadeMenus;
    QHash<BusReference, QList<MenuRow>> _ahead; ///< while our menu is open, or opens
    QObject _presses;                           ///< owns those on their way
};

} // namespace tarnwick
