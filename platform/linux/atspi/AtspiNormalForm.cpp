// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiNormalForm.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiKeyBinding.h"

#include <algorithm>

namespace tarnwick {

using namespace atspi;

namespace {

bool isItemRole(quint32 role)
{
    switch (role) {
    case RoleCheckBox: // Java's check items
    case RoleCheckMenuItem:
    case RoleMenu:
    case RoleMenuItem:
    case RoleRadioMenuItem:
        return true;
    default:
        return false;
    }
}

bool anyHas(const QList<AtspiFacts>& items, State state)
{
    return std::any_of(items.cbegin(), items.cend(), [state](const AtspiFacts& facts) {
        return facts.states && has(*facts.states, state);
    });
}

bool anyHasArea(const QList<AtspiFacts>& items)
{
    return std::any_of(items.cbegin(), items.cend(),
                       [](const AtspiFacts& facts) { return facts.hasArea.value_or(false); });
}

/// What the states mean in one menu.
struct StateRules
{
    bool visibleTells;
    bool areaTells; ///< only where some item has one: a menu without any has not been laid out
    State enabling;

    StateRules(const QList<AtspiFacts>& items, AtspiToolkit toolkit, MenuLevel level)
        : visibleTells(
              toolkit == AtspiToolkit::Gtk ||
              ((toolkit != AtspiToolkit::Qt || level == MenuLevel::Bar) && anyHas(items, StateVisible))),
          areaTells(anyHasArea(items)),
          enabling(anyHas(items, StateSensitive) ? StateSensitive : StateEnabled)
    {
    }

    [[nodiscard]] bool hidden(const AtspiFacts& facts) const
    {
        return (visibleTells && facts.states && !has(*facts.states, StateVisible)) ||
               (areaTells && !facts.hasArea.value_or(true));
    }
};

QString titleOf(const AtspiFacts& facts)
{
    return facts.name.value_or(QString()).section(u'\t', 0, 0).trimmed();
}

BusReference contentsOf(const AtspiFacts& facts)
{
    if (facts.role == RoleMenu)
        return facts.reference;
    return facts.role == RoleMenuItem ? facts.firstChild.value_or(BusReference()) : BusReference();
}

std::optional<MenuRow> rowOf(const AtspiFacts& facts, const StateRules& rules, AtspiToolkit toolkit)
{
    MenuRow row;
    row.item = facts.reference;
    if (facts.role == RoleSeparator) {
        row.kind = MenuRow::Kind::Separator;
        return row;
    }
    row.title = titleOf(facts);
    if (!isItemRole(*facts.role) || row.title.isEmpty())
        return std::nullopt;
    const quint64 states = facts.states.value_or(0);
    row.enabled = has(states, rules.enabling);
    row.checked = has(states, StateChecked);
    row.contents = contentsOf(facts);
    if (row.contents) {
        row.kind = MenuRow::Kind::Holder;
    } else if (facts.keyBinding) {
        const auto binding = keyBindingOf(*facts.keyBinding, *facts.name, toolkit);
        row.shortcut = binding ? MenuShortcut::of(*binding) : std::nullopt;
    }
    return row;
}

} // namespace

QList<AtspiQuestion> itemQuestions(AtspiToolkit toolkit, MenuLevel level)
{
    QList<AtspiQuestion> questions{AtspiQuestion::Name, AtspiQuestion::Role, AtspiQuestion::States};
    if (level == MenuLevel::Menu)
        questions.append(AtspiQuestion::KeyBinding);
    if (toolkit == AtspiToolkit::Qt || toolkit == AtspiToolkit::Unknown)
        questions.append(AtspiQuestion::FirstChild);
    if (toolkit == AtspiToolkit::Qt && level == MenuLevel::Menu)
        questions.append(AtspiQuestion::Area);
    return questions;
}

QList<MenuRow> normalForm(const QList<AtspiFacts>& items, AtspiToolkit toolkit, MenuLevel level)
{
    const StateRules rules(items, toolkit, level);
    QList<MenuRow> rows;
    rows.reserve(items.size());
    for (const AtspiFacts& facts : items) {
        const bool unwanted =
            !facts.role || rules.hidden(facts) || (level == MenuLevel::Bar && facts.role == RoleSeparator);
        if (unwanted)
            continue;
        if (auto row = rowOf(facts, rules, toolkit))
            rows.append(*std::move(row));
    }
    return rows;
}

std::optional<BusReference> menuInBetween(const QList<AtspiFacts>& items)
{
    if (items.size() != 1)
        return std::nullopt;
    const AtspiFacts& only = items.first();
    const bool between =
        only.role == RolePopupMenu || (only.role == RoleMenu && only.name && titleOf(only).isEmpty());
    return between ? std::optional(only.reference) : std::nullopt;
}

} // namespace tarnwick
