// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QCborArray>
#include <QCborMap>
#include <QString>
#include <QStringView>

#include <optional>

namespace tarnwick {

/// The values from which an object can be made again: by key, or in a row. As bytes it is
/// one CBOR map or array. Reading never fails: a value that is missing or of another type is 0, false or
/// nothing.
class Archive
{
public:
    enum class Form { Keyed, Unkeyed };
    explicit Archive(Form form) : _form(form) {}

    /// Bytes that are cut off, or are no archive, give an empty keyed one.
    [[nodiscard]] static Archive fromData(const QByteArray& data);
    [[nodiscard]] QByteArray data() const;

    [[nodiscard]] bool allowsKeyedCoding() const { return _form == Form::Keyed; }

    void encode(const QCborValue& value, QStringView key) { _map.insert(key.toString(), value); }
    [[nodiscard]] bool contains(QStringView key) const { return _map.contains(key.toString()); }
    [[nodiscard]] qint64 decodeInteger(QStringView key) const;
    [[nodiscard]] bool decodeBool(QStringView key) const;
    [[nodiscard]] std::optional<QString> decodeString(QStringView key) const;

    /// The next value of the row.
    void encode(const QCborValue& value) { _array.append(value); }
    [[nodiscard]] qint64 decodeInteger();
    [[nodiscard]] std::optional<QString> decodeString();

private:
    [[nodiscard]] QCborValue _next();

    Form _form;
    QCborMap _map;
    QCborArray _array;
    qsizetype _read = 0;
};

} // namespace tarnwick
