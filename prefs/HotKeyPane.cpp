// SPDX-License-Identifier: MIT
#include "prefs/HotKeyPane.h"

#include "app/SettingsKeys.h"
#include "mouse/TWMouseButtonIdentifier.h"
#include "prefs/DefaultsBinding.h"
#include "prefs/PaneLayout.h"
#include "shortcut/SRRecorderControl.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QVBoxLayout>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int FieldWidth = 220;

QCheckBox* makeSwitch(const QString& text, const QString& key)
{
    auto* box = new QCheckBox(text);
    box->setObjectName(key);
    bindCheckBox(*box, key);
    return box;
}

} // namespace

HotKeyPane::HotKeyPane(ActionTarget& target)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(PaneMargin, PaneMargin, PaneMargin, PaneMargin);
    _addHotKey(*column);
    column->addSpacing(6);
    column->addWidget(makeSeparator());
    column->addSpacing(6);
    _addMouseButton(*column, target);
}

void HotKeyPane::_addHotKey(QVBoxLayout& column)
{
    column.addWidget(makeSwitch(tr("Open the menu with a &hot key"), TWEnableHotKeyKey));
    _shortcutRecorder = new SRRecorderControl;
    _shortcutRecorder->setStyle(1);
    _shortcutRecorder->setAnimates(true);
    _shortcutRecorder->setCanCaptureGlobalHotKeys(true); // a shortcut of the desktop is told, not carried out
    _addField(
        column, tr("&Shortcut:"), *_shortcutRecorder,
        tr("Click the field or press Space in it, then press the new keys together. Escape keeps the old "
           "ones."));
}

void HotKeyPane::_addMouseButton(QVBoxLayout& column, ActionTarget& target)
{
    column.addWidget(makeSwitch(tr("Open the menu with an e&xtra mouse button"), TWEnableMouseButtonKey));
    _mouseButtonIdentifier = new TWMouseButtonIdentifier;
    _mouseButtonIdentifier->setTarget(&target);
    _mouseButtonIdentifier->setAction(u"mouseButtonChanged:"_s);
    _mouseButtonIdentifier->setAccessibleName(tr("Mouse button"));
    bindToDefaults(*_mouseButtonIdentifier, TWMouseButtonKey, [this](const QVariant& value) {
        _mouseButtonIdentifier->setButtonNumber(value.toULongLong());
    });
    _addField(
        column, tr("Mouse &button:"), *_mouseButtonIdentifier,
        tr("Click the field with the button that is to open the menu: the middle one, or one at the side "
           "of the mouse."));
}

void HotKeyPane::_addField(QVBoxLayout& column, const QString& label, QWidget& field, const QString& hint)
{
    auto* title = new QLabel(label);
    title->setBuddy(&field);
    field.setFixedWidth(FieldWidth);
    auto* grid = new QGridLayout;
    grid->setContentsMargins(PaneIndent, 0, 0, 0);
    grid->addWidget(title, 0, 0, Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(&field, 0, 1);
    grid->addWidget(makeHint(hint), 1, 1, 1, 2);
    grid->setColumnStretch(2, 1);
    column.addLayout(grid);
}

} // namespace tarnwick
