// SPDX-License-Identifier: MIT
#include "platform/linux/session/PopUpParameter.h"

#include <QDBusArgument>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

QVariantMap mapIn(const QVariantList& parameter)
{
    if (parameter.size() != 1)
        return {};
    const QVariant& only = parameter.first();
    if (only.userType() != qMetaTypeId<QDBusArgument>())
        return only.userType() == QMetaType::QVariantMap ? only.toMap() : QVariantMap();
    const auto argument = only.value<QDBusArgument>();
    return argument.currentSignature() == u"a{sv}"_s ? qdbus_cast<QVariantMap>(argument) : QVariantMap();
}

std::optional<int> numberIn(const QVariantMap& map, const QString& key)
{
    const QVariant value = map.value(key);
    return value.userType() == QMetaType::Int ? std::optional(value.toInt()) : std::nullopt;
}

} // namespace

FrontHint popUpParameter(const QVariantList& parameter)
{
    const QVariantMap map = mapIn(parameter);
    FrontHint hint;
    const auto x = numberIn(map, u"x"_s);
    const auto y = numberIn(map, u"y"_s);
    if (x && y)
        hint.pointer = QPoint(*x, *y);
    if (const auto process = numberIn(map, u"pid"_s); process && *process > 0)
        hint.processIdentifier = *process;
    if (const QVariant title = map.value(u"title"_s);
        title.userType() == QMetaType::QString && !title.toString().isEmpty())
        hint.title = title.toString();
    return hint;
}

} // namespace tarnwick
