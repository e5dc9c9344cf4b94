// SPDX-License-Identifier: MIT
#include "platform/linux/look/XSettingsDecode.h"

#include <QtEndian>

namespace tarnwick {

namespace {

enum ByteOrder : char { LittleEndian = 0, BigEndian = 1 };
enum SettingType : quint8 { Number = 0, Text = 1, Color = 2 };

constexpr qsizetype HeaderBeforeCount = 8; ///< byte order, padding, serial number
constexpr qsizetype ColorSize = 8;

/// Reads from the beginning to the end; once something was missing, all further reads fail.
class Reader
{
public:
    explicit Reader(const QByteArray& bytes) : _bytes(bytes), _bigEndian(bytes.startsWith(BigEndian)) {}

    [[nodiscard]] bool failed() const { return _failed; }

    template <typename Integer>
    Integer number()
    {
        const QByteArray raw = bytes(sizeof(Integer));
        if (_failed)
            return 0;
        return _bigEndian ? qFromBigEndian<Integer>(raw.constData())
                          : qFromLittleEndian<Integer>(raw.constData());
    }

    /// A text with what fills it up to a multiple of four bytes.
    QString text(qsizetype length)
    {
        const QByteArray raw = bytes(length);
        skip((4 - length % 4) % 4);
        return QString::fromUtf8(raw);
    }

    QByteArray bytes(qsizetype count)
    {
        if (_failed || count > _bytes.size() - _position) {
            _failed = true;
            return {};
        }
        _position += count;
        return _bytes.mid(_position - count, count);
    }

    void skip(qsizetype count) { bytes(count); }

private:
    const QByteArray& _bytes;
    bool _bigEndian;
    qsizetype _position = 0;
    bool _failed = false;
};

/// False when the type is none of the three.
bool readSetting(Reader& reader, XSettingValues& values)
{
    const auto type = reader.number<quint8>();
    reader.skip(1);
    const auto nameLength = reader.number<quint16>();
    const QString name = reader.text(nameLength);
    reader.skip(4); // when it was changed last
    switch (type) {
    case Number:
        values.insert(name, reader.number<qint32>());
        return true;
    case Text:
        values.insert(name, reader.text(reader.number<quint32>()));
        return true;
    case Color:
        reader.skip(ColorSize);
        return true;
    default:
        return false;
    }
}

} // namespace

std::optional<XSettingValues> decodeXSettings(const QByteArray& contents)
{
    Reader reader(contents);
    reader.skip(HeaderBeforeCount);
    const auto count = reader.number<quint32>();
    XSettingValues values;
    for (quint32 i = 0; i < count && !reader.failed(); ++i)
        if (!readSetting(reader, values))
            return std::nullopt;
    if (reader.failed())
        return std::nullopt;
    return values;
}

} // namespace tarnwick
