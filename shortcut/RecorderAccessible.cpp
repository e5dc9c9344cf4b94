// SPDX-License-Identifier: MIT
#include "shortcut/RecorderAccessible.h"

#include "shortcut/SRRecorderControl.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface* make(const QString& /*className*/, QObject* object)
{
    auto* control = qobject_cast<SRRecorderControl*>(object);
    return control ? new RecorderAccessible(control) : nullptr; // Qt owns it
}

} // namespace

RecorderAccessible::RecorderAccessible(SRRecorderControl* control)
    : QAccessibleWidget(control, QAccessible::Button)
{
}

void RecorderAccessible::install()
{
    QAccessible::installFactory(make); // keeps one of each
}

QString RecorderAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name ? _control().spokenText() : QAccessibleWidget::text(kind);
}

QStringList RecorderAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (_control().isEnabled())
        names.prepend(pressAction());
    return names;
}

void RecorderAccessible::doAction(const QString& actionName)
{
    if (actionName != pressAction()) {
        QAccessibleWidget::doAction(actionName);
        return;
    }
    Event space;
    space.type = Event::Type::KeyDown;
    space.keyCode = 49;
    space.characters = u" "_s;
    space.charactersIgnoringModifiers = u" "_s;
    _control().setFocus(Qt::OtherFocusReason);
    _control().performKeyEquivalent(space);
}

SRRecorderControl& RecorderAccessible::_control() const
{
    return *static_cast<SRRecorderControl*>(object());
}

} // namespace tarnwick
