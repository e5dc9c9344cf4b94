// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiApplications.h"

#include "platform/linux/atspi/AtspiConstants.h"

#include <QCoreApplication>

namespace tarnwick {

namespace {

/// More windows than this are not looked at.
constexpr qsizetype MaximumWindows = 200;

} // namespace

std::optional<QList<BusReference>> AtspiApplications::roots(Deadline deadline)
{
    if (!_bus.connection(deadline))
        return std::nullopt;
    const BusReference registry = _bus.root(atspi::RegistryService);
    const auto roots = _bus.facts(registry, {AtspiQuestion::Children}, deadline).children;
    if (!roots)
        return std::nullopt;

    QHash<BusReference, qint64> processes;
    QList<AtspiFacts> strangers;
    for (const BusReference& root : *roots) {
        const auto known = _processes.constFind(root);
        if (known != _processes.cend())
            processes.insert(root, *known);
        else
            strangers.append({.reference = root});
    }
    QList<AtspiInquiry> inquiries;
    for (AtspiFacts& stranger : strangers)
        inquiries.append({&stranger, AtspiQuestion::ProcessIdentifier});
    _bus.ask(inquiries, deadline);
    for (const AtspiFacts& stranger : strangers)
        if (stranger.processIdentifier)
            processes.insert(stranger.reference, *stranger.processIdentifier);
    _processes = processes;

    const qint64 ourselves = QCoreApplication::applicationPid();
    QList<BusReference> others = *roots;
    others.removeIf([this, ourselves](const BusReference& root) {
        return _processes.value(root, ourselves) == ourselves;
    });
    return others;
}

QList<BusReference> AtspiApplications::rootsOf(qint64 processIdentifier, Deadline deadline)
{
    QList<BusReference> found = roots(deadline).value_or(QList<BusReference>());
    found.removeIf([&](const BusReference& root) { return _processes.value(root) != processIdentifier; });
    return found;
}

QList<AtspiFacts> AtspiApplications::windowsOf(const QList<BusReference>& roots, Deadline deadline)
{
    QList<AtspiFacts> applications;
    for (const BusReference& root : roots)
        applications.append({.reference = root});
    QList<AtspiFacts> windows = _bus.childrenOf(applications, MaximumWindows, deadline);
    QList<AtspiInquiry> inquiries;
    for (AtspiFacts& window : windows)
        for (const auto question : {AtspiQuestion::Name, AtspiQuestion::States})
            inquiries.append({&window, question});
    _bus.ask(inquiries, deadline);
    return windows;
}

std::optional<quint64> AtspiApplications::statesOf(const BusReference& object, Deadline deadline)
{
    return _bus.facts(object, {AtspiQuestion::States}, deadline).states;
}

std::optional<qint64> AtspiApplications::processOf(const BusReference& object) const
{
    for (auto known = _processes.cbegin(); known != _processes.cend(); ++known)
        if (known.key().service == object.service && known.key().connection == object.connection)
            return known.value();
    return std::nullopt;
}

} // namespace tarnwick
