// SPDX-License-Identifier: MIT
#include "platform/linux/dbusmenu/DbusMenuDecode.h"

#include "platform/linux/bus/BusText.h"

#include <utility>

namespace tarnwick::dbus_menus {

namespace {

constexpr const char* EntryType = "(ia{sv}av)";
constexpr qsizetype MaximumStrokes = 8;
constexpr qsizetype MaximumKeys = 8;

bool readNames(sd_bus_message* reply, QStringList& names)
{
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "s") <= 0)
        return false;
    const char* name = nullptr;
    while (sd_bus_message_read_basic(reply, SD_BUS_TYPE_STRING, &name) > 0)
        if (names.size() <= MaximumKeys)
            names.append(cutText(name));
    return sd_bus_message_exit_container(reply) >= 0;
}

bool readShortcut(sd_bus_message* reply, DbusMenuEntry& entry)
{
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "as") <= 0)
        return false;
    entry.shortcut.clear();
    while (sd_bus_message_at_end(reply, 0) == 0) {
        QStringList stroke;
        if (!readNames(reply, stroke))
            return false;
        if (entry.shortcut.size() <= MaximumStrokes)
            entry.shortcut.append(stroke);
    }
    return sd_bus_message_exit_container(reply) >= 0;
}

bool readTruth(sd_bus_message* reply, bool& truth)
{
    int value = 0;
    if (sd_bus_message_read_basic(reply, SD_BUS_TYPE_BOOLEAN, &value) <= 0)
        return false;
    truth = value != 0;
    return true;
}

DbusMenuEntry::Toggle toggleOf(QByteArrayView text)
{
    if (text == "checkmark")
        return DbusMenuEntry::Toggle::Check;
    return text == "radio" ? DbusMenuEntry::Toggle::Radio : DbusMenuEntry::Toggle::None;
}

bool readText(sd_bus_message* reply, QByteArrayView name, DbusMenuEntry& entry)
{
    const char* text = nullptr;
    if (sd_bus_message_read_basic(reply, SD_BUS_TYPE_STRING, &text) <= 0)
        return false;
    if (name == "label")
        entry.label = cutText(text);
    else if (name == "type")
        entry.separator = QByteArrayView(text) == "separator";
    else if (name == "toggle-type")
        entry.toggle = toggleOf(text);
    else
        entry.submenu = QByteArrayView(text) == "submenu";
    return true;
}

bool readState(sd_bus_message* reply, DbusMenuEntry& entry)
{
    qint32 state = 0;
    if (sd_bus_message_read_basic(reply, SD_BUS_TYPE_INT32, &state) <= 0)
        return false;
    entry.on = state == 1;
    return true;
}

/// The type that a property has to have; nothing for those that no menu needs.
const char* typeOf(QByteArrayView name)
{
    if (name == "label" || name == "type" || name == "toggle-type" || name == "children-display")
        return "s";
    if (name == "enabled" || name == "visible")
        return "b";
    if (name == "toggle-state")
        return "i";
    return name == "shortcut" ? "aas" : nullptr;
}

bool readValue(sd_bus_message* reply, QByteArrayView name, DbusMenuEntry& entry)
{
    if (name == "enabled")
        return readTruth(reply, entry.enabled);
    if (name == "visible")
        return readTruth(reply, entry.visible);
    if (name == "toggle-state")
        return readState(reply, entry);
    return name == "shortcut" ? readShortcut(reply, entry) : readText(reply, name, entry);
}

bool readProperty(sd_bus_message* reply, DbusMenuEntry& entry)
{
    const char* name = nullptr;
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_DICT_ENTRY, "sv") <= 0 ||
        sd_bus_message_read_basic(reply, SD_BUS_TYPE_STRING, &name) <= 0)
        return false;
    const char* wanted = typeOf(name);
    if (wanted && sd_bus_message_enter_container(reply, SD_BUS_TYPE_VARIANT, wanted) > 0) {
        if (!readValue(reply, name, entry) || sd_bus_message_exit_container(reply) < 0)
            return false;
    } else if (sd_bus_message_skip(reply, "v") <= 0) {
        return false;
    }
    return sd_bus_message_exit_container(reply) >= 0;
}

bool readNumberAndProperties(sd_bus_message* reply, DbusMenuEntry& entry)
{
    if (sd_bus_message_read_basic(reply, SD_BUS_TYPE_INT32, &entry.number) <= 0 ||
        sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "{sv}") <= 0)
        return false;
    while (sd_bus_message_at_end(reply, 0) == 0)
        if (!readProperty(reply, entry))
            return false;
    return sd_bus_message_exit_container(reply) >= 0;
}

/// Up to what the entry holds, which comes next.
bool readFacts(sd_bus_message* reply, DbusMenuEntry& entry)
{
    return sd_bus_message_enter_container(reply, SD_BUS_TYPE_STRUCT, "ia{sv}av") > 0 &&
           readNumberAndProperties(reply, entry) &&
           sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "v") > 0;
}

/// Some exporters send all that lies below, however little was asked for, and some hold entries without
/// saying so.
bool passChildren(sd_bus_message* reply, DbusMenuEntry& entry)
{
    while (sd_bus_message_at_end(reply, 0) == 0) {
        entry.submenu = true;
        if (sd_bus_message_skip(reply, "v") <= 0)
            return false;
    }
    return sd_bus_message_exit_container(reply) >= 0;
}

/// Appends the entry that comes next, unless it is something else. False when nothing after it can be read.
bool readEntry(sd_bus_message* reply, QList<DbusMenuEntry>& entries)
{
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_VARIANT, EntryType) <= 0)
        return sd_bus_message_skip(reply, "v") > 0;
    DbusMenuEntry entry;
    const bool read = readFacts(reply, entry) && passChildren(reply, entry) &&
                      sd_bus_message_exit_container(reply) >= 0 && sd_bus_message_exit_container(reply) >= 0;
    if (read)
        entries.append(std::move(entry));
    return read;
}

} // namespace

std::optional<DbusMenuLayout> decodeLayout(sd_bus_message* reply)
{
    quint32 revision = 0;
    DbusMenuLayout layout;
    if (sd_bus_message_read_basic(reply, SD_BUS_TYPE_UINT32, &revision) <= 0 ||
        !readFacts(reply, layout.menu))
        return std::nullopt;
    while (layout.entries.size() < MaximumEntries && sd_bus_message_at_end(reply, 0) == 0)
        if (!readEntry(reply, layout.entries))
            break;
    return layout;
}

std::optional<DbusMenuEntry> decodeProperties(sd_bus_message* reply)
{
    DbusMenuEntry entry;
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "(ia{sv})") <= 0 ||
        sd_bus_message_enter_container(reply, SD_BUS_TYPE_STRUCT, "ia{sv}") <= 0 ||
        !readNumberAndProperties(reply, entry))
        return std::nullopt;
    return entry;
}

} // namespace tarnwick::dbus_menus
