// SPDX-License-Identifier: MIT
#include "platform/linux/dbusmenu/DbusMenuPlace.h"

namespace tarnwick {

namespace {

// No object path holds one.
constexpr char Between = ' ';

} // namespace

QByteArray DbusMenuPlace::mark(const QString& title)
{
    return QByteArray::number(static_cast<quint64>(qHash(title)));
}

DbusMenuPlace DbusMenuPlace::below(qint32 entry, const QString& title) const
{
    return {menu, entry, way + QByteArrayList{mark(title)}};
}

QByteArray DbusMenuPlace::toPath() const
{
    QByteArray path = menu;
    path.append(Between).append(QByteArray::number(number));
    for (const QByteArray& title : way)
        path.append(Between).append(title);
    return path;
}

std::optional<DbusMenuPlace> DbusMenuPlace::fromPath(const QByteArray& path)
{
    const QByteArrayList parts = path.split(Between);
    bool isNumber = false;
    const qint32 number = parts.value(1).toInt(&isNumber);
    if (parts.first().isEmpty() || !isNumber)
        return std::nullopt;
    return DbusMenuPlace{parts.first(), number, parts.mid(2)};
}

} // namespace tarnwick
