// SPDX-License-Identifier: MIT
#include "platform/linux/gtk/GtkApplications.h"

#include "platform/linux/bus/ProcessConnections.h"
#include "platform/linux/bus/SdBus.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

/// More objects of one connection than this are not looked at.
constexpr qsizetype MaximumObjects = 100;
constexpr qsizetype MaximumPlaces = 200;
/// A process that is on the bus only a moment later is looked for again.
constexpr auto NotYet = 3s;

QList<quint32> numbersIn(const QByteArrayList& names)
{
    QList<quint32> numbers;
    for (const QByteArray& name : names) {
        bool isNumber = false;
        const quint32 number = name.toUInt(&isNumber);
        if (isNumber)
            numbers.append(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

} // namespace

std::optional<GtkApplication> GtkApplications::of(qint64 processIdentifier)
{
    const ReadingBudget::Reading reading(_budget);
    const Place place = _placeOf(processIdentifier, reading.deadline());
    if (!place)
        return std::nullopt;
    GtkApplication application{place.service, place.path, {}, false};
    const QByteArray windows = place.path + "/window";
    const auto objects =
        _look(place.service, {place.path, application.menuBarPath(), windows}, reading.deadline());
    if (!objects.contains(place.path)) { // it has gone, or it does not answer
        _places.remove(processIdentifier);
        return std::nullopt;
    }
    application.exportsMenuBar =
        objects.value(application.menuBarPath()).interfaces.contains("org.gtk.Menus");
    application.windows = numbersIn(objects.value(windows).children);
    return application;
}

GtkApplications::Place GtkApplications::_placeOf(qint64 processIdentifier, Deadline deadline)
{
    if (!_bus.connection(deadline))
        return {};
    if (std::exchange(_connection, _bus.number()) != _bus.number() || _places.size() >= MaximumPlaces)
        _places.clear();
    const auto known = _places.constFind(processIdentifier);
    if (known != _places.cend() && !(known->until && known->until->passed()))
        return *known;
    return *_places.insert(processIdentifier, _search(processIdentifier, deadline));
}

GtkApplications::Place GtkApplications::_search(qint64 processIdentifier, Deadline deadline)
{
    for (const QByteArray& service : connectionsOf(processIdentifier, *_bus.standingConnection(), deadline))
        if (const QByteArray path = _applicationPath(service, deadline); !path.isEmpty())
            return {service, path, std::nullopt};
    return {{}, {}, Deadline::in(NotYet)};
}

/// Level by level: a program has few objects above that one.
QByteArray GtkApplications::_applicationPath(const QByteArray& service, Deadline deadline)
{
    QByteArrayList level{"/"};
    for (qsizetype seen = 0; !level.isEmpty() && seen + level.size() <= MaximumObjects;) {
        const auto objects = _look(service, level, deadline);
        seen += level.size();
        QByteArrayList below;
        for (const QByteArray& path : std::as_const(level)) {
            const BusObject object = objects.value(path);
            if (object.interfaces.contains("org.gtk.Application"))
                return path;
            for (const QByteArray& name : object.children)
                if (const QByteArray child = childPath(path, name); !child.isEmpty())
                    below.append(child);
        }
        level = below;
    }
    return {};
}

QHash<QByteArray, BusObject> GtkApplications::_look(const QByteArray& service, const QByteArrayList& paths,
                                                    Deadline deadline)
{
    SdBus* bus = _bus.standingConnection();
    return bus ? introspect(service, paths, *bus, deadline) : QHash<QByteArray, BusObject>();
}

} // namespace tarnwick
