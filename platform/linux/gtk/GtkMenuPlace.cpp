// SPDX-License-Identifier: MIT
#include "platform/linux/gtk/GtkMenuPlace.h"

namespace tarnwick {

namespace {

// No object path holds one.
constexpr char Between = ' ';

} // namespace

QByteArray GtkMenuPlace::toPath() const
{
    return QByteArrayList{menus,
                          applicationActions,
                          windowActions,
                          moduleActions,
                          QByteArray::number(number.group),
                          QByteArray::number(number.menu),
                          actionNamespace}
        .join(Between);
}

std::optional<GtkMenuPlace> GtkMenuPlace::fromPath(const QByteArray& path)
{
    const QByteArrayList parts = path.split(Between);
    if (parts.size() < 7)
        return std::nullopt;
    return GtkMenuPlace{
        parts[0], parts[1], parts[2], {parts[4].toUInt(), parts[5].toUInt()}, parts.mid(6).join(Between),
        parts[3]};
}

std::optional<GtkMenuAction> GtkMenuPlace::find(const QByteArray& action, const QByteArray& within) const
{
    const QByteArray full = within.isEmpty() ? action : within + '.' + action;
    const qsizetype dot = full.indexOf('.');
    const QByteArrayView prefix = QByteArrayView(full).first(std::max<qsizetype>(dot, 0));
    QByteArray path;
    if (prefix == "app")
        path = applicationActions;
    else if (prefix == "win")
        path = windowActions;
    else if (prefix == "unity")
        path = moduleActions;
    return path.isEmpty() ? std::nullopt : std::optional(GtkMenuAction{path, full.mid(dot + 1), {}});
}

} // namespace tarnwick
