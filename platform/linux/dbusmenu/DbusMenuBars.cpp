// SPDX-License-Identifier: MIT
#include "platform/linux/dbusmenu/DbusMenuBars.h"

#include "platform/linux/bus/ProcessConnections.h"
#include "platform/linux/bus/SdBus.h"

#include <utility>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

constexpr const char* Registrar = "com.canonical.AppMenu.Registrar";
constexpr const char* RegistrarPath = "/com/canonical/AppMenu/Registrar";
/// Below it menus are exported by programs that wait for nobody to collect them.
constexpr const char* Unasked = "/com/canonical/menu";
constexpr qsizetype MaximumProcesses = 200;
/// A process that exports something only a moment later is looked at again.
constexpr auto NotYet = 3s;
/// For all questions of one kind: the menus themselves are yet to be read in the same half second. A
/// collector that has not answered by then is asked again after NotYet.
constexpr auto MostForAsking = 200ms;

SdBusMessage questionFor(xcb_window_t window, SdBus& bus)
{
    SdBusMessage call = bus.methodCall(Registrar, RegistrarPath, Registrar, "GetMenuForWindow");
    if (call && (sd_bus_message_set_auto_start(call.get(), 0) < 0 ||
                 sd_bus_message_append(call.get(), "u", window) < 0))
        call.reset();
    return call;
}

} // namespace

BusReference DbusMenuBars::ofWindow(xcb_window_t window)
{
    if (_silentUntil && !_silentUntil->passed())
        return {};
    const ReadingBudget::Reading reading(_budget);
    const Deadline deadline = reading.deadline().atMostIn(MostForAsking);
    SdBus* bus = _bus.connection(deadline);
    if (!bus || deadline.passed())
        return {};
    const SdBusMessage answer = bus->call(questionFor(window, *bus), deadline);
    _silentUntil = !answer && deadline.passed() ? std::optional(Deadline::in(NotYet)) : std::nullopt;
    const char* service = nullptr;
    const char* path = nullptr;
    if (!answer || sd_bus_message_read(answer.get(), "so", &service, &path) <= 0)
        return {};
    return at(service, path);
}

BusReference DbusMenuBars::at(const QByteArray& service, const QByteArray& path)
{
    // A name that another program may have next is nobody's. The root stands for no menu.
    if (!service.startsWith(':') || sd_bus_service_name_is_valid(service.constData()) <= 0 ||
        sd_bus_object_path_is_valid(path.constData()) <= 0 || path == "/")
        return {};
    return _source.reference(service, path);
}

BusReference DbusMenuBars::ofProcess(qint64 processIdentifier)
{
    const ReadingBudget::Reading reading(_budget);
    const Deadline deadline = reading.deadline().atMostIn(MostForAsking);
    if (!_bus.connection(deadline))
        return {};
    QList<std::pair<QByteArray, QByteArray>> exported;
    const QByteArrayList connections = _connectionsOf(processIdentifier, deadline);
    for (const QByteArray& service : connections) {
        SdBus* bus = _bus.standingConnection();
        if (!bus)
            return {};
        const BusObject object = introspect(service, {Unasked}, *bus, deadline).value(Unasked);
        for (const QByteArray& name : object.children)
            if (const QByteArray path = childPath(Unasked, name); !path.isEmpty())
                exported.append({service, path});
    }
    if (deadline.passed()) // one that has not answered may export the second
        return {};
    if (exported.isEmpty() && !connections.isEmpty())
        _exporters.insert(processIdentifier, {{}, Deadline::in(NotYet)});
    return exported.size() == 1 ? at(exported.first().first, exported.first().second) : BusReference();
}

QByteArrayList DbusMenuBars::_connectionsOf(qint64 processIdentifier, Deadline deadline)
{
    if (std::exchange(_connection, _bus.number()) != _bus.number() || _exporters.size() >= MaximumProcesses)
        _exporters.clear();
    const auto known = _exporters.constFind(processIdentifier);
    if (known != _exporters.cend() && !(known->until && known->until->passed()))
        return known->connections;
    QByteArrayList connections = connectionsOf(processIdentifier, *_bus.standingConnection(), deadline);
    _exporters.insert(
        processIdentifier,
        {connections, connections.isEmpty() ? std::optional(Deadline::in(NotYet)) : std::nullopt});
    return connections;
}

} // namespace tarnwick
