// SPDX-License-Identifier: MIT
#include "platform/linux/dbusmenu/DbusMenuNormalForm.h"

#include "platform/linux/dbusmenu/DbusMenuHabits.h"
#include "platform/linux/dbusmenu/DbusMenuPlace.h"
#include "platform/linux/menus/KeyBinding.h"

#include <algorithm>
#include <utility>

namespace tarnwick {

namespace {

/// What the library of many exporters sends as the label of an entry that has none. It is in menus that are
/// made when they open.
constexpr QLatin1StringView StandIn("Label Empty");

/// A shortcut of several strokes cannot be shown.
std::optional<MenuShortcut> shortcutOf(const DbusMenuEntry& entry)
{
    if (entry.shortcut.size() != 1 || entry.shortcut.first().isEmpty())
        return std::nullopt;
    QString accelerator;
    const QStringList& stroke = entry.shortcut.first();
    for (qsizetype i = 0; i + 1 < stroke.size(); ++i)
        accelerator += u'<' + stroke[i] + u'>';
    const auto binding = KeyBinding::parseAccelerator(accelerator + stroke.last());
    return binding ? MenuShortcut::of(*binding) : std::nullopt;
}

std::optional<MenuRow> rowOf(const DbusMenuEntry& entry, const BusReference& self, const DbusMenuPlace& menu,
                             DbusMenuHabits habits)
{
    MenuRow row;
    row.item = self;
    if (entry.separator) {
        row.kind = MenuRow::Kind::Separator;
        return row;
    }
    row.title = habits.titleOf(entry.label);
    if (row.title.isEmpty() || row.title == StandIn)
        return std::nullopt;
    row.item.path = menu.below(entry.number, row.title).toPath();
    row.enabled = entry.enabled;
    if (entry.submenu) {
        row.kind = MenuRow::Kind::Holder;
        row.contents = row.item;
        return row;
    }
    row.checked = entry.toggle != DbusMenuEntry::Toggle::None && entry.on;
    row.shortcut = shortcutOf(entry);
    return row;
}

bool isSeparator(const MenuRow& row)
{
    return row.kind == MenuRow::Kind::Separator;
}

} // namespace

QList<MenuRow> dbusMenuNormalForm(const QList<DbusMenuEntry>& entries, const BusReference& self)
{
    QList<MenuRow> rows;
    const auto place = DbusMenuPlace::fromPath(self.path);
    if (!place)
        return rows;
    const auto habits = DbusMenuHabits::of(*place);
    for (const DbusMenuEntry& entry : entries) {
        auto row = entry.visible ? rowOf(entry, self, *place, habits) : std::nullopt;
        if (row && !(isSeparator(*row) && (rows.isEmpty() || isSeparator(rows.last()))))
            rows.append(*std::move(row));
    }
    if (!rows.isEmpty() && isSeparator(rows.last()))
        rows.removeLast();
    return rows;
}

bool isUnmade(const DbusMenuLayout& layout)
{
    return std::ranges::all_of(layout.entries, [](const DbusMenuEntry& entry) {
        return !entry.separator && (entry.label.isEmpty() || entry.label == StandIn);
    });
}

} // namespace tarnwick
