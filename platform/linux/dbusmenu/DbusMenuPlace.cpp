// SPDX-License-Identifier: MIT
#include "platform/linux/dbusmenu/DbusMenuPlace.h"

namespace tarnwick {

namespace {

// No object path holds one.
constexpr char Between = ' ';

} // namespace

QByteArray DbusMenuPlace::toPath() const
{
    return menu + Between + QByteArray::number(number);
}

std::optional<DbusMenuPlace> DbusMenuPlace::fromPath(const QByteArray& path)
{
    const qsizetype between = path.indexOf(Between);
    bool isNumber = false;
    const qint32 number = path.mid(between + 1).toInt(&isNumber);
    if (between < 1 || !isNumber)
        return std::nullopt;
    return DbusMenuPlace{path.first(between), number};
}

} // namespace tarnwick
