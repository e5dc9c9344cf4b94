// SPDX-License-Identifier: MIT
#include "platform/linux/bus/SdBusValue.h"

#include <cstring>

namespace tarnwick {

namespace {

bool isText(char type)
{
    return type == SD_BUS_TYPE_STRING || type == SD_BUS_TYPE_OBJECT_PATH || type == SD_BUS_TYPE_SIGNATURE;
}

bool isContainer(char type)
{
    return type == SD_BUS_TYPE_ARRAY || type == SD_BUS_TYPE_VARIANT || type == SD_BUS_TYPE_STRUCT ||
           type == SD_BUS_TYPE_DICT_ENTRY;
}

/// The bytes of the basic value that comes next. A file descriptor is none of them: it is worth something in
/// the message only.
std::optional<QByteArray> readBasic(sd_bus_message* message, char type)
{
    if (type == SD_BUS_TYPE_UNIX_FD)
        return std::nullopt;
    if (isText(type)) {
        const char* text = nullptr;
        if (sd_bus_message_read_basic(message, type, &text) <= 0)
            return std::nullopt;
        return QByteArray(text);
    }
    QByteArray bytes(sizeof(quint64), '\0'); // the largest; the same value has the same bytes
    if (sd_bus_message_read_basic(message, type, bytes.data()) <= 0)
        return std::nullopt;
    return bytes;
}

template <typename Number>
Number numberIn(const QByteArray& bytes)
{
    Number number{};
    std::memcpy(&number, bytes.constData(), sizeof number);
    return number;
}

} // namespace

std::optional<SdBusValue> SdBusValue::readVariant(sd_bus_message* message)
{
    char type = '\0';
    const char* contents = nullptr;
    if (sd_bus_message_peek_type(message, &type, &contents) <= 0 || type != SD_BUS_TYPE_VARIANT)
        return std::nullopt;
    SdBusValue value;
    value._signature = contents;
    if (sd_bus_message_enter_container(message, type, contents) <= 0 || !value._readNext(message, 0) ||
        sd_bus_message_exit_container(message) < 0)
        return std::nullopt;
    return value;
}

std::optional<bool> SdBusValue::truth() const
{
    return _signature == "b" ? std::optional(numberIn<int>(_parts.first().contents) != 0) : std::nullopt;
}

std::optional<QByteArray> SdBusValue::text() const
{
    return _signature == "s" ? std::optional(_parts.first().contents) : std::nullopt;
}

std::optional<std::pair<quint32, quint32>> SdBusValue::numbers() const
{
    if (_signature != "(uu)")
        return std::nullopt;
    return std::pair(numberIn<quint32>(_parts[1].contents), numberIn<quint32>(_parts[2].contents));
}

bool SdBusValue::_readNext(sd_bus_message* message, int depth)
{
    char type = '\0';
    const char* contents = nullptr;
    if (depth > MaximumDepth || _parts.size() >= MaximumParts ||
        sd_bus_message_peek_type(message, &type, &contents) <= 0)
        return false;
    if (!isContainer(type)) {
        const auto bytes = readBasic(message, type);
        if (bytes)
            _parts.append({type, *bytes});
        return bytes.has_value();
    }
    _parts.append({type, contents});
    if (sd_bus_message_enter_container(message, type, contents) <= 0 || !_readContents(message, depth + 1) ||
        sd_bus_message_exit_container(message) < 0)
        return false;
    _parts.append(Part());
    return true;
}

bool SdBusValue::_readContents(sd_bus_message* message, int depth)
{
    int atEnd = 0;
    while ((atEnd = sd_bus_message_at_end(message, 0)) == 0)
        if (!_readNext(message, depth))
            return false;
    return atEnd > 0;
}

bool SdBusValue::appendVariantTo(sd_bus_message* message) const
{
    if (sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, _signature.constData()) < 0)
        return false;
    for (const Part& part : _parts) {
        int result = 0;
        if (part.type == '\0')
            result = sd_bus_message_close_container(message);
        else if (isContainer(part.type))
            result = sd_bus_message_open_container(message, part.type, part.contents.constData());
        else
            result = sd_bus_message_append_basic(message, part.type, part.contents.constData());
        if (result < 0)
            return false;
    }
    return sd_bus_message_close_container(message) >= 0;
}

} // namespace tarnwick
