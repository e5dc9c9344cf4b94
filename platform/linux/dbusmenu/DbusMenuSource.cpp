// SPDX-License-Identifier: MIT
#include "platform/linux/dbusmenu/DbusMenuSource.h"

#include "platform/linux/bus/SdBus.h"
#include "platform/linux/dbusmenu/DbusMenuDecode.h"
#include "platform/linux/dbusmenu/DbusMenuHabits.h"
#include "platform/linux/dbusmenu/DbusMenuNormalForm.h"
#include "platform/linux/dbusmenu/DbusMenuPlace.h"
#include "platform/linux/menus/MenuPress.h"
#include "platform/linux/menus/UnmadeMenu.h"
#include "platform/linux/x11/X11ServerTime.h"

#include <utility>

namespace tarnwick {

using namespace dbus_menus;

namespace {

constexpr const char* Interface = "com.canonical.dbusmenu";
/// No menu is deeper. An entry may say that it holds itself.
constexpr qsizetype MaximumDepth = 32;
constexpr std::chrono::milliseconds Moment{20};
/// A program that is busy answers in the end. What was chosen waits for that, as any message would.
constexpr std::chrono::seconds LongestForAnAnswer{20};

bool appendProperties(sd_bus_message* call)
{
    if (sd_bus_message_open_container(call, SD_BUS_TYPE_ARRAY, "s") < 0)
        return false;
    for (const char* name : Properties)
        if (sd_bus_message_append_basic(call, SD_BUS_TYPE_STRING, name) < 0)
            return false;
    return sd_bus_message_close_container(call) >= 0;
}

/// Whether the program would have to open the menu to make its entries. A bar is there without that.
bool waitsForOpening(const DbusMenuLayout& layout, const DbusMenuPlace& place)
{
    return place.number != 0 && layout.menu.enabled && isUnmade(layout) &&
           !DbusMenuHabits::of(place).isToldOfOpening;
}

qint32 numberOf(const BusReference& item)
{
    const auto place = DbusMenuPlace::fromPath(item.path);
    return place ? place->number : 0;
}

/// Menu bars have no title, and some exporters do not send that of other menus.
bool isOfAnother(const DbusMenuEntry& menu, const DbusMenuPlace& place)
{
    return !place.way.isEmpty() && !menu.label.isEmpty() &&
           DbusMenuPlace::mark(DbusMenuHabits::of(place).titleOf(menu.label)) != place.way.last();
}

/// The answer to "GetGroupProperties" for one entry; nothing unless it tells of that one.
std::optional<DbusMenuEntry> factsOf(const BusReference& item, const QString& title, sd_bus_message* answer)
{
    const auto place = DbusMenuPlace::fromPath(item.path);
    auto entry = decodeProperties(answer);
    const bool isIt = entry && place && entry->number == place->number &&
                      DbusMenuHabits::of(*place).titleOf(entry->label) == title;
    return isIt ? std::move(entry) : std::nullopt;
}

} // namespace

BusReference DbusMenuSource::reference(const QByteArray& service, const QByteArray& path)
{
    const ReadingBudget::Reading reading(_budget);
    return _bus.connection(reading.deadline())
               ? BusReference{service, DbusMenuPlace{path, 0}.toPath(), _bus.number()}
               : BusReference();
}

std::optional<QList<MenuRow>> DbusMenuSource::readBar(const BusReference& bar)
{
    const auto justRead = std::exchange(_justRead, std::nullopt);
    const bool known = justRead && justRead->bar == bar && !justRead->until.passed();
    const ReadingBudget::Reading reading(_budget);
    auto rows = known ? justRead->rows : _read(bar, reading.deadline());
    if (rows)
        rows->removeIf([](const MenuRow& row) { return row.kind == MenuRow::Kind::Separator; });
    _ahead.setBar(bar, rows.value_or(QList<MenuRow>()));
    return rows;
}

bool DbusMenuSource::hasEntries(const BusReference& bar)
{
    const ReadingBudget::Reading reading(_budget);
    const auto rows = _read(bar, reading.deadline());
    if (rows)
        _justRead = {bar, *rows, Deadline::in(Moment)};
    return rows && !rows->isEmpty();
}

std::optional<QList<MenuRow>> DbusMenuSource::readMenu(const BusReference& contents)
{
    if (const auto* ahead = _ahead.of(contents))
        return *ahead;
    const ReadingBudget::Reading reading(_budget);
    if (auto rows = _read(contents, reading.deadline()))
        return rows;
    const BusReference again = _foundAgain(contents, reading.deadline());
    return again ? _read(again, reading.deadline()) : std::nullopt;
}

void DbusMenuSource::readAhead(const QByteArray& service, std::chrono::milliseconds most)
{
    const ReadingBudget::Reading reading(_budget);
    const Deadline deadline = reading.deadline().atMostIn(most);
    _ahead.read(service, deadline, [&](const QList<BusReference>& level) {
        MenusAhead::Answers answers;
        for (const BusReference& menu : level)
            answers.append(_read(menu, deadline));
        return answers;
    });
}

std::optional<QList<MenuRow>> DbusMenuSource::_read(const BusReference& menu, Deadline deadline)
{
    const auto place = DbusMenuPlace::fromPath(menu.path);
    if (!place || !_bus.stands(menu) || deadline.passed())
        return std::nullopt;
    const bool opens = place->number != 0; // a bar does not
    const qsizetype words =
        opens && DbusMenuHabits::of(*place).isToldOfOpening ? 1 : 0; // before the question
    std::optional<DbusMenuLayout> layout;
    _bus.standingConnection()->exchange(
        words + 1, [&](qsizetype index) { return index < words ? _aboutToShow(menu) : _layoutCall(menu); },
        [&](qsizetype index, sd_bus_message* reply) {
            if (index == words)
                layout = decodeLayout(reply);
        },
        deadline);
    if (words > 0 && _bus.stands(menu))
        _bus.standingConnection()->send(_closed(menu));
    if (!layout || isOfAnother(layout->menu, *place))
        return std::nullopt;
    if (waitsForOpening(*layout, *place))
        return QList<MenuRow>{UnmadeMenu::row()};
    return dbusMenuNormalForm(layout->entries, menu);
}

BusReference DbusMenuSource::_foundAgain(const BusReference& item, Deadline deadline)
{
    const auto place = DbusMenuPlace::fromPath(item.path);
    if (!place || place->way.isEmpty() || place->way.size() > MaximumDepth)
        return {};
    BusReference at = item;
    at.path = DbusMenuPlace{place->menu}.toPath();
    for (const QByteArray& next : place->way) {
        auto rows = _read(at, deadline).value_or(QList<MenuRow>());
        rows.removeIf([&next](const MenuRow& row) { return DbusMenuPlace::mark(row.title) != next; });
        if (rows.size() != 1)
            return {};
        at = rows.first().item;
    }
    return at;
}

SdBusMessage DbusMenuSource::_call(const BusReference& menu, const char* member)
{
    const auto place = DbusMenuPlace::fromPath(menu.path);
    if (!place || !_bus.stands(menu))
        return nullptr;
    SdBusMessage call = _bus.standingConnection()->methodCall(menu.service, place->menu, Interface, member);
    if (call)
        sd_bus_message_set_auto_start(call.get(), 0);
    return call;
}

SdBusMessage DbusMenuSource::_aboutToShow(const BusReference& menu)
{
    SdBusMessage call = _call(menu, "AboutToShow");
    if (call && sd_bus_message_append(call.get(), "i", numberOf(menu)) < 0)
        call.reset();
    return call;
}

SdBusMessage DbusMenuSource::_closed(const BusReference& menu)
{
    SdBusMessage call = _call(menu, "Event");
    if (call && sd_bus_message_append(call.get(), "isvu", numberOf(menu), "closed", "i", 0, 0) < 0)
        call.reset();
    return call;
}

SdBusMessage DbusMenuSource::_layoutCall(const BusReference& menu)
{
    SdBusMessage call = _call(menu, "GetLayout");
    if (call &&
        (sd_bus_message_append(call.get(), "ii", numberOf(menu), 1) < 0 || !appendProperties(call.get())))
        call.reset();
    return call;
}

struct DbusMenuSource::Press
{
    BusReference item; ///< empty once it is known that nothing can be pressed
    QString title;
    bool enabled;     ///< when it was chosen
    quint32 time;     ///< of the choice
    bool isIt = true; ///< as far as the program has answered
    bool answered = false;
    bool foundAgain = false;

    /// Whether it is not to be pressed yet.
    bool waits(sd_bus_message* answer)
    {
        const auto facts = factsOf(item, title, answer);
        answered = true;
        isIt = facts.has_value();
        if (!isIt && foundAgain)
            item = {};
        return item && (!isIt || (enabled && !facts->enabled));
    }
};

bool DbusMenuSource::press(const MenuRow& row)
{
    if (row.kind != MenuRow::Kind::Item || !_bus.stands(row.item))
        return false;
    const auto press = std::make_shared<Press>(Press{row.item, row.title, row.enabled, x11ServerTime()});
    const MenuPressCalls calls{
        [this] { return _bus.standingConnection(); },
        [this, press] { return _questionOf(*press); },
        [press](sd_bus_message* answer) { return press->waits(answer); },
        [this, press] {
            return press->answered && press->isIt ? _click(press->item, press->time) : SdBusMessage();
        },
    };
    return MenuPress::startOnceAnswered(calls, LongestForAnAnswer, &_presses);
}

SdBusMessage DbusMenuSource::_questionOf(Press& press)
{
    if (!press.isIt) {
        const ReadingBudget::Reading reading(_budget);
        press.item = _foundAgain(press.item, reading.deadline());
        press.foundAgain = true;
    }
    return press.item ? _question(press.item) : nullptr;
}

bool DbusMenuSource::isDisabledNow(const MenuRow& row, Deadline deadline)
{
    if (!_bus.stands(row.item))
        return false;
    bool disabled = false;
    _bus.standingConnection()->exchange(
        1, [&](qsizetype /*index*/) { return _question(row.item); },
        [&](qsizetype /*index*/, sd_bus_message* reply) {
            const auto facts = factsOf(row.item, row.title, reply);
            disabled = facts && !facts->enabled;
        },
        deadline);
    return disabled;
}

SdBusMessage DbusMenuSource::_question(const BusReference& item)
{
    SdBusMessage call = _call(item, "GetGroupProperties");
    if (call && sd_bus_message_append(call.get(), "aias", 1, numberOf(item), 2, "label", "enabled") < 0)
        call.reset();
    return call;
}

SdBusMessage DbusMenuSource::_click(const BusReference& item, quint32 time)
{
    SdBusMessage call = _call(item, "Event");
    if (call && sd_bus_message_append(call.get(), "isvu", numberOf(item), "clicked", "i", 0, time) < 0)
        call.reset();
    return call;
}

} // namespace tarnwick
