// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiMenuSource.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiDecode.h"
#include "platform/linux/menus/MenuPress.h"
#include "platform/linux/menus/UnmadeMenu.h"
#include "platform/qt/menu/MenuTracking.h"

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace atspi;

namespace {

bool saysDisabled(const std::optional<quint64>& states)
{
    return states && !has(*states, StateSensitive) && !has(*states, StateEnabled);
}

/// Whether an application grows with each question after the keys of an item.
bool losesKeyBindings(AtspiToolkit toolkit)
{
    return toolkit == AtspiToolkit::Gtk;
}

/// Whether programs grey what holds an empty menu. With Qt there are some that do not.
bool greysEmptyMenus(AtspiToolkit toolkit)
{
    return toolkit != AtspiToolkit::Qt;
}

/// More bars than this are not kept in mind.
constexpr qsizetype MaximumBars = 200;

bool isWhole(const QList<AtspiFacts>& items)
{
    return std::ranges::all_of(items, [](const AtspiFacts& item) { return item.states.has_value(); });
}

} // namespace

AtspiMenuSource::AtspiMenuSource(AtspiBus& bus, ReadingBudget& budget, AtspiToolkits& toolkits,
                                 ChildrenJustTold& childrenJustTold)
    : _bus(bus), _budget(budget), _toolkits(toolkits), _childrenJustTold(childrenJustTold)
{
    QObject::connect(&MenuTracking::shared(), &MenuTracking::ended, &_presses, [this] { _forgetBelowBar(); });
}

std::optional<QList<MenuRow>> AtspiMenuSource::readBar(const BusReference& bar)
{
    _allMade = _barsWithMadeMenus.contains(bar);
    _unmade.clear();
    auto rows = _read(bar, MenuLevel::Bar);
    _service = bar.service;
    _menusOfBar = menusIn(rows.value_or(QList<MenuRow>()));
    return rows;
}

void AtspiMenuSource::menusAreMade(const BusReference& bar)
{
    if (_barsWithMadeMenus.size() >= MaximumBars)
        _barsWithMadeMenus.clear();
    _barsWithMadeMenus.insert(bar);
}

void AtspiMenuSource::_rememberHolders(const QList<MenuRow>& rows)
{
    if (_allMade || _unmade.size() >= MaximumChildren)
        return;
    for (const MenuRow& row : rows)
        if (row.kind == MenuRow::Kind::Holder && row.enabled)
            _unmade.insert(row.contents);
}

void AtspiMenuSource::_forgetBelowBar()
{
    _ahead.clear();
    QSet<BusReference> unmade;
    for (const BusReference& menu : std::as_const(_menusOfBar))
        if (_unmade.contains(menu))
            unmade.insert(menu);
    _unmade = unmade;
}

std::optional<QList<MenuRow>> AtspiMenuSource::readMenu(const BusReference& contents)
{
    const auto ahead = _ahead.constFind(contents);
    return ahead == _ahead.cend() ? _read(contents, MenuLevel::Menu) : *ahead;
}

void AtspiMenuSource::readAhead(const QByteArray& service, std::chrono::milliseconds most)
{
    _ahead.clear();
    if (service != _service)
        return;
    const ReadingBudget::Reading reading(_budget);
    const Deadline deadline = reading.deadline().atMostIn(most);
    for (QList<BusReference> level = _menusOfBar; !level.isEmpty() && !deadline.passed();) {
        const QList<Answer> answers = _readAll(level, MenuLevel::Menu, deadline);
        QList<BusReference> below;
        for (qsizetype i = 0; i < level.size(); ++i) {
            if (!answers[i].whole || _ahead.contains(level[i]))
                continue;
            _ahead.insert(level[i], *answers[i].rows);
            below += menusIn(*answers[i].rows);
        }
        level = below;
    }
}

bool AtspiMenuSource::press(const MenuRow& row)
{
    const MenuPressCalls calls{
        [this] { return _bus.standingConnection(); },
        [this, item = row.item] { return _bus.stateCall(item); },
        [](sd_bus_message* answer) { return saysDisabled(decodeStates(answer)); },
        [this, item = row.item] { return _bus.actionCall(item); },
    };
    return MenuPress::start(calls, row.enabled, &_presses);
}

bool AtspiMenuSource::isDisabledNow(const MenuRow& row, Deadline deadline)
{
    AtspiFacts item{.reference = row.item};
    _bus.ask({{&item, AtspiQuestion::States}}, deadline);
    return saysDisabled(item.states);
}

std::optional<QList<MenuRow>> AtspiMenuSource::_read(const BusReference& menu, MenuLevel level)
{
    const ReadingBudget::Reading reading(_budget);
    return _readAll({menu}, level, reading.deadline()).first().rows;
}

QList<AtspiMenuSource::Answer> AtspiMenuSource::_readAll(const QList<BusReference>& menus, MenuLevel level,
                                                         Deadline deadline)
{
    const BusReference root = _bus.root(menus.first().service);
    AtspiToolkit toolkit = _toolkits.of(root, deadline).value_or(AtspiToolkit::Unknown);
    if (toolkit == AtspiToolkit::Gtk4)
        return QList<Answer>(menus.size(), {QList<MenuRow>(), true});
    auto itemsOfMenus = _itemsOf(menus, toolkit, level, deadline);
    QList<Answer> answers;
    for (qsizetype i = 0; i < menus.size(); ++i) {
        auto& items = itemsOfMenus[i];
        if (!items) {
            answers.append(Answer());
            continue;
        }
        if (items->isEmpty() && _unmade.contains(menus[i])) {
            answers.append({QList<MenuRow>{UnmadeMenu::row()}, true});
            continue;
        }
        if (const auto inner = level == MenuLevel::Menu ? menuInBetween(*items) : std::nullopt)
            items = _itemsOf({*inner}, toolkit, level, deadline).first().value_or(QList<AtspiFacts>());
        if (toolkit == AtspiToolkit::Unknown)
            _dropOtherChildren(*items, deadline);
        const auto isMenu = [](const AtspiFacts& facts) { return facts.role == RoleMenu; };
        if (toolkit == AtspiToolkit::Unknown && std::any_of(items->cbegin(), items->cend(), isMenu)) {
            toolkit = AtspiToolkit::Bridge;
            _toolkits.shown(root, toolkit);
        }
        answers.append({normalForm(*items, toolkit, level), isWhole(*items)});
        if (greysEmptyMenus(toolkit))
            _rememberHolders(*answers.last().rows);
    }
    return answers;
}

QList<std::optional<QList<AtspiFacts>>> AtspiMenuSource::_itemsOf(const QList<BusReference>& menus,
                                                                  AtspiToolkit toolkit, MenuLevel level,
                                                                  Deadline deadline)
{
    QList<std::optional<QList<AtspiFacts>>> itemsOfMenus;
    for (const auto& children : _childrenOf(menus, deadline)) {
        itemsOfMenus.append(std::nullopt);
        if (!children)
            continue;
        auto& items = itemsOfMenus.last().emplace(children->size());
        for (qsizetype i = 0; i < items.size(); ++i)
            items[i].reference = children->at(i);
    }
    QList<AtspiInquiry> inquiries;
    QList<AtspiFacts*> asked;
    QList<AtspiFacts*> remembered;
    const bool remembers = level == MenuLevel::Menu && losesKeyBindings(toolkit);
    const QList<AtspiQuestion> questions = itemQuestions(toolkit, level);
    for (auto& items : itemsOfMenus) {
        if (!items)
            continue;
        for (AtspiFacts& item : *items) {
            const bool known = remembers && _keyBindings.knows(item.reference);
            (known ? remembered : asked).append(&item);
            for (const AtspiQuestion question : questions)
                if (question != AtspiQuestion::KeyBinding || !known)
                    inquiries.append({&item, question});
        }
    }
    _bus.ask(inquiries, deadline);
    if (remembers)
        _completeKeyBindings(std::move(asked), remembered, deadline);
    return itemsOfMenus;
}

QList<std::optional<QList<BusReference>>> AtspiMenuSource::_childrenOf(const QList<BusReference>& menus,
                                                                       Deadline deadline)
{
    QList<AtspiFacts> facts(menus.size());
    QList<AtspiInquiry> inquiries;
    for (qsizetype i = 0; i < menus.size(); ++i) {
        AtspiFacts& menu = facts[i];
        menu.reference = menus[i];
        menu.children = _childrenJustTold.take(menu.reference);
        if (!menu.children)
            inquiries.append({&menu, AtspiQuestion::Children});
    }
    _bus.ask(inquiries, deadline);
    QList<std::optional<QList<BusReference>>> children;
    for (const AtspiFacts& menu : facts)
        children.append(menu.children);
    return children;
}

void AtspiMenuSource::_completeKeyBindings(QList<AtspiFacts*> asked, const QList<AtspiFacts*>& remembered,
                                           Deadline deadline)
{
    QList<AtspiInquiry> inquiries;
    for (AtspiFacts* item : remembered) {
        item->keyBinding = _keyBindings.of(*item);
        if (item->keyBinding)
            continue;
        inquiries.append({item, AtspiQuestion::KeyBinding});
        asked.append(item);
    }
    _bus.ask(inquiries, deadline);
    for (const AtspiFacts* item : asked)
        _keyBindings.remember(*item);
}

void AtspiMenuSource::_dropOtherChildren(QList<AtspiFacts>& items, Deadline deadline)
{
    QList<AtspiFacts> children;
    for (const AtspiFacts& facts : items) {
        AtspiFacts child;
        child.reference = facts.firstChild.value_or(BusReference());
        children.append(child);
    }
    QList<AtspiInquiry> inquiries;
    for (AtspiFacts& child : children)
        if (child.reference)
            inquiries.append({&child, AtspiQuestion::Role});
    _bus.ask(inquiries, deadline);
    for (qsizetype i = 0; i < items.size(); ++i)
        if (children[i].role != RoleMenu && children[i].role != RolePopupMenu)
            items[i].firstChild.reset();
}

} // namespace tarnwick
