// SPDX-License-Identifier: MIT
#include "platform/linux/gtk/GtkMenuDecode.h"

#include "platform/linux/bus/BusText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarnwick::gtk_menus {

namespace {

std::optional<GtkMenuNumber> linkOf(const SdBusValue& value)
{
    const auto numbers = value.numbers();
    return numbers ? std::optional(GtkMenuNumber{numbers->first, numbers->second}) : std::nullopt;
}

void store(QByteArrayView attribute, const char* text, GtkMenuEntry& entry)
{
    if (attribute == "label")
        entry.label = cutText(text);
    else if (attribute == "accel")
        entry.accelerator = cutText(text);
    else if (attribute == "action")
        entry.action = text;
    else if (attribute == "action-namespace")
        entry.actionNamespace = text;
    else
        entry.hiddenWhen = text;
}

void store(QByteArrayView attribute, const SdBusValue& value, GtkMenuEntry& entry)
{
    if (attribute == "target")
        entry.target = value;
    else if (attribute == ":section")
        entry.section = linkOf(value);
    else if (attribute == ":submenu")
        entry.submenu = linkOf(value);
}

// What a menu needs to know. Icons, which may be whole pictures, are passed over.
constexpr std::array<QByteArrayView, 5> Texts{"label", "accel", "action", "action-namespace", "hidden-when"};
constexpr std::array<QByteArrayView, 3> Values{"target", ":section", ":submenu"};

bool isOneOf(const auto& attributes, QByteArrayView attribute)
{
    return std::find(attributes.cbegin(), attributes.cend(), attribute) != attributes.cend();
}

/// The variant that comes next; one that holds no text is passed over.
bool readText(sd_bus_message* reply, QByteArrayView attribute, GtkMenuEntry& entry)
{
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_VARIANT, "s") <= 0)
        return sd_bus_message_skip(reply, "v") > 0;
    const char* text = nullptr;
    if (sd_bus_message_read_basic(reply, SD_BUS_TYPE_STRING, &text) <= 0)
        return false;
    store(attribute, text, entry);
    return sd_bus_message_exit_container(reply) >= 0;
}

bool readValue(sd_bus_message* reply, QByteArrayView attribute, GtkMenuEntry& entry)
{
    const auto value = SdBusValue::readVariant(reply);
    if (value)
        store(attribute, *value, entry);
    return value.has_value();
}

bool readAttribute(sd_bus_message* reply, GtkMenuEntry& entry)
{
    const char* name = nullptr;
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_DICT_ENTRY, "sv") <= 0 ||
        sd_bus_message_read_basic(reply, SD_BUS_TYPE_STRING, &name) <= 0)
        return false;
    const bool read = isOneOf(Texts, name)    ? readText(reply, name, entry)
                      : isOneOf(Values, name) ? readValue(reply, name, entry)
                                              : sd_bus_message_skip(reply, "v") > 0;
    return read && sd_bus_message_exit_container(reply) >= 0;
}

std::optional<GtkMenuEntry> readEntry(sd_bus_message* reply)
{
    GtkMenuEntry entry;
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "{sv}") <= 0)
        return std::nullopt;
    while (sd_bus_message_at_end(reply, 0) == 0)
        if (!readAttribute(reply, entry))
            return std::nullopt;
    return sd_bus_message_exit_container(reply) >= 0 ? std::optional(std::move(entry)) : std::nullopt;
}

/// One menu; false when the reply cannot be read on.
bool readMenu(sd_bus_message* reply, GtkMenus& menus, qsizetype& left)
{
    GtkMenuNumber number;
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_STRUCT, "uuaa{sv}") <= 0 ||
        sd_bus_message_read(reply, "uu", &number.group, &number.menu) <= 0 ||
        sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "a{sv}") <= 0)
        return false;
    QList<GtkMenuEntry>& entries = menus[number];
    entries.clear();
    while (sd_bus_message_at_end(reply, 0) == 0) {
        auto entry = left-- > 0 ? readEntry(reply) : std::nullopt;
        if (!entry)
            return false;
        entries.append(*std::move(entry));
    }
    return sd_bus_message_exit_container(reply) >= 0 && sd_bus_message_exit_container(reply) >= 0;
}

/// A state that may be of any size, such as a list, can be no mark: it is passed over.
bool readState(sd_bus_message* reply, GtkActionFacts& facts)
{
    char type = '\0';
    const char* contents = nullptr;
    if (sd_bus_message_peek_type(reply, &type, &contents) <= 0 || type != SD_BUS_TYPE_VARIANT)
        return false;
    const QByteArrayView signature(contents);
    if (facts.state || signature.contains(SD_BUS_TYPE_ARRAY) || signature.contains(SD_BUS_TYPE_VARIANT))
        return sd_bus_message_skip(reply, "v") > 0;
    facts.state = SdBusValue::readVariant(reply);
    return facts.state.has_value();
}

std::optional<GtkActionFacts> readFacts(sd_bus_message* reply)
{
    GtkActionFacts facts;
    int enabled = 0;
    const char* parameterType = nullptr;
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_STRUCT, "bgav") <= 0 ||
        sd_bus_message_read_basic(reply, SD_BUS_TYPE_BOOLEAN, &enabled) <= 0 ||
        sd_bus_message_read_basic(reply, SD_BUS_TYPE_SIGNATURE, &parameterType) <= 0 ||
        sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "v") <= 0)
        return std::nullopt;
    facts.enabled = enabled != 0;
    facts.parameterType = parameterType;
    while (sd_bus_message_at_end(reply, 0) == 0) // there should be one state at most
        if (!readState(reply, facts))
            return std::nullopt;
    const bool left = sd_bus_message_exit_container(reply) >= 0 && sd_bus_message_exit_container(reply) >= 0;
    return left ? std::optional(facts) : std::nullopt;
}

bool readAction(sd_bus_message* reply, GtkActions& actions)
{
    const char* name = nullptr;
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_DICT_ENTRY, "s(bgav)") <= 0 ||
        sd_bus_message_read_basic(reply, SD_BUS_TYPE_STRING, &name) <= 0)
        return false;
    auto facts = readFacts(reply);
    if (!facts)
        return false;
    actions.insert(name, *std::move(facts));
    return sd_bus_message_exit_container(reply) >= 0;
}

} // namespace

void decodeMenus(sd_bus_message* reply, GtkMenus& menus)
{
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "(uuaa{sv})") <= 0)
        return;
    qsizetype left = MaximumEntries;
    while (sd_bus_message_at_end(reply, 0) == 0)
        if (!readMenu(reply, menus, left))
            return;
}

GtkActions decodeActions(sd_bus_message* reply)
{
    GtkActions actions;
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "{s(bgav)}") <= 0)
        return actions;
    while (actions.size() < MaximumEntries && sd_bus_message_at_end(reply, 0) == 0)
        if (!readAction(reply, actions))
            break;
    return actions;
}

std::optional<GtkActionFacts> decodeAction(sd_bus_message* reply)
{
    return readFacts(reply);
}

} // namespace tarnwick::gtk_menus
