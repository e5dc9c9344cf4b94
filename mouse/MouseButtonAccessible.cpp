// SPDX-License-Identifier: MIT
#include "mouse/MouseButtonAccessible.h"

#include "mouse/TWMouseButtonIdentifier.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface* make(const QString& /*className*/, QObject* object)
{
    auto* control = qobject_cast<TWMouseButtonIdentifier*>(object);
    return control ? new MouseButtonAccessible(control) : nullptr; // Qt owns it
}

} // namespace

MouseButtonAccessible::MouseButtonAccessible(TWMouseButtonIdentifier* control)
    : QAccessibleWidget(control, QAccessible::StaticText)
{
}

void MouseButtonAccessible::install()
{
    QAccessible::installFactory(make); // keeps one of each
}

QString MouseButtonAccessible::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Name)
        return QAccessibleWidget::text(kind);
    const auto& control = *static_cast<TWMouseButtonIdentifier*>(object());
    const QString name = control.accessibleName();
    return name.isEmpty() ? control.text() : name + u", "_s + control.text();
}

} // namespace tarnwick
