// SPDX-License-Identifier: MIT
#include "prefs/PreferencesToolbar.h"

#include "foundation/Application.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int IconSide = 32;
constexpr int LeastItemWidth = 76;
constexpr double LineShare = 0.2;

} // namespace

PreferencesToolbar::PreferencesToolbar(ActionTarget& target, QWidget* parent)
    : QWidget(parent), _target(target), _buttons(new QButtonGroup(this)), _row(new QHBoxLayout(this))
{
    _row->setContentsMargins(12, 6, 12, 7);
    _row->setSpacing(4);
    _row->addStretch();
    _row->addStretch();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

PreferencesToolbar::~PreferencesToolbar() = default;

void PreferencesToolbar::addItem(std::unique_ptr<ToolbarItem> item)
{
    auto* shown = new QToolButton;
    shown->setObjectName(item->identifier);
    shown->setText(item->label);
    shown->setAccessibleName(item->plainLabel());
    shown->setIcon(item->icon);
    shown->setIconSize({IconSide, IconSide});
    shown->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    shown->setCheckable(true);
    shown->setAutoRaise(true);
    shown->setFocusPolicy(Qt::TabFocus);
    shown->setMinimumWidth(LeastItemWidth);
    _buttons->addButton(shown);
    _row->insertWidget(_row->count() - 1, shown); // between the two stretches
    connect(shown, &QToolButton::clicked, this, [this, sender = item.get()] {
        Application::shared().sendActionToFrom(u"changePreferencePane:"_s, &_target, sender);
    });
    _items.push_back(std::move(item));
}

QToolButton* PreferencesToolbar::button(const QString& identifier) const
{
    return findChild<QToolButton*>(identifier, Qt::FindDirectChildrenOnly);
}

QString PreferencesToolbar::selectedItemIdentifier() const
{
    const auto* selected = _buttons->checkedButton();
    return selected ? selected->objectName() : QString();
}

void PreferencesToolbar::setSelectedItemIdentifier(const QString& identifier)
{
    if (auto* selected = button(identifier))
        selected->setChecked(true);
}

void PreferencesToolbar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(float(LineShare));
    painter.fillRect(0, height() - 1, width(), 1, line);
}

} // namespace tarnwick

#include "moc_PreferencesToolbar.cpp"
