// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiBus.h"

#include <QHash>

namespace tarnwick {

/// The applications on the accessibility bus. This process is not among them: it must never ask itself.
class AtspiApplications
{
public:
    explicit AtspiApplications(AtspiBus& bus) : _bus(bus) {}

    /// The root objects of all applications; nothing when the registry does not answer.
    [[nodiscard]] std::optional<QList<BusReference>> roots(Deadline deadline);
    /// Those of one process, usually one.
    [[nodiscard]] QList<BusReference> rootsOf(qint64 processIdentifier, Deadline deadline);

    /// The windows of these applications with their names and states, in order.
    [[nodiscard]] QList<AtspiFacts> windowsOf(const QList<BusReference>& roots, Deadline deadline);
    /// What one object says of itself now; nothing when it does not by the deadline.
    [[nodiscard]] std::optional<quint64> statesOf(const BusReference& object, Deadline deadline);
    /// The process of an object of an application whose root has been seen.
    [[nodiscard]] std::optional<qint64> processOf(const BusReference& object) const;

private:
    AtspiBus& _bus;
    QHash<BusReference, qint64> _processes; ///< of roots seen so far
};

} // namespace tarnwick
