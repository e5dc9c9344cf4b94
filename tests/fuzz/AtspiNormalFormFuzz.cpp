// SPDX-License-Identifier: MIT
// The entries of a menu in the form that is the same for all toolkits. A byte for the toolkit, one for the
// level, then of each entry: role, states, what it has, its name, its key binding.
#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiNormalForm.h"
#include "tests/fuzz/Fuzzing.h"

#include <array>

using namespace tarnwick;
using namespace tarnwick::atspi;
using namespace Qt::StringLiterals;

namespace {

constexpr std::array Toolkits{AtspiToolkit::Gtk, AtspiToolkit::Bridge, AtspiToolkit::Qt, AtspiToolkit::Gtk4,
                              AtspiToolkit::Unknown};
constexpr std::array Roles{RoleMenuItem,        RoleMenu,          RoleSeparator,
                           RoleCheckMenuItem,   RoleRadioMenuItem, RoleCheckBox,
                           RoleTearoffMenuItem, RolePopupMenu,     RoleText};
constexpr std::array States{StateSensitive, StateEnabled, StateVisible, StateChecked};

quint64 bit(State state)
{
    return quint64{1} << state;
}

AtspiFacts entryFrom(FuzzInput& input, int index)
{
    AtspiFacts facts;
    facts.reference = {":1.5", "/item/" + QByteArray::number(index), 1};
    if (const int role = input.choice(Roles.size() + 1); role > 0)
        facts.role = Roles[static_cast<std::size_t>(role) - 1];
    const quint8 states = input.byte();
    for (std::size_t i = 0; i < States.size(); ++i)
        facts.states = facts.states.value_or(0) | (states >> i & 1U ? bit(States[i]) : 0);
    if ((states & 0x80U) != 0)
        facts.states = std::nullopt;
    const quint8 has = input.byte();
    if ((has & 1U) != 0)
        facts.hasArea = (has & 2U) != 0;
    if ((has & 4U) != 0)
        facts.firstChild =
            (has & 8U) != 0 ? BusReference{":1.5", "/menu/" + QByteArray::number(index), 1} : BusReference();
    const QString name = QString::fromUtf8(input.until('\n'));
    const QString binding = QString::fromUtf8(input.until('\n'));
    if ((has & 16U) == 0)
        facts.name = name;
    if ((has & 32U) != 0 && facts.name)
        facts.keyBinding = binding;
    return facts;
}

void check(const MenuRow& row, MenuLevel level)
{
    const bool separator = row.kind == MenuRow::Kind::Separator;
    require(separator == row.title.isEmpty(), "only separators have no title");
    require(row.title == row.title.trimmed() && !row.title.contains(u'\t'),
            "a title is trimmed and holds no tab");
    require((row.kind == MenuRow::Kind::Holder) == bool(row.contents),
            "a holder, and nothing else, holds a menu");
    require(row.kind == MenuRow::Kind::Item || !row.shortcut, "only items have a shortcut");
    require(!separator || level == MenuLevel::Menu, "a bar has no separators");
    require(bool(row.item), "every entry stands for an object");
}

/// What an application would answer whose menu is the normal form itself.
AtspiFacts factsOf(const MenuRow& row)
{
    AtspiFacts facts;
    facts.reference = row.item;
    facts.name = row.title;
    facts.role = RoleMenuItem;
    facts.states = bit(StateVisible) | (row.enabled ? bit(StateSensitive) | bit(StateEnabled) : 0) |
                   (row.checked ? bit(StateChecked) : 0);
    facts.hasArea = true;
    if (row.kind == MenuRow::Kind::Separator)
        facts.role = RoleSeparator;
    else if (row.contents == row.item && row.kind == MenuRow::Kind::Holder)
        facts.role = RoleMenu;
    else if (row.kind == MenuRow::Kind::Holder)
        facts.firstChild = row.contents;
    return facts;
}

bool areSame(const QList<MenuRow>& left, const QList<MenuRow>& right)
{
    return std::equal(left.cbegin(), left.cend(), right.cbegin(), right.cend(),
                      [](const MenuRow& a, const MenuRow& b) {
                          return a.kind == b.kind && a.title == b.title && a.enabled == b.enabled &&
                                 a.checked == b.checked && a.item == b.item && a.contents == b.contents;
                      });
}

bool isSubsequence(const QList<MenuRow>& rows, const QList<AtspiFacts>& items)
{
    auto row = rows.cbegin();
    for (auto item = items.cbegin(); item != items.cend() && row != rows.cend(); ++item)
        if (item->reference == row->item)
            ++row;
    return row == rows.cend();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const AtspiToolkit toolkit = Toolkits[static_cast<std::size_t>(input.choice(Toolkits.size()))];
    const MenuLevel level = input.flag() ? MenuLevel::Bar : MenuLevel::Menu;
    QList<AtspiFacts> items;
    for (int i = 0; !input.atEnd(); ++i)
        items.append(entryFrom(input, i));

    const QList<MenuRow> rows = normalForm(items, toolkit, level);
    require(isSubsequence(rows, items), "the entries are those that came, in their order");
    QList<AtspiFacts> again;
    for (const MenuRow& row : rows) {
        check(row, level);
        again.append(factsOf(row));
    }
    require(areSame(normalForm(again, toolkit, level), rows), "the normal form is its own normal form");
    if (const auto between = menuInBetween(items))
        require(items.size() == 1 && *between == items.first().reference,
                "only a single child can stand between a holder and its items");
    return 0;
}
