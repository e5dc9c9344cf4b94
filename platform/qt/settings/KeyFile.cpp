// SPDX-License-Identifier: MIT
#include "platform/qt/settings/KeyFile.h"

#include <QStringDecoder>

namespace tarnwick::key_file {

namespace {

constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

/// Others than these belong to what they stand beside.
QByteArray withoutBlanksAround(const QByteArray& bytes)
{
    qsizetype begin = 0;
    qsizetype end = bytes.size();
    while (begin < end && isBlank(bytes.at(begin)))
        ++begin;
    while (end > begin && isBlank(bytes.at(end - 1)))
        --end;
    return bytes.mid(begin, end - begin);
}

/// A bracket that does not close begins a group, too, but none that anybody knows.
QByteArray groupOf(const QByteArray& line)
{
    return line.endsWith(']') ? line.mid(1, line.size() - 2) : line;
}

} // namespace

QList<Entry> entriesOf(const QByteArray& contents)
{
    QList<Entry> entries;
    std::optional<QByteArray> group;
    const bool marked = contents.startsWith(ByteOrderMark);
    const auto lines = contents.mid(marked ? sizeof ByteOrderMark - 1 : 0).split('\n');
    for (const QByteArray& whole : lines) {
        const QByteArray line = withoutBlanksAround(whole);
        if (line.startsWith('#') || line.startsWith(';'))
            continue;
        if (line.startsWith('[')) {
            group = groupOf(line);
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (equals > 0)
            entries.append(
                {group, withoutBlanksAround(line.left(equals)), withoutBlanksAround(line.mid(equals + 1))});
    }
    return entries;
}

QString textOf(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    return decoder(bytes);
}

QString unescaped(const QString& value, QChar listSeparator)
{
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) != u'\\' || i + 1 == value.size()) {
            text += value.at(i);
            continue;
        }
        const QChar escape = value.at(++i);
        if (escape == u's')
            text += u' ';
        else if (escape == u'n')
            text += u'\n';
        else if (escape == u't')
            text += u'\t';
        else if (escape == u'r')
            text += u'\r';
        else if (escape == u'\\' || escape == listSeparator)
            text += escape;
        else
            text += QString(u'\\') + escape;
    }
    return text;
}

} // namespace tarnwick::key_file
