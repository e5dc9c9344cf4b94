// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiDecode.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/bus/BusText.h"

#include <cstring>

namespace tarnwick::atspi {

namespace {

/// Reads one value of the basic type `type` out of a variant.
template <typename Value>
std::optional<Value> variantOf(sd_bus_message* reply, char type)
{
    const char contents[] = {type, '\0'};
    Value value{};
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_VARIANT, contents) <= 0 ||
        sd_bus_message_read_basic(reply, type, &value) <= 0)
        return std::nullopt;
    return value;
}

/// Nothing also at the end of an array.
std::optional<BusReference> nextReference(sd_bus_message* reply, int connection)
{
    const char* service = nullptr;
    const char* path = nullptr;
    if (sd_bus_message_read(reply, "(so)", &service, &path) <= 0)
        return std::nullopt;
    if (std::strcmp(path, NullPath) == 0 || *service == '\0')
        return BusReference{};
    return BusReference{service, path, connection};
}

} // namespace

std::optional<QString> decodeText(sd_bus_message* reply)
{
    const char* bytes = nullptr;
    if (sd_bus_message_read_basic(reply, SD_BUS_TYPE_STRING, &bytes) <= 0)
        return std::nullopt;
    return cutText(bytes);
}

std::optional<QString> decodeTextProperty(sd_bus_message* reply)
{
    const auto bytes = variantOf<const char*>(reply, SD_BUS_TYPE_STRING);
    return bytes ? std::optional(cutText(*bytes)) : std::nullopt;
}

std::optional<int> decodeNumberProperty(sd_bus_message* reply)
{
    return variantOf<std::int32_t>(reply, SD_BUS_TYPE_INT32);
}

std::optional<bool> decodeFlagProperty(sd_bus_message* reply)
{
    const auto flag = variantOf<int>(reply, SD_BUS_TYPE_BOOLEAN);
    return flag ? std::optional(*flag != 0) : std::nullopt;
}

std::optional<quint32> decodeUnsigned(sd_bus_message* reply)
{
    std::uint32_t value = 0;
    if (sd_bus_message_read_basic(reply, SD_BUS_TYPE_UINT32, &value) <= 0)
        return std::nullopt;
    return value;
}

std::optional<bool> decodeArea(sd_bus_message* reply)
{
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    if (sd_bus_message_read(reply, "(iiii)", &x, &y, &width, &height) <= 0)
        return std::nullopt;
    return width > 0 && height > 0;
}

std::optional<quint64> decodeStates(sd_bus_message* reply)
{
    const void* words = nullptr;
    std::size_t bytes = 0;
    if (sd_bus_message_read_array(reply, SD_BUS_TYPE_UINT32, &words, &bytes) < 0)
        return std::nullopt;
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    if (bytes < sizeof low)
        return std::nullopt;
    std::memcpy(&low, words, sizeof low);
    if (bytes >= sizeof low + sizeof high)
        std::memcpy(&high, static_cast<const char*>(words) + sizeof low, sizeof high);
    return quint64{high} << 32U | low;
}

std::optional<BusReference> decodeReference(sd_bus_message* reply, int connection)
{
    return nextReference(reply, connection);
}

std::optional<QList<BusReference>> decodeReferences(sd_bus_message* reply, int connection)
{
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "(so)") <= 0)
        return std::nullopt;
    QList<BusReference> references;
    for (qsizetype count = 0; count < MaximumChildren; ++count) {
        const auto reference = nextReference(reply, connection);
        if (!reference)
            break;
        if (*reference)
            references.append(*reference);
    }
    return references;
}

} // namespace tarnwick::atspi
