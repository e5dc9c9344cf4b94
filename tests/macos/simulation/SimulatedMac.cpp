// SPDX-License-Identifier: MIT
#include "tests/macos/simulation/SimulatedMac.h"

#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/MacState.h"

#include <algorithm>

namespace tarnwick {

SimulatedMac& SimulatedMac::instance()
{
    static SimulatedMac mac;
    return mac;
}

MacState& MacState::instance()
{
    static MacState state;
    return state;
}

void SimulatedMac::reset()
{
    *this = SimulatedMac();
    MacState::instance() = MacState();
    MacObjects::instance().clear();
}

AxNodeRef SimulatedMac::application(qint64 processIdentifier) const
{
    const auto found = std::find_if(applications.cbegin(), applications.cend(), [&](const AxNodeRef& each) {
        return each->processIdentifier == processIdentifier;
    });
    return found == applications.cend() ? nullptr : *found;
}

QStringList SimulatedMac::functionsCalled() const
{
    QStringList names;
    for (const Call& call : _calls)
        names.append(call.function);
    return names;
}

QStringList SimulatedMac::orderOf(const QStringList& functions) const
{
    QStringList names = functionsCalled();
    names.removeIf([&](const QString& name) { return !functions.contains(name); });
    return names;
}

QList<QVariantList> SimulatedMac::callsOf(const QString& function) const
{
    QList<QVariantList> found;
    for (const Call& call : _calls) {
        if (call.function == function)
            found.append(call.arguments);
    }
    return found;
}

QStringList SimulatedMac::unreleased() const
{
    QStringList names;
    for (const MacObject* object : MacObjects::instance().all()) {
        for (int i = 0; i < object->owned; ++i)
            names.append(object->madeBy);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<int> SimulatedMac::record(const QString& function, const QVariantList& arguments)
{
    const qsizetype place = _calls.size();
    _calls.append({function, arguments});
    if (const auto found = _failing.constFind(function); found != _failing.cend())
        return *found;
    return place == _failingCall ? std::optional(-1) : std::nullopt;
}

} // namespace tarnwick
