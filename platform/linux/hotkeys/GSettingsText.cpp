// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/GSettingsText.h"

using namespace Qt::StringLiterals;

namespace tarnwick::gsettings_text {

namespace {

/// Reads values from left to right.
class Reader
{
public:
    explicit Reader(QStringView text) : _text(text) {}

    bool skip(QChar wanted)
    {
        _skipBlanks();
        if (_text.isEmpty() || _text.front() != wanted)
            return false;
        _text = _text.mid(1);
        return true;
    }

    bool skip(QStringView wanted)
    {
        _skipBlanks();
        if (!_text.startsWith(wanted))
            return false;
        _text = _text.mid(wanted.size());
        return true;
    }

    bool atEnd()
    {
        _skipBlanks();
        return _text.isEmpty();
    }

    std::optional<QString> string()
    {
        _skipBlanks();
        if (_text.isEmpty() || (_text.front() != u'\'' && _text.front() != u'"'))
            return std::nullopt;
        const QChar quote = _text.front();
        QString value;
        for (qsizetype i = 1; i < _text.size(); ++i) {
            if (_text.at(i) == quote) {
                _text = _text.mid(i + 1);
                return value;
            }
            if (_text.at(i) == u'\\' && i + 1 < _text.size())
                value += _unescaped(i);
            else
                value += _text.at(i);
        }
        return std::nullopt;
    }

private:
    void _skipBlanks()
    {
        while (!_text.isEmpty() && _text.front().isSpace())
            _text = _text.mid(1);
    }

    /// The character of the escape at `i`, which is moved to the escape's end.
    QString _unescaped(qsizetype& i) const
    {
        const QChar escape = _text.at(++i);
        if (escape == u'n')
            return u"\n"_s;
        if (escape == u't')
            return u"\t"_s;
        if (escape != u'u' && escape != u'U')
            return QString(escape);
        const qsizetype digits = escape == u'u' ? 4 : 8;
        bool number = false;
        const char32_t code = _text.mid(i + 1, digits).toUInt(&number, 16);
        if (!number || code > 0x10FFFF || QChar::isSurrogate(code))
            return QString(escape);
        i += digits;
        return QStringView(QChar::fromUcs4(code)).toString();
    }

    QStringView _text;
};

} // namespace

QList<Setting> parseListing(const QByteArray& output)
{
    QList<Setting> settings;
    const auto lines = QString::fromUtf8(output).split(u'\n');
    for (const QString& line : lines) {
        const qsizetype schemaEnd = line.indexOf(u' ');
        const qsizetype keyEnd = line.indexOf(u' ', schemaEnd + 1);
        if (schemaEnd <= 0 || keyEnd < 0)
            continue;
        if (auto values = parseStrings(line.mid(keyEnd + 1)))
            settings.append({line.left(schemaEnd), line.mid(schemaEnd + 1, keyEnd - schemaEnd - 1), *values});
    }
    return settings;
}

std::optional<QStringList> parseStrings(const QString& value)
{
    Reader reader(value);
    if (const auto single = reader.string())
        return reader.atEnd() ? std::optional(QStringList{*single}) : std::nullopt;
    reader.skip(u"@as");
    if (!reader.skip(u'['))
        return std::nullopt;
    QStringList strings;
    while (!reader.skip(u']')) {
        const auto string = reader.string();
        if (!string)
            return std::nullopt;
        strings.append(*string);
        reader.skip(u',');
    }
    return reader.atEnd() ? std::optional(strings) : std::nullopt;
}

} // namespace tarnwick::gsettings_text
