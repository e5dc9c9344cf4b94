// SPDX-License-Identifier: MIT
// Menus that are exported for outside of windows, as they come over the bus. A byte that says which reply it
// is, the signature, a zero byte, the body.
#include "platform/linux/dbusmenu/DbusMenuDecode.h"
#include "platform/linux/dbusmenu/DbusMenuNormalForm.h"
#include "platform/linux/dbusmenu/DbusMenuPlace.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/fuzz/Wire.h"

using namespace tarnwick;

namespace {

void checkRow(const MenuRow& row, const DbusMenuPlace& menu)
{
    const bool separator = row.kind == MenuRow::Kind::Separator;
    require(separator == row.title.isEmpty(), "only separators have no title");
    require(row.title == row.title.trimmed(), "a title is trimmed");
    require((row.kind == MenuRow::Kind::Holder) == bool(row.contents),
            "a holder, and nothing else, holds a menu");
    require(row.kind == MenuRow::Kind::Item || (!row.shortcut && !row.checked),
            "only items have a shortcut or a mark");
    if (separator)
        return;
    const auto place = DbusMenuPlace::fromPath(row.item.path);
    require(place && *place == menu.below(place->number, row.title),
            "an entry's place says what leads to it");
}

void checkMenu(const DbusMenuLayout& layout, const DbusMenuPlace& menu)
{
    const QList<MenuRow> rows = dbusMenuNormalForm(layout.entries, {":1.5", menu.toPath(), 1});
    bool separated = true;
    for (const MenuRow& row : rows) {
        checkRow(row, menu);
        const bool separator = row.kind == MenuRow::Kind::Separator;
        require(!separator || !separated, "a separator stands between entries");
        separated = separator;
    }
    require(rows.isEmpty() || !separated, "no menu ends with a separator");
    require(rows.isEmpty() || !isUnmade(layout), "a menu that is yet to be made has no entry");
}

void checkLayout(const DbusMenuLayout& layout)
{
    require(layout.entries.size() <= dbus_menus::MaximumEntries, "no more entries than are taken");
    for (const char* exporter : {"/menu", "/MenuBar/1"})
        checkMenu(layout, DbusMenuPlace{exporter}.below(7, QStringLiteral("File")));
}

void checkReply(int kind, sd_bus_message* reply)
{
    if (kind == 0) {
        if (const auto layout = dbus_menus::decodeLayout(reply))
            checkLayout(*layout);
    } else if (const auto entry = dbus_menus::decodeProperties(reply)) {
        checkLayout({{}, {*entry, *entry}});
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const int kind = input.choice(2);
    return Wire::shared().feed(input, [kind](sd_bus_message* reply) { checkReply(kind, reply); });
}
