// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/KdeShortcuts.h"

#include "platform/linux/xdg/DesktopNames.h"
#include "platform/qt/settings/KeyFile.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// A value as it was before it was written to the file.
QString unescaped(const QString& value)
{
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) != u'\\' || i + 1 == value.size()) {
            text += value.at(i);
            continue;
        }
        const QChar escape = value.at(++i);
        if (escape == u't')
            text += u'\t';
        else if (escape == u'n')
            text += u'\n';
        else if (escape == u's')
            text += u' ';
        else if (escape == u'\\')
            text += u'\\';
        else
            text += QString(u'\\') + escape;
    }
    return text;
}

/// The first item of a list whose items are separated by commas.
QString firstItem(const QString& list)
{
    QString item;
    for (qsizetype i = 0; i < list.size() && list.at(i) != u','; ++i) {
        if (list.at(i) == u'\\' && i + 1 < list.size())
            ++i;
        item += list.at(i);
    }
    return item;
}

} // namespace

QList<DesktopShortcut> parseKdeShortcuts(const QByteArray& contents)
{
    QList<DesktopShortcut> shortcuts;
    for (const auto& [group, key, written] : key_file::entriesOf(contents)) {
        // The file's own book-keeping is in groups named so.
        if (!group || group->isEmpty() || group->startsWith('$') || key.startsWith("_k_friendly_name"))
            continue;
        if (*group == desktop_names::BusName.toUtf8()) // our own hot key
            continue;
        // A service's keys stand alone; those of other components come with their default and a name.
        const bool ofService = group == "services" || group->startsWith("services]");
        const QString value = unescaped(key_file::textOf(written));
        const auto texts = (ofService ? value : firstItem(value)).split(u'\t', Qt::SkipEmptyParts);
        for (const QString& text : texts) {
            if (const auto shortcut = text == u"none" ? std::nullopt : DesktopShortcut::ofPortableText(text))
                shortcuts.append(*shortcut);
        }
    }
    return shortcuts;
}

} // namespace tarnwick
