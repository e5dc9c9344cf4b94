// SPDX-License-Identifier: MIT
#include "platform/qt/settings/SettingsText.h"

#include "platform/qt/settings/KeyFile.h"

#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tarnwick::settings_text {

namespace {

const QString GeneralGroup = u"General"_s;

QString decodedName(const QByteArray& escaped)
{
    return key_file::textOf(QByteArray::fromPercentEncoding(escaped));
}

bool isHexadecimal(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

/// The character of the escape that begins behind the backslash at `i`, which is moved to the escape's end.
QString unescapedAt(const QString& text, qsizetype& i)
{
    const QChar escape = text.at(++i);
    if (escape == u'n')
        return u"\n"_s;
    if (escape == u'r')
        return u"\r"_s;
    if (escape == u't')
        return u"\t"_s;
    if (escape != u'x')
        return QString(escape);
    char32_t code = 0;
    for (int digits = 0; digits < 6 && i + 1 < text.size() && isHexadecimal(text.at(i + 1)); ++digits)
        code = code * 16 + char32_t(QString(text.at(++i)).toInt(nullptr, 16));
    // Not QString::fromUcs4(), which takes U+FEFF for a byte-order mark. Half a character may be followed by
    // the other.
    return code <= 0x10FFFF ? QStringView(QChar::fromUcs4(code)).toString() : QString();
}

QString unescaped(const QString& raw)
{
    QString value;
    bool quoted = false;
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (raw.at(i) == u'"')
            quoted = !quoted;
        else if (raw.at(i) == u'\\' && i + 1 < raw.size())
            value += unescapedAt(raw, i);
        else if (!quoted && raw.at(i) == u';')
            break; // a comment
        else
            value += raw.at(i);
    }
    return value.isValidUtf16() ? value : key_file::textOf(value.toUtf8());
}

QString escaped(const QString& value)
{
    QString text;
    bool quote = value.startsWith(u' ') || value.endsWith(u' ');
    for (const QChar c : value) {
        quote = quote || c == u';' || c == u',' || c == u'=' || c == u'"';
        if (c == u'\\' || c == u'"')
            text += QString(u'\\') + c;
        else if (c == u'\n')
            text += u"\\n";
        else if (c == u'\r')
            text += u"\\r";
        else if (c == u'\t')
            text += u"\\t";
        else if (c < u' ' || c == QChar(0x7F))
            text += u"\\x%1"_s.arg(uint(c.unicode()), 6, 16,
                                   QChar(u'0')); // as long as one can be: what follows is text
        else
            text += c;
    }
    return quote ? u'"' + text + u'"' : text;
}

QByteArray escapedKey(const QString& key)
{
    return QUrl::toPercentEncoding(key);
}

bool isGeneral(const QString& group)
{
    return group.compare(GeneralGroup, Qt::CaseInsensitive) == 0;
}

/// Of the keys in the group.
QString prefixOf(const std::optional<QByteArray>& group)
{
    const QString name = group ? decodedName(*group) : GeneralGroup;
    return isGeneral(name) ? QString() : name + u'/';
}

/// Where the group that `key` is written in ends: -1 for a key that is known by itself alone.
qsizetype groupEnd(const QString& key)
{
    const qsizetype slash = key.indexOf(u'/');
    const bool group = slash > 0 && slash + 1 < key.size() && !isGeneral(key.left(slash));
    return group ? slash : -1;
}

} // namespace

QSettings::SettingsMap parse(const QByteArray& contents)
{
    QSettings::SettingsMap settings;
    for (const key_file::Entry& entry : key_file::entriesOf(contents))
        settings.insert(prefixOf(entry.group) + decodedName(entry.key),
                        unescaped(key_file::textOf(entry.value)));
    return settings;
}

QByteArray write(const QSettings::SettingsMap& settings)
{
    QMap<QString, QByteArray> groups;
    for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting) {
        const qsizetype slash = groupEnd(setting.key());
        const QString group = slash < 0 ? QString() : setting.key().left(slash);
        groups[group] += escapedKey(setting.key().mid(slash + 1)) + '=' +
                         escaped(setting.value().toString()).toUtf8() + '\n';
    }
    QByteArray text;
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        const QByteArray name = group.key().isEmpty() ? GeneralGroup.toUtf8() : escapedKey(group.key());
        text += (text.isEmpty() ? "[" : "\n[") + name + "]\n" + group.value();
    }
    return text;
}

} // namespace tarnwick::settings_text
