// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusReference.h"

#include <QList>
#include <QString>
#include <systemd/sd-bus.h>

#include <optional>

/// Reads replies of other programs, which may hold anything: a wrong type, a reply that is cut off and text
/// that is no UTF-8 give nothing.
namespace tarnwick::atspi {

inline constexpr qsizetype MaximumChildren = 20'000;

/// A plain string, cut as cutText() does.
[[nodiscard]] std::optional<QString> decodeText(sd_bus_message* reply);
/// A string in a variant, as a property is answered.
[[nodiscard]] std::optional<QString> decodeTextProperty(sd_bus_message* reply);
[[nodiscard]] std::optional<int> decodeNumberProperty(sd_bus_message* reply);
[[nodiscard]] std::optional<bool> decodeFlagProperty(sd_bus_message* reply);
/// Whether a rectangle (x, y, width, height) is one.
[[nodiscard]] std::optional<bool> decodeArea(sd_bus_message* reply);
[[nodiscard]] std::optional<quint32> decodeUnsigned(sd_bus_message* reply);
/// Two words, the lower one first; a missing upper word counts as 0.
[[nodiscard]] std::optional<quint64> decodeStates(sd_bus_message* reply);
/// References are of the given connection. The null object, or one with an empty service, gives an empty
/// reference.
[[nodiscard]] std::optional<BusReference> decodeReference(sd_bus_message* reply, int connection);
/// Null objects are left out; what comes after the 20,000th is cut off.
[[nodiscard]] std::optional<QList<BusReference>> decodeReferences(sd_bus_message* reply, int connection);

} // namespace tarnwick::atspi
