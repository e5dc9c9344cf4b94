// SPDX-License-Identifier: MIT
// Exported menus and actions as they come over the bus. A byte that says which reply it is, the signature, a
// zero byte, the body.
#include "platform/linux/gtk/GtkMenuDecode.h"
#include "platform/linux/gtk/GtkMenuNormalForm.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/fuzz/Wire.h"

using namespace tarnwick;

namespace {

const GtkMenuPlace& place()
{
    static const GtkMenuPlace menu{"/menus", "/application", "/window", {}, {}, "/module"};
    return menu;
}

GtkActionGroups& actions()
{
    static GtkActionGroups groups{{"/application", {{"quit", {true, {}, {}}}}},
                                  {"/window", {}},
                                  {"/module", {{"quit", {true, {}, {}}}}}};
    return groups;
}

void checkMenus(sd_bus_message* reply)
{
    GtkMenus menus;
    gtk_menus::decodeMenus(reply, menus);
    qsizetype entries = 0;
    for (const QList<GtkMenuEntry>& menu : std::as_const(menus))
        entries += menu.size();
    require(entries <= gtk_menus::MaximumEntries, "no more entries than are taken");
    for (const GtkMenuNumber& number : missingSections(menus, {}))
        require(!menus.contains(number), "a missing section is missing");

    const BusReference self{":1.5", place().toPath(), 1};
    const QList<MenuRow> rows = gtkNormalForm(menus, place(), actions(), self);
    for (const MenuRow& row : rows) {
        const bool separator = row.kind == MenuRow::Kind::Separator;
        require(separator == row.title.isEmpty(), "only separators have no title");
        require(row.title == row.title.trimmed(), "a title is trimmed");
        require((row.kind == MenuRow::Kind::Holder) == bool(row.contents),
                "a holder, and nothing else, holds a menu");
        const auto contents = GtkMenuPlace::fromPath(row.contents.path);
        require(!row.contents || contents, "a submenu's place can be read");
        require(!contents || contents->moduleActions == "/module",
                "a submenu's actions are where its menu's are");
        require(row.kind == MenuRow::Kind::Item || !row.shortcut, "only items have a shortcut");
    }
    require(rows.isEmpty() || rows.last().kind != MenuRow::Kind::Separator, "no menu ends with a separator");
}

void checkValue(const SdBusValue& value)
{
    const SdBusMessage message = Wire::shared().empty();
    require(value.appendVariantTo(message.get()), "a value that was read can be sent");
    require(sd_bus_message_seal(message.get(), 1, 0) >= 0, "a message can be sealed");
    require(SdBusValue::readVariant(message.get()) == value, "a value that is sent back is the same");
}

void checkActions(const GtkActions& group)
{
    require(group.size() <= gtk_menus::MaximumEntries, "no more actions than are taken");
    for (const GtkActionFacts& facts : group)
        if (facts.state)
            checkValue(*facts.state);
}

void checkReply(int kind, sd_bus_message* reply)
{
    if (kind == 0) {
        checkMenus(reply);
    } else if (kind == 1) {
        checkActions(gtk_menus::decodeActions(reply));
    } else if (kind == 2) {
        if (const auto facts = gtk_menus::decodeAction(reply))
            checkActions({{"action", *facts}});
    } else if (const auto value = SdBusValue::readVariant(reply)) {
        checkValue(*value);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const int kind = input.choice(4);
    return Wire::shared().feed(input, [kind](sd_bus_message* reply) { checkReply(kind, reply); });
}
