// SPDX-License-Identifier: MIT
#include "platform/linux/tray/PublishedMenu.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr int Root = 0;

/// The letter of a mnemonic stands behind an underscore there, and behind an ampersand here.
QString labelOf(const QAction& action)
{
    const QString text = action.text();
    QString label;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool marks = text[i] == u'&' && i + 1 < text.size();
        if (marks && text[i + 1] != u'&')
            label += u'_';
        else if (text[i] == u'_')
            label += u"__"_s;
        else
            label += text[marks ? ++i : i];
    }
    return label;
}

QVariantMap propertiesOf(const QAction& action)
{
    if (action.isSeparator())
        return {{u"type"_s, u"separator"_s}};
    QVariantMap properties{{u"label"_s, labelOf(action)}};
    if (!action.isEnabled())
        properties.insert(u"enabled"_s, false);
    if (action.isCheckable()) {
        properties.insert(u"toggle-type"_s, u"checkmark"_s);
        properties.insert(u"toggle-state"_s, action.isChecked() ? 1 : 0);
    }
    return properties;
}

} // namespace

PublishedMenu::PublishedMenu(QMenu& menu) : _menu(menu)
{
    connect(&menu, &QMenu::aboutToShow, this, &PublishedMenu::_changed);
}

QString PublishedMenu::textDirection() const
{
    return _menu.isRightToLeft() ? u"rtl"_s : u"ltr"_s;
}

QString PublishedMenu::status()
{
    return u"normal"_s;
}

uint PublishedMenu::GetLayout(int parentId, int depth, const QStringList& names, PublishedLayout& layout)
{
    layout = {parentId, _propertiesOf(parentId, names), {}};
    if (parentId == Root && depth != 0)
        for (int id = 1; id <= _menu.actions().size(); ++id)
            layout.children.append({id, _propertiesOf(id, names)});
    return _revision;
}

PublishedEntries PublishedMenu::GetGroupProperties(const QList<int>& ids, const QStringList& names)
{
    PublishedEntries entries;
    for (const int id : ids)
        if (id == Root || _actionOf(id))
            entries.append({id, _propertiesOf(id, names)});
    return entries;
}

QDBusVariant PublishedMenu::GetProperty(int id, const QString& name)
{
    return QDBusVariant(_propertiesOf(id, {}).value(name, QString()));
}

void PublishedMenu::Event(int id, const QString& what, const QDBusVariant& /*data*/, uint /*time*/)
{
    if (id == Root && what == u"closed")
        Q_EMIT _menu.aboutToHide();
    else if (QAction* action = _actionOf(id); action && what == u"clicked")
        action->trigger();
}

QList<int> PublishedMenu::EventGroup(const PublishedEvents& events)
{
    QList<int> unknown;
    for (const PublishedEvent& event : events) {
        if (event.id != Root && !_actionOf(event.id))
            unknown.append(event.id);
        Event(event.id, event.what, event.data, event.time);
    }
    return unknown;
}

bool PublishedMenu::AboutToShow(int id)
{
    if (id != Root)
        return false;
    Q_EMIT _menu.aboutToShow();
    return true;
}

QList<int> PublishedMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& unknown)
{
    QList<int> changed;
    for (const int id : ids) {
        if (AboutToShow(id))
            changed.append(id);
        else if (!_actionOf(id))
            unknown.append(id);
    }
    return changed;
}

void PublishedMenu::_changed()
{
    Q_EMIT LayoutUpdated(++_revision, Root);
}

QAction* PublishedMenu::_actionOf(int id) const
{
    return id > Root ? _menu.actions().value(id - 1) : nullptr;
}

QVariantMap PublishedMenu::_propertiesOf(int id, const QStringList& names) const
{
    QVariantMap properties;
    if (id == Root)
        properties = {{u"children-display"_s, u"submenu"_s}};
    else if (const QAction* action = _actionOf(id))
        properties = propertiesOf(*action);
    if (!names.isEmpty())
        properties.removeIf([&names](const auto& property) { return !names.contains(property.key()); });
    return properties;
}

} // namespace tarnwick

#include "moc_PublishedMenu.cpp"
