// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/DesktopEntry.h"

#include "platform/qt/settings/KeyFile.h"
#include "platform/qt/settings/WholeFile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr qint64 LargestFile = 1024LL * 1024;

QString escaped(QString value)
{
    value.replace(u'\\', u"\\\\"_s)
        .replace(u'\n', u"\\n"_s)
        .replace(u'\t', u"\\t"_s)
        .replace(u'\r', u"\\r"_s);
    // Blanks at the ends would be taken for those around the value.
    if (value.startsWith(u' '))
        value.replace(0, 1, u"\\s"_s);
    if (value.endsWith(u' '))
        value.replace(value.size() - 1, 1, u"\\s"_s);
    return value;
}

/// Splits a command line by the quoting rules of "Exec"; empty when a quote is left open.
QStringList words(const QString& line)
{
    QStringList found;
    QString word;
    bool quoted = false;
    bool any = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (c == u'"') {
            quoted = !quoted;
            any = true;
        } else if (quoted && c == u'\\' && i + 1 < line.size() && u"\"`$\\"_s.contains(line.at(i + 1))) {
            word += line.at(++i);
        } else if (!quoted && (c == u' ' || c == u'\t')) {
            if (any)
                found.append(word);
            word.clear();
            any = false;
        } else {
            word += c;
            any = true;
        }
    }
    if (any)
        found.append(word);
    return quoted ? QStringList() : found;
}

/// A word without its field codes; nothing when it was no more than these.
std::optional<QString> withoutFieldCodes(const QString& word)
{
    QString text;
    bool removed = false;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (word.at(i) != u'%' || i + 1 == word.size()) {
            text += word.at(i);
        } else if (word.at(++i) == u'%') {
            text += u'%';
        } else {
            removed = true;
            if (word.at(i).isHighSurrogate()) // both halves of what is no code at all
                ++i;
        }
    }
    return removed && text.isEmpty() ? std::nullopt : std::optional(text);
}

QString quotedWord(const QString& word)
{
    const bool plain = !word.isEmpty() && std::none_of(word.cbegin(), word.cend(), [](QChar c) {
        return u" \t\n\"'\\><~|&;$*?#()`"_s.contains(c);
    });
    QString text = word;
    text.replace(u'%', u"%%"_s);
    if (plain)
        return text;
    for (const QChar special : {u'\\', u'"', u'`', u'$'})
        text.replace(special, QString(u'\\') + special);
    return u'"' + text + u'"';
}

} // namespace

std::optional<DesktopEntry> DesktopEntry::parse(const QByteArray& contents)
{
    DesktopEntry entry;
    bool found = false;
    for (const auto& [group, writtenKey, value] : key_file::entriesOf(contents)) {
        if (group != "Desktop Entry")
            continue;
        found = true;
        const QString key = key_file::textOf(writtenKey);
        if (!entry._values.contains(key))
            entry._values.insert(key, key_file::textOf(value));
    }
    if (!found)
        return std::nullopt;
    return entry;
}

std::optional<DesktopEntry> DesktopEntry::read(const QString& path)
{
    const auto contents = wholeFile(path, LargestFile);
    return contents ? parse(*contents) : std::nullopt;
}

QString DesktopEntry::string(const QString& key) const
{
    return key_file::unescaped(_values.value(key));
}

QStringList DesktopEntry::strings(const QString& key) const
{
    QStringList list;
    QString item;
    const QString value = _values.value(key);
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) == u'\\' && i + 1 < value.size()) {
            item += value.at(i);
            item += value.at(++i);
        } else if (value.at(i) == u';') {
            list.append(key_file::unescaped(item, u';'));
            item.clear();
        } else {
            item += value.at(i);
        }
    }
    if (!item.isEmpty())
        list.append(key_file::unescaped(item, u';'));
    return list;
}

bool DesktopEntry::boolean(const QString& key, bool otherwise) const
{
    const QString value = _values.value(key);
    return value == u"true" || (value != u"false" && otherwise);
}

QStringList DesktopEntry::command() const
{
    QStringList command;
    const auto raw = words(string(u"Exec"_s));
    for (const QString& word : raw) {
        if (const auto text = withoutFieldCodes(word))
            command.append(*text);
    }
    return command;
}

QString DesktopEntry::stringValue(const QString& text)
{
    return escaped(text);
}

QString DesktopEntry::execValue(const QStringList& command)
{
    QStringList quoted;
    for (const QString& word : command)
        quoted.append(quotedWord(word));
    return escaped(quoted.join(u' '));
}

} // namespace tarnwick
