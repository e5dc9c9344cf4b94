// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/tray/StatusNotifierTypes.h"

#include <QAction>
#include <QMenu>
#include <QPointer>

namespace tarnwick {

/// A menu without submenus as hosts of status items read it on the bus. They tell before they show it.
class PublishedMenu final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    /// `menu` must outlive it.
    explicit PublishedMenu(QMenu& menu);

    [[nodiscard]] static uint version() { return 3; }
    [[nodiscard]] QString textDirection() const;
    [[nodiscard]] static QString status();
    [[nodiscard]] static QStringList iconThemePath() { return {}; }

    // The names are the protocol's.
public Q_SLOTS:
    uint GetLayout(int parentId, int depth, const QStringList& names, tarnwick::PublishedLayout& layout);
    tarnwick::PublishedEntries GetGroupProperties(const QList<int>& ids, const QStringList& names);
    QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& what, const QDBusVariant& data, uint time);
    QList<int> EventGroup(const tarnwick::PublishedEvents& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& unknown);

Q_SIGNALS:
    void LayoutUpdated(uint revision, int parent);

private:
    void _changed();
    [[nodiscard]] QAction* _actionOf(int id) const;
    [[nodiscard]] QVariantMap _propertiesOf(int id, const QStringList& names) const;

    QMenu& _menu;
    uint _revision = 1;
};

} // namespace tarnwick
