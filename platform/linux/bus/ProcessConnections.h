// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusObject.h"
#include "platform/linux/bus/Deadline.h"

#include <QByteArrayList>
#include <QHash>

namespace tarnwick {

class SdBus;

/// The names of the connections that a process has to the bus; those that are known by the deadline. Not more
/// than 1,000 connections are looked at.
[[nodiscard]] QByteArrayList connectionsOf(qint64 processIdentifier, SdBus& bus, Deadline deadline);

/// Asks the objects of one connection what there is: those that answer by the deadline, by their paths.
[[nodiscard]] QHash<QByteArray, BusObject> introspect(const QByteArray& service, const QByteArrayList& paths,
                                                      SdBus& bus, Deadline deadline);

} // namespace tarnwick
