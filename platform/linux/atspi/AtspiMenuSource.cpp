// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiMenuSource.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiDecode.h"
#include "platform/linux/menus/MenuPress.h"

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace atspi;

namespace {

bool saysDisabled(sd_bus_message* states)
{
    const auto words = decodeStates(states);
    return words && !has(*words, StateSensitive) && !has(*words, StateEnabled);
}

/// Whether an application grows with each question after the keys of an item.
bool losesKeyBindings(AtspiToolkit toolkit)
{
    return toolkit == AtspiToolkit::Gtk;
}

} // namespace

AtspiMenuSource::AtspiMenuSource(AtspiBus& bus, ReadingBudget& budget, AtspiToolkits& toolkits,
                                 ChildrenJustTold& childrenJustTold)
    : _bus(bus), _budget(budget), _toolkits(toolkits), _childrenJustTold(childrenJustTold)
{
}

std::optional<QList<MenuRow>> AtspiMenuSource::readBar(const BusReference& bar)
{
    return _read(bar, MenuLevel::Bar);
}

std::optional<QList<MenuRow>> AtspiMenuSource::readMenu(const BusReference& contents)
{
    return _read(contents, MenuLevel::Menu);
}

bool AtspiMenuSource::press(const MenuRow& row)
{
    const MenuPressCalls calls{
        [this] { return _bus.standingConnection(); },
        [this, item = row.item] { return _bus.stateCall(item); },
        saysDisabled,
        [this, item = row.item] { return _bus.actionCall(item); },
    };
    return MenuPress::start(calls, row.enabled, &_presses);
}

std::optional<QList<MenuRow>> AtspiMenuSource::_read(const BusReference& menu, MenuLevel level)
{
    const ReadingBudget::Reading reading(_budget);
    const BusReference root = _bus.root(menu.service);
    AtspiToolkit toolkit = _toolkits.of(root, reading.deadline()).value_or(AtspiToolkit::Unknown);
    if (toolkit == AtspiToolkit::Gtk4)
        return QList<MenuRow>();
    auto items = _childrenOf(menu, toolkit, level, reading.deadline());
    if (!items)
        return std::nullopt;
    if (const auto inner = level == MenuLevel::Menu ? menuInBetween(*items) : std::nullopt)
        items = _childrenOf(*inner, toolkit, level, reading.deadline()).value_or(QList<AtspiFacts>());
    if (toolkit == AtspiToolkit::Unknown)
        _dropOtherChildren(*items, reading.deadline());
    const auto isMenu = [](const AtspiFacts& facts) { return facts.role == RoleMenu; };
    if (toolkit == AtspiToolkit::Unknown && std::any_of(items->cbegin(), items->cend(), isMenu)) {
        toolkit = AtspiToolkit::Bridge;
        _toolkits.shown(root, toolkit);
    }
    return normalForm(*items, toolkit, level);
}

std::optional<QList<AtspiFacts>> AtspiMenuSource::_childrenOf(const BusReference& menu, AtspiToolkit toolkit,
                                                              MenuLevel level, Deadline deadline)
{
    auto children = _childrenJustTold.take(menu);
    if (!children)
        children = _bus.facts(menu, {AtspiQuestion::Children}, deadline).children;
    if (!children)
        return std::nullopt;
    QList<AtspiFacts> items(children->size());
    QList<AtspiInquiry> inquiries;
    QList<AtspiFacts*> asked;
    QList<AtspiFacts*> remembered;
    const bool remembers = level == MenuLevel::Menu && losesKeyBindings(toolkit);
    const QList<AtspiQuestion> questions = itemQuestions(toolkit, level);
    inquiries.reserve(items.size() * questions.size());
    for (qsizetype i = 0; i < items.size(); ++i) {
        AtspiFacts& item = items[i];
        item.reference = children->at(i);
        const bool known = remembers && _keyBindings.knows(item.reference);
        (known ? remembered : asked).append(&item);
        for (const AtspiQuestion question : questions)
            if (question != AtspiQuestion::KeyBinding || !known)
                inquiries.append({&item, question});
    }
    _bus.ask(inquiries, deadline);
    if (remembers)
        _completeKeyBindings(std::move(asked), remembered, deadline);
    return items;
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
