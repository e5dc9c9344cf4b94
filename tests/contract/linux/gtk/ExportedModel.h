// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/SdBusMessage.h"
#include "platform/linux/gtk/GtkMenuModel.h"

#include <QSet>

#include <variant>

namespace tarnwick {

/// A menu model and actions as a test writes them down, and as an application sends them.
namespace exported {

/// A text, a link to another menu, a truth, or a number.
using Value = std::variant<QByteArray, GtkMenuNumber, bool, qint32>;

struct Attribute
{
    QByteArray name;
    Value value;
};

using Entry = QList<Attribute>;

struct Menu
{
    GtkMenuNumber number;
    QList<Entry> entries;
};

struct Action
{
    QByteArray name;
    bool enabled = true;
    QByteArray parameterType;
    std::optional<Value> state;
};

/// An entry that activates an action, with more attributes if need be.
inline Entry item(const QByteArray& label, const QByteArray& action, const Entry& more = {})
{
    return Entry{{"label", label}, {"action", action}} + more;
}
inline Entry submenu(const QByteArray& label, GtkMenuNumber menu, const Entry& more = {})
{
    return Entry{{"label", label}, {":submenu", menu}} + more;
}
inline Entry section(GtkMenuNumber menu, const Entry& more = {})
{
    return Entry{{":section", menu}} + more;
}

inline void appendVariant(sd_bus_message* message, const Value& value)
{
    if (const auto* text = std::get_if<QByteArray>(&value))
        sd_bus_message_append(message, "v", "s", text->constData());
    else if (const auto* link = std::get_if<GtkMenuNumber>(&value))
        sd_bus_message_append(message, "v", "(uu)", link->group, link->menu);
    else if (const auto* truth = std::get_if<bool>(&value))
        sd_bus_message_append(message, "v", "b", *truth ? 1 : 0);
    else
        sd_bus_message_append(message, "v", "i", std::get<qint32>(value));
}

inline void append(sd_bus_message* message, const Entry& entry)
{
    sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
    for (const Attribute& attribute : entry) {
        sd_bus_message_open_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv");
        sd_bus_message_append(message, "s", attribute.name.constData());
        appendVariant(message, attribute.value);
        sd_bus_message_close_container(message);
    }
    sd_bus_message_close_container(message);
}

/// The contents of a reply to "Start".
inline void append(sd_bus_message* message, const QList<Menu>& menus)
{
    sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "(uuaa{sv})");
    for (const Menu& menu : menus) {
        sd_bus_message_open_container(message, SD_BUS_TYPE_STRUCT, "uuaa{sv}");
        sd_bus_message_append(message, "uu", menu.number.group, menu.number.menu);
        sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "a{sv}");
        for (const Entry& entry : menu.entries)
            append(message, entry);
        sd_bus_message_close_container(message);
        sd_bus_message_close_container(message);
    }
    sd_bus_message_close_container(message);
}

/// The contents of a reply to "Describe".
inline void appendFacts(sd_bus_message* message, const Action& action)
{
    sd_bus_message_open_container(message, SD_BUS_TYPE_STRUCT, "bgav");
    sd_bus_message_append(message, "bg", action.enabled ? 1 : 0, action.parameterType.constData());
    sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "v");
    if (action.state)
        appendVariant(message, *action.state);
    sd_bus_message_close_container(message);
    sd_bus_message_close_container(message);
}

/// The contents of a reply to "DescribeAll".
inline void append(sd_bus_message* message, const QList<Action>& actions)
{
    sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "{s(bgav)}");
    for (const Action& action : actions) {
        sd_bus_message_open_container(message, SD_BUS_TYPE_DICT_ENTRY, "s(bgav)");
        sd_bus_message_append(message, "s", action.name.constData());
        appendFacts(message, action);
        sd_bus_message_close_container(message);
    }
    sd_bus_message_close_container(message);
}

/// Sends what `fill` appends as the reply to a call.
template <typename Fill>
bool answer(sd_bus_message* call, const Fill& fill)
{
    sd_bus_message* raw = nullptr;
    sd_bus_message_new_method_return(call, &raw);
    const SdBusMessage reply(raw);
    fill(raw);
    return sd_bus_send(nullptr, raw, nullptr) >= 0;
}

} // namespace exported

} // namespace tarnwick
