// SPDX-License-Identifier: MIT
#include "shortcut/Numbers.h"

#include <cmath>

namespace tarnwick {

namespace {

qint64 cutOff(double number)
{
    constexpr double Limit = 9223372036854775808.0; // 2^63
    if (std::isnan(number) || number < -Limit || number >= 2 * Limit)
        return 0;
    return number < Limit ? static_cast<qint64>(number) : static_cast<qint64>(static_cast<quint64>(number));
}

} // namespace

std::optional<qint64> wholeNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return static_cast<qint64>(value.toULongLong());
    case QMetaType::Float:
    case QMetaType::Double:
        return cutOff(value.toDouble());
    default:
        return std::nullopt;
    }
}

} // namespace tarnwick
