// SPDX-License-Identifier: MIT
#include "platform/linux/GtkMenuBars.h"

namespace tarnwick {

BusReference GtkMenuBars::ofWindow(xcb_window_t window)
{
    const auto text = [&](const QByteArray& property) {
        const QByteArray bytes = _x11.propertyText(window, property).value_or(QByteArray());
        return QByteArray(bytes.constData()); // nothing after a zero
    };
    const auto path = [&](const QByteArray& property) {
        const QByteArray name = text(property);
        return sd_bus_object_path_is_valid(name.constData()) > 0 ? name : QByteArray();
    };
    GtkMenuPlace place;
    place.menus = path("_GTK_MENUBAR_OBJECT_PATH");
    if (place.menus.isEmpty())
        return {};
    const QByteArray service = text("_GTK_UNIQUE_BUS_NAME");
    if (!service.startsWith(':') || sd_bus_service_name_is_valid(service.constData()) <= 0)
        return {};
    place.applicationActions = path("_GTK_APPLICATION_OBJECT_PATH");
    place.windowActions = path("_GTK_WINDOW_OBJECT_PATH");
    return _source.reference(service, place);
}

} // namespace tarnwick
