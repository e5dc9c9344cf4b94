// SPDX-License-Identifier: MIT
#include "prefs/PreferencesAccessible.h"

#include "prefs/AppEmblem.h"
#include "prefs/PreferencesToolbar.h"
#include "prefs/PreferencesWindow.h"

#include <QAccessibleWidget>
#include <QFrame>

namespace tarnwick {

namespace {

QAccessible::Role roleOf(const QObject* object)
{
    if (qobject_cast<const PreferencesWindow*>(object))
        return QAccessible::Window;
    if (qobject_cast<const PreferencesToolbar*>(object))
        return QAccessible::ToolBar;
    if (qobject_cast<const AppEmblem*>(object))
        return QAccessible::Graphic;
    const auto* frame = qobject_cast<const QFrame*>(object);
    return frame && frame->frameShape() == QFrame::HLine ? QAccessible::Separator : QAccessible::NoRole;
}

QAccessibleInterface* make(const QString& /*className*/, QObject* object)
{
    const QAccessible::Role role = roleOf(object);
    if (role == QAccessible::NoRole)
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget*>(object), role); // Qt owns it
}

} // namespace

void installPreferencesAccessibles()
{
    QAccessible::installFactory(make); // keeps one of each
}

} // namespace tarnwick
