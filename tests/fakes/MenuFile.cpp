// SPDX-License-Identifier: MIT
#include "tests/fakes/MenuFile.h"

#include <QFile>
#include <QStringList>

#include <stdexcept>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void fail(const QString& what)
{
    throw std::runtime_error(what.toStdString());
}

QString unquoted(QStringView text)
{
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            plain += text[i];
            continue;
        }
        const QChar quoted = text[++i];
        plain += quoted == u't' ? QChar(u'\t') : quoted == u'n' ? QChar(u'\n') : quoted;
    }
    return plain;
}

MenuFileEntry parseEntry(QStringView line)
{
    MenuFileEntry entry;
    if (line == u"---") {
        entry.separator = true;
        return entry;
    }
    while (!line.isEmpty() && QStringView(u"-*+").contains(line.front())) {
        entry.enabled = entry.enabled && line.front() != u'-';
        entry.checked = entry.checked || line.front() == u'*';
        entry.checkable = entry.checkable || line.front() != u'-';
        line = line.sliced(1);
    }
    const qsizetype tab = line.indexOf(u'\t');
    if (tab >= 0)
        entry.shortcut = line.sliced(tab + 1).toString();
    entry.title = unquoted(tab >= 0 ? line.first(tab) : line);
    return entry;
}

} // namespace

QList<MenuFileEntry> MenuFile::parse(const QString& text)
{
    QList<MenuFileEntry> bar;
    const QStringList lines = text.split(u'\n');
    for (qsizetype number = 0; number < lines.size(); ++number) {
        const QString& line = lines.at(number);
        qsizetype blanks = 0;
        while (blanks < line.size() && line.at(blanks) == u' ')
            ++blanks;
        if (blanks == line.size() || line.startsWith(u'#'))
            continue;
        QList<MenuFileEntry>* level = &bar;
        for (qsizetype depth = 0; depth < blanks / 2; ++depth) {
            if (level->isEmpty())
                fail(u"line %1 is indented below nothing"_s.arg(number + 1));
            level = &level->last().children;
        }
        if (blanks % 2 != 0)
            fail(u"line %1 is indented by an odd number of blanks"_s.arg(number + 1));
        level->append(parseEntry(QStringView(line).sliced(blanks)));
    }
    return bar;
}

QList<MenuFileEntry> MenuFile::read(const QString& name)
{
    QFile file(QStringLiteral(TARNWICK_TEST_DATA "/") + name + u".menu"_s);
    if (!file.open(QIODevice::ReadOnly))
        fail(u"cannot read "_s + file.fileName());
    return parse(QString::fromUtf8(file.readAll()));
}

} // namespace tarnwick
