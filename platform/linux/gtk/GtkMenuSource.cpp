// SPDX-License-Identifier: MIT
#include "platform/linux/gtk/GtkMenuSource.h"

#include "platform/linux/bus/SdBus.h"
#include "platform/linux/gtk/GtkMenuDecode.h"
#include "platform/linux/menus/MenuPress.h"
#include "platform/linux/x11/X11ServerTime.h"

#include <QCoreApplication>

namespace tarnwick {

using namespace gtk_menus;

namespace {

constexpr const char* MenusInterface = "org.gtk.Menus";
constexpr const char* ActionsInterface = "org.gtk.Actions";
/// Sections are in the group of their menu. One in another group, or a chain of such, costs a round trip
/// each.
constexpr int MaximumRounds = 4;
constexpr qsizetype MaximumGroups = 100;
/// Menus in one another.
constexpr int MaximumDepth = 16;
/// After this a bar that was read is read again.
constexpr auto Moment = std::chrono::milliseconds(20);

/// Without those that are known.
QSet<quint32> groupsOf(const QList<GtkMenuNumber>& menus, const QSet<quint32>& known)
{
    QSet<quint32> groups;
    for (const GtkMenuNumber& menu : menus)
        if (groups.size() < MaximumGroups && !known.contains(menu.group))
            groups.insert(menu.group);
    return groups;
}

/// What the entries lead to.
QList<GtkMenuNumber> linkedIn(const GtkMenus& menus)
{
    QList<GtkMenuNumber> linked;
    for (const QList<GtkMenuEntry>& entries : menus)
        for (const GtkMenuEntry& entry : entries)
            for (const auto& link : {entry.section, entry.submenu})
                if (link)
                    linked.append(*link);
    return linked;
}

bool saysDisabled(sd_bus_message* answer)
{
    const auto facts = decodeAction(answer);
    return facts && !facts->enabled;
}

/// What a new window needs to come to the front: when the user chose, in the server's time.
QByteArray startupIdentifier()
{
    const QByteArray time = QByteArray::number(x11ServerTime());
    return "tarnwick-" + QByteArray::number(QCoreApplication::applicationPid()) + '-' + time + "_TIME" + time;
}

/// The dictionary of platform data.
bool appendStartup(sd_bus_message* call)
{
    return sd_bus_message_append(call, "a{sv}", 1, "desktop-startup-id", "s",
                                 startupIdentifier().constData()) >= 0;
}

/// The array of at most one parameter.
bool appendParameter(sd_bus_message* call, const std::optional<SdBusValue>& parameter)
{
    return sd_bus_message_open_container(call, SD_BUS_TYPE_ARRAY, "v") >= 0 &&
           (!parameter || parameter->appendVariantTo(call)) && sd_bus_message_close_container(call) >= 0;
}

} // namespace

struct GtkMenuSource::Reading
{
    QByteArray service;
    GtkMenuPlace place;
    GtkMenus menus;
    GtkActionGroups actions;
    QSet<quint32> groups; ///< asked for so far
};

BusReference GtkMenuSource::reference(const QByteArray& service, const GtkMenuPlace& place)
{
    const ReadingBudget::Reading reading(_budget);
    return _bus.connection(reading.deadline()) ? BusReference{service, place.toPath(), _bus.number()}
                                               : BusReference();
}

std::optional<QList<MenuRow>> GtkMenuSource::readBar(const BusReference& bar)
{
    const auto justRead = std::exchange(_justRead, std::nullopt);
    const bool known = justRead && justRead->bar == bar && !justRead->until.passed();
    auto rows = known ? justRead->rows : _readNow(bar);
    if (rows) // as in a bar of the toolkit's own
        rows->removeIf([](const MenuRow& row) { return row.kind == MenuRow::Kind::Separator; });
    _ahead.setBar(bar, rows.value_or(QList<MenuRow>()));
    return rows;
}

bool GtkMenuSource::isEmpty(const BusReference& bar)
{
    const auto rows = _readNow(bar);
    if (rows)
        _justRead = {bar, *rows, Deadline::in(Moment)};
    return rows && rows->isEmpty();
}

bool GtkMenuSource::lookAtAll(const BusReference& bar, std::chrono::milliseconds most)
{
    const ReadingBudget::Reading budget(_budget);
    const Deadline deadline = budget.deadline().atMostIn(most);
    const auto place = GtkMenuPlace::fromPath(bar.path);
    if (!place || !_bus.stands(bar))
        return false;
    Reading reading{bar.service, *place, {}, {}, {}};
    QSet<quint32> groups{place->number.group};
    bool answered = false;
    for (int depth = 0; depth < MaximumDepth && !groups.isEmpty(); ++depth) {
        reading.menus.clear();
        _look(reading, groups, {}, deadline);
        answered = answered || !reading.menus.isEmpty();
        groups = groupsOf(linkedIn(reading.menus), reading.groups);
    }
    return answered && !deadline.passed();
}

std::optional<QList<MenuRow>> GtkMenuSource::readMenu(const BusReference& contents)
{
    const auto* ahead = _ahead.of(contents);
    return ahead ? *ahead : _readNow(contents);
}

void GtkMenuSource::readAhead(const QByteArray& service, std::chrono::milliseconds most)
{
    const ReadingBudget::Reading budget(_budget);
    const Deadline deadline = budget.deadline().atMostIn(most);
    Reading reading{service, {}, {}, {}, {}};
    _ahead.read(service, deadline,
                [&](const QList<BusReference>& level) { return _readLevel(reading, level, deadline); });
}

MenusAhead::Answers GtkMenuSource::_readLevel(Reading& reading, const QList<BusReference>& menus,
                                              Deadline deadline)
{
    const QList<Place> places = _placesOf(menus);
    if (!places.isEmpty())
        reading.place = places.first().second;
    _readMenus(reading, places, deadline);
    MenusAhead::Answers answers;
    for (const BusReference& menu : menus) {
        const auto place = GtkMenuPlace::fromPath(menu.path);
        const bool isRead = place && reading.menus.contains(place->number);
        answers.append(isRead ? std::optional(gtkNormalForm(reading.menus, *place, reading.actions, menu))
                              : std::nullopt);
    }
    return answers;
}

QList<GtkMenuSource::Place> GtkMenuSource::_placesOf(const QList<BusReference>& menus) const
{
    QList<Place> places;
    for (const BusReference& menu : menus)
        if (const auto place = GtkMenuPlace::fromPath(menu.path); place && _bus.stands(menu))
            places.append({menu, *place});
    return places;
}

std::optional<QList<MenuRow>> GtkMenuSource::_readNow(const BusReference& menu)
{
    const ReadingBudget::Reading budget(_budget);
    const QList<Place> places = _placesOf({menu});
    if (places.isEmpty())
        return std::nullopt;
    const GtkMenuPlace& place = places.first().second;
    Reading reading{menu.service, place, {}, {}, {}};
    _readMenus(reading, places, budget.deadline());
    if (!reading.menus.contains(place.number))
        return std::nullopt;
    return gtkNormalForm(reading.menus, place, reading.actions, menu);
}

void GtkMenuSource::_readMenus(Reading& reading, const QList<Place>& places, Deadline deadline)
{
    for (int round = 0; round < MaximumRounds; ++round) {
        QList<GtkMenuNumber> missing;
        for (const auto& [menu, place] : places)
            missing += missingSections(reading.menus, place.number);
        const QSet<quint32> groups = groupsOf(missing, reading.groups);
        if (groups.isEmpty())
            return;
        _read(reading, groups, deadline);
    }
}

void GtkMenuSource::_read(Reading& reading, const QSet<quint32>& groups, Deadline deadline)
{
    const GtkMenuPlace& place = reading.place;
    QByteArrayList paths;
    for (const QByteArray& path : {place.applicationActions, place.windowActions, place.moduleActions})
        if (!path.isEmpty() && !reading.actions.contains(path) && !paths.contains(path))
            paths.append(path);
    _look(reading, groups, paths, deadline);
}

void GtkMenuSource::_look(Reading& reading, const QSet<quint32>& groups, const QByteArrayList& actions,
                          Deadline deadline)
{
    SdBus* bus = _bus.standingConnection();
    if (!bus || deadline.passed())
        return;
    bus->exchange(
        1 + actions.size(),
        [&](qsizetype index) {
            return index == 0 ? _groupCall(reading, "Start", groups)
                              : _call(reading, ActionsInterface, "DescribeAll", actions[index - 1]);
        },
        [&](qsizetype index, sd_bus_message* reply) {
            if (index == 0)
                decodeMenus(reply, reading.menus);
            else
                reading.actions.insert(actions[index - 1], decodeActions(reply));
        },
        deadline);
    bus->send(_groupCall(reading, "End", groups));
    reading.groups += groups;
}

SdBusMessage GtkMenuSource::_call(const Reading& reading, const char* interface, const char* member,
                                  const QByteArray& path)
{
    SdBus* bus = _bus.standingConnection();
    SdBusMessage call = bus ? bus->methodCall(reading.service, path, interface, member) : nullptr;
    if (call)
        sd_bus_message_set_auto_start(call.get(), 0);
    return call;
}

SdBusMessage GtkMenuSource::_groupCall(const Reading& reading, const char* member,
                                       const QSet<quint32>& groups)
{
    SdBusMessage call = _call(reading, MenusInterface, member, reading.place.menus);
    const QList<quint32> numbers(groups.cbegin(), groups.cend());
    if (call && sd_bus_message_append_array(call.get(), SD_BUS_TYPE_UINT32, numbers.constData(),
                                            static_cast<std::size_t>(numbers.size()) * sizeof(quint32)) < 0)
        call.reset();
    return call;
}

bool GtkMenuSource::press(const MenuRow& row)
{
    if (!row.action || !_bus.stands(row.item))
        return false;
    const MenuPressCalls calls{
        [this] { return _bus.standingConnection(); },
        [this, row] { return _actionCall(row, "Describe"); },
        saysDisabled,
        [this, row] { return _activation(row); },
    };
    return MenuPress::start(calls, row.enabled, &_presses);
}

bool GtkMenuSource::isDisabledNow(const MenuRow& row, Deadline deadline)
{
    if (!row.action || !_bus.stands(row.item))
        return false;
    bool disabled = false;
    _bus.standingConnection()->exchange(
        1, [&](qsizetype /*index*/) { return _actionCall(row, "Describe"); },
        [&](qsizetype /*index*/, sd_bus_message* reply) { disabled = saysDisabled(reply); }, deadline);
    return disabled;
}

SdBusMessage GtkMenuSource::_actionCall(const MenuRow& row, const char* member)
{
    if (!_bus.stands(row.item))
        return nullptr;
    SdBusMessage call =
        _bus.standingConnection()->methodCall(row.item.service, row.action->path, ActionsInterface, member);
    if (!call || sd_bus_message_set_auto_start(call.get(), 0) < 0 ||
        sd_bus_message_append(call.get(), "s", row.action->name.constData()) < 0)
        return nullptr;
    return call;
}

SdBusMessage GtkMenuSource::_activation(const MenuRow& row)
{
    SdBusMessage call = _actionCall(row, "Activate");
    if (call && !(appendParameter(call.get(), row.action->target) && appendStartup(call.get())))
        call.reset();
    return call;
}

} // namespace tarnwick
