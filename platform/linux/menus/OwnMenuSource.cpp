// SPDX-License-Identifier: MIT
#include "platform/linux/menus/OwnMenuSource.h"

#include "foundation/Application.h"
#include "menu/Menu.h"
#include "platform/linux/keys/PortableShortcut.h"
#include "platform/qt/menu/KeyCharacters.h"

#include <QKeySequence>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// The mirrored menu finds its own entry by this title, so no entry of the bar may have it.
const QString ReservedTitle = u"Tarnwick"_s;
const QString ReplacementTitle = u"Application"_s;

xkb_keysym_t keysymOf(char16_t character)
{
    const auto key = keyOfCharacter(character);
    if (!key)
        return xkb_utf32_to_keysym(character);
    const auto named = PortableShortcut::parse(QKeySequence(*key).toString(QKeySequence::PortableText));
    return named ? named->keysym : XKB_KEY_NoSymbol;
}

std::optional<MenuShortcut> shortcutOf(const MenuItem& item)
{
    if (item.keyEquivalent().size() != 1)
        return std::nullopt;
    const quint64 mask = item.keyEquivalentModifierMask();
    return MenuShortcut::of({(mask & ControlKeyMask) != 0, (mask & AlternateKeyMask) != 0,
                             (mask & ShiftKeyMask) != 0, (mask & CommandKeyMask) != 0,
                             keysymOf(item.keyEquivalent().front().unicode())});
}

MenuRow rowOf(const MenuItem& item, const BusReference& place)
{
    MenuRow row;
    row.item = place;
    if (item.isSeparatorItem()) {
        row.kind = MenuRow::Kind::Separator;
        return row;
    }
    row.title = item.title();
    row.enabled = item.isEnabled();
    row.checked = item.state() == MenuItem::State::On;
    if (item.hasSubmenu()) {
        row.kind = MenuRow::Kind::Holder;
        row.contents = place;
    } else {
        row.shortcut = shortcutOf(item);
    }
    return row;
}

/// Null when the menu has changed meanwhile.
std::shared_ptr<MenuItem> itemAt(const QByteArray& path)
{
    std::shared_ptr<Menu> menu = Application::shared().mainMenu();
    std::shared_ptr<MenuItem> item;
    for (const QByteArray& index : path.mid(1).split('/')) {
        item = menu ? menu->itemAtIndex(index.toInt()) : nullptr;
        menu = item ? item->submenu() : nullptr;
    }
    return item;
}

std::optional<QList<MenuRow>> rowsOf(const std::shared_ptr<Menu>& menu, const BusReference& place)
{
    if (!menu)
        return std::nullopt;
    menu->update();
    QList<MenuRow> rows;
    for (int i = 0; i < menu->numberOfItems(); ++i) {
        BusReference item = place;
        item.path += (place.path.endsWith('/') ? "" : "/") + QByteArray::number(i);
        rows.append(rowOf(*menu->itemAtIndex(i), item));
    }
    return rows;
}

} // namespace

bool OwnMenuSource::hasBar()
{
    return Application::shared().mainMenu() != nullptr;
}

BusReference OwnMenuSource::bar()
{
    return {{}, "/", 0};
}

std::optional<QList<MenuRow>> OwnMenuSource::readBar(const BusReference& bar)
{
    auto rows = rowsOf(Application::shared().mainMenu(), bar);
    if (!rows)
        return std::nullopt;
    rows->removeIf([](const MenuRow& row) { return row.title.isEmpty(); });
    for (MenuRow& row : *rows)
        if (row.title == ReservedTitle)
            row.title = ReplacementTitle;
    return rows;
}

std::optional<QList<MenuRow>> OwnMenuSource::readMenu(const BusReference& contents)
{
    const auto item = itemAt(contents.path);
    return item ? rowsOf(item->submenu(), contents) : std::nullopt;
}

bool OwnMenuSource::press(const MenuRow& row)
{
    const auto item = itemAt(row.item.path);
    if (!item || item->title() != row.title)
        return false;
    return Application::shared().sendActionToFrom(item->action(), item->target().get(), item.get());
}

} // namespace tarnwick
