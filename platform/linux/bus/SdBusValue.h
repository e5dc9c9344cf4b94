// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <systemd/sd-bus.h>

#include <optional>

namespace tarnwick {

/// A D-Bus value of any type, kept as it came: to be compared, and to be sent back.
class SdBusValue
{
public:
    /// Longer values, or more deeply nested ones, are not taken.
    static constexpr qsizetype MaximumParts = 1000;
    static constexpr int MaximumDepth = 16;

    /// What the variant holds that comes next in the message. Nothing when there is no variant, or none that
    /// can be kept; the rest of the message cannot be read then.
    [[nodiscard]] static std::optional<SdBusValue> readVariant(sd_bus_message* message);

    [[nodiscard]] const QByteArray& signature() const { return _signature; }
    /// Nothing when it is of another type.
    [[nodiscard]] std::optional<bool> truth() const;
    [[nodiscard]] std::optional<QByteArray> text() const;
    /// Two numbers, as in "(uu)".
    [[nodiscard]] std::optional<std::pair<quint32, quint32>> numbers() const;

    /// Appends a variant that holds the value; false when the message does not take it.
    [[nodiscard]] bool appendVariantTo(sd_bus_message* message) const;

    friend bool operator==(const SdBusValue&, const SdBusValue&) = default;

private:
    /// A basic value, or the beginning or end of a container, in the order of the message.
    struct Part
    {
        char type = '\0';    ///< of a basic value or of the container that begins; '\0' where one ends
        QByteArray contents; ///< the value's bytes; a container's contents as a signature

        friend bool operator==(const Part&, const Part&) = default;
    };

    [[nodiscard]] bool _readNext(sd_bus_message* message, int depth);
    [[nodiscard]] bool _readContents(sd_bus_message* message, int depth);

    QByteArray _signature;
    QList<Part> _parts;
};

} // namespace tarnwick
