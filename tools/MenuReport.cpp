// SPDX-License-Identifier: MIT
#include "tools/MenuReport.h"

#include "menu/AppAccessibility.h"
#include "menu/Menu.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr int MaximumLevels = 16;

QString escapedTitle(const QString& title)
{
    QString escaped = title;
    escaped.replace(u'\\', u"\\\\"_s).replace(u'\t', u"\\t"_s).replace(u'\n', u"\\n"_s);
    if (!escaped.isEmpty() && u"-*+# "_s.contains(escaped.front()))
        escaped.prepend(u'\\');
    return escaped;
}

void appendText(QString& text, const QList<ReportedEntry>& entries, int level)
{
    for (const ReportedEntry& entry : entries) {
        text += QString(qsizetype(level) * 2, u' ');
        if (entry.separator) {
            text += u"---\n"_s;
            continue;
        }
        if (!entry.enabled)
            text += u'-';
        if (entry.checked)
            text += u'*';
        text += escapedTitle(entry.title);
        if (!entry.keyEquivalent.isEmpty())
            text += u'\t' + entry.keyEquivalent;
        text += u'\n';
        appendText(text, entry.entries, level + 1);
    }
}

} // namespace

MenuReport::MenuReport(AppAccessibility& mirror, KeyEquivalentText keyEquivalentText,
                       std::function<void()> breathe)
    : _mirror(mirror), _keyEquivalentText(std::move(keyEquivalentText)), _breathe(std::move(breathe))
{
}

QList<ReportedEntry> MenuReport::read(bool all)
{
    return _read(*_mirror.menu(), all ? MaximumLevels : 1);
}

QList<ReportedEntry> MenuReport::_read(Menu& menu, int levels)
{
    QList<ReportedEntry> entries;
    // Reading a submenu may change this one.
    for (qsizetype index = 0; index < menu.itemArray().size(); ++index) {
        const auto item = menu.itemArray().at(index);
        ReportedEntry entry;
        entry.title = item->title();
        entry.separator = item->isSeparatorItem();
        entry.checked = item->state() == MenuItem::State::On;
        entry.enabled = item->isEnabled();
        entry.alternate = item->isAlternate();
        entry.keyEquivalent = _keyEquivalentText(item->keyEquivalent(), item->keyEquivalentModifierMask());
        entry.hasSubmenu = item->hasSubmenu();
        if (entry.hasSubmenu && levels > 1) {
            _breathe();
            const auto submenu = item->submenu();
            _mirror.menuNeedsUpdate(*submenu);
            entry.entries = _read(*submenu, levels - 1);
            entry.submenuRead = true;
        }
        entries.append(entry);
    }
    return entries;
}

QString MenuReport::text(const QList<ReportedEntry>& entries)
{
    QString text;
    appendText(text, entries, 0);
    return text;
}

QJsonArray MenuReport::json(const QList<ReportedEntry>& entries)
{
    QJsonArray array;
    for (const ReportedEntry& entry : entries) {
        if (entry.separator) {
            array.append(QJsonObject{{u"separator"_s, true}});
            continue;
        }
        QJsonObject object{
            {u"title"_s, entry.title}, {u"enabled"_s, entry.enabled}, {u"checked"_s, entry.checked}};
        if (entry.alternate)
            object.insert(u"alternate"_s, true);
        if (!entry.keyEquivalent.isEmpty())
            object.insert(u"keyEquivalent"_s, entry.keyEquivalent);
        if (entry.hasSubmenu)
            object.insert(u"submenu"_s, true);
        if (entry.submenuRead)
            object.insert(u"entries"_s, json(entry.entries));
        array.append(object);
    }
    return array;
}

} // namespace tarnwick
