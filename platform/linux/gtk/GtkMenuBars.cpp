// SPDX-License-Identifier: MIT
#include "platform/linux/gtk/GtkMenuBars.h"

#include "platform/linux/x11/X11Property.h"

namespace tarnwick {

namespace {

QByteArray textOf(X11Property& property)
{
    const QByteArray bytes = property.text().value_or(QByteArray());
    return QByteArray(bytes.constData()); // nothing after a zero
}

QByteArray pathOf(X11Property& property)
{
    const QByteArray name = textOf(property);
    return sd_bus_object_path_is_valid(name.constData()) > 0 ? name : QByteArray();
}

/// Windows of other kinds are counted as well, and have no number.
std::optional<quint32> windowAt(const WindowPosition& position, const QList<quint32>& numbers)
{
    if (numbers.size() == position.count && position.index >= 0 && position.index < position.count)
        return numbers[position.index];
    return numbers.size() == 1 ? std::optional(numbers.first()) : std::nullopt;
}

} // namespace

BusReference GtkMenuBars::ofWindow(xcb_window_t window)
{
    X11Property menus(_x11, window, "_GTK_MENUBAR_OBJECT_PATH");
    X11Property name(_x11, window, "_GTK_UNIQUE_BUS_NAME");
    X11Property applicationActions(_x11, window, "_GTK_APPLICATION_OBJECT_PATH");
    X11Property windowActions(_x11, window, "_GTK_WINDOW_OBJECT_PATH");
    X11Property moduleActions(_x11, window, "_UNITY_OBJECT_PATH");
    const QByteArray service = textOf(name);
    GtkMenuPlace place;
    place.menus = pathOf(menus);
    place.applicationActions = pathOf(applicationActions);
    place.windowActions = pathOf(windowActions);
    place.moduleActions = pathOf(moduleActions);
    if (place.menus.isEmpty() || !service.startsWith(':') ||
        sd_bus_service_name_is_valid(service.constData()) <= 0)
        return {};
    return _source.reference(service, place);
}

bool GtkMenuBars::isOfModule(const BusReference& bar)
{
    const auto place = GtkMenuPlace::fromPath(bar.path);
    return place && !place->moduleActions.isEmpty();
}

BusReference GtkMenuBars::ofProcess(qint64 processIdentifier, const WindowPosition& position)
{
    const auto application = _applications.of(processIdentifier);
    if (!application || !application->exportsMenuBar)
        return {};
    GtkMenuPlace place;
    place.menus = application->menuBarPath();
    place.applicationActions = application->path;
    if (const auto window = windowAt(position, application->windows))
        place.windowActions = application->windowPath(*window);
    return _source.reference(application->service, place);
}

} // namespace tarnwick
