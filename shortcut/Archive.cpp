// SPDX-License-Identifier: MIT
#include "shortcut/Archive.h"

#include <QCborValue>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// A floating-point number may be out of range, or none at all.
qint64 integerIn(const QCborValue& value)
{
    return value.isInteger() ? value.toInteger() : 0;
}

/// An empty text is not a missing one.
std::optional<QString> stringIn(const QCborValue& value)
{
    if (!value.isString())
        return std::nullopt;
    const QString text = value.toString();
    return text.isNull() ? u""_s : text;
}

} // namespace

Archive Archive::fromData(const QByteArray& data)
{
    QCborParserError error;
    const QCborValue value = QCborValue::fromCbor(data, &error);
    const bool whole = error.error == QCborError::NoError;
    Archive archive(whole && value.isArray() ? Form::Unkeyed : Form::Keyed);
    if (whole) {
        archive._map = value.toMap();
        archive._array = value.toArray();
    }
    return archive;
}

QByteArray Archive::data() const
{
    return (allowsKeyedCoding() ? QCborValue(_map) : QCborValue(_array)).toCbor();
}

qint64 Archive::decodeInteger(QStringView key) const
{
    return integerIn(_map.value(key.toString()));
}

bool Archive::decodeBool(QStringView key) const
{
    return _map.value(key.toString()).toBool();
}

std::optional<QString> Archive::decodeString(QStringView key) const
{
    return stringIn(_map.value(key.toString()));
}

qint64 Archive::decodeInteger()
{
    return integerIn(_next());
}

std::optional<QString> Archive::decodeString()
{
    return stringIn(_next());
}

QCborValue Archive::_next()
{
    return _read < _array.size() ? _array.at(_read++) : QCborValue();
}

} // namespace tarnwick
