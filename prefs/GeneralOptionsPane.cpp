// SPDX-License-Identifier: MIT
#include "prefs/GeneralOptionsPane.h"

#include "foundation/Application.h"
#include "foundation/SettingsKeys.h"
#include "prefs/CheckBox.h"
#include "prefs/DefaultsBinding.h"
#include "prefs/PaneLayout.h"

#include <QCheckBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int LargestFontSize = 72;

} // namespace

GeneralOptionsPane::GeneralOptionsPane(ActionTarget& target, ActionSender& sender,
                                       bool menuBarsHaveSystemMenu)
    : _target(target), _sender(sender)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(PaneMargin, PaneMargin, PaneMargin, PaneMargin);
    _addProgramOptions(*column);
    column->addLayout(makeSeparator());
    _addMenuOptions(*column, menuBarsHaveSystemMenu);
    _addFontSize(*column);
    column->addLayout(makeSeparator());
    _addButtons(*column);
}

void GeneralOptionsPane::_addProgramOptions(QVBoxLayout& column)
{
    _launchCheckBox = _addCheckBox(column, tr("Start Tarnwick when I &log in"), TWLaunchOnLoginKey,
                                   [this] { _send(u"startAtLogin:"_s); });
    _addCheckBox(column, tr("Show Tarnwick's &icon in the status area"), TWShowStatusBarIconKey);
    auto* hint = makeHint(tr("Without the icon, start Tarnwick again to come back to this window."));
    hint->setIndent(PaneIndent);
    column.addWidget(hint);
}

void GeneralOptionsPane::_addMenuOptions(QVBoxLayout& column, bool menuBarsHaveSystemMenu)
{
    // Elsewhere the first would do nothing, and without the application's menus nothing would be left.
    if (menuBarsHaveSystemMenu) {
        _addCheckBox(column, tr("Include the s&ystem menu"), TWShowAppleMenuKey);
        _addCheckBox(column, tr("Include the &application's menus"), TWShowApplicationMenuKey);
    }
    _addCheckBox(column, tr("Show &keyboard shortcuts beside the menu items"), TWShowKeyEquivalentsKey);
    // Only menus of the same desktops have such items.
    if (menuBarsHaveSystemMenu)
        _addCheckBox(column, tr("Show al&ternative items only while their modifier key is held"),
                     TWFoldAlternateKey);
}

void GeneralOptionsPane::_addFontSize(QVBoxLayout& column)
{
    auto* size = new QSpinBox;
    size->setRange(0, LargestFontSize);
    size->setSpecialValueText(tr("Standard"));
    size->setSuffix(tr(" points"));
    bindSpinBox(*size, TWFontSizeSmallKey);
    auto* label = new QLabel(tr("Text &size of the menu:"));
    label->setBuddy(size);
    size->setAccessibleName(tr("Text size of the menu"));

    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(size);
    row->addStretch();
    column.addLayout(row);
}

void GeneralOptionsPane::_addButtons(QVBoxLayout& column)
{
    auto* row = new QHBoxLayout;
    row->addWidget(_makeButton(tr("&Reset to Defaults"), u"resetButton:"_s));
    row->addStretch();
    row->addWidget(_makeButton(tr("&Quit Tarnwick"), u"quitFennrick:"_s));
    column.addLayout(row);
}

QCheckBox* GeneralOptionsPane::_addCheckBox(QVBoxLayout& column, const QString& text, const QString& key,
                                            std::function<void()> switched)
{
    auto* box = new CheckBox(text);
    box->setObjectName(key);
    bindCheckBox(*box, key, std::move(switched));
    column.addWidget(box);
    return box;
}

QPushButton* GeneralOptionsPane::_makeButton(const QString& text, const QString& action)
{
    auto* button = new QPushButton(text);
    button->setObjectName(action);
    button->setAutoDefault(true); // Return presses it, too
    connect(button, &QPushButton::clicked, this, [this, action] { _send(action); });
    return button;
}

void GeneralOptionsPane::_send(const QString& action)
{
    Application::shared().sendActionToFrom(action, &_target, &_sender);
}

} // namespace tarnwick

#include "moc_GeneralOptionsPane.cpp"
