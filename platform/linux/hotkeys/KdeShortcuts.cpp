// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/KdeShortcuts.h"

#include "platform/linux/xdg/DesktopNames.h"
#include "platform/qt/settings/KeyFile.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

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
        const QString value = key_file::unescaped(key_file::textOf(written));
        const auto texts = (ofService ? value : firstItem(value)).split(u'\t', Qt::SkipEmptyParts);
        for (const QString& text : texts) {
            if (const auto shortcut = text == u"none" ? std::nullopt : DesktopShortcut::ofPortableText(text))
                shortcuts.append(*shortcut);
        }
    }
    return shortcuts;
}

} // namespace tarnwick
