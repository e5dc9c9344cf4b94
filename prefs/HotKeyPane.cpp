// SPDX-License-Identifier: MIT
#include "prefs/HotKeyPane.h"

#include "foundation/SettingsKeys.h"
#include "mouse/TWMouseButtonIdentifier.h"
#include "prefs/CheckBox.h"
#include "prefs/DefaultsBinding.h"
#include "prefs/PaneLayout.h"
#include "shortcut/SRRecorderControl.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QLayout>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int FieldWidth = 220; ///< at least
constexpr int TitleGap = 6;
constexpr int FieldInset = 2; ///< both fields leave that much for their focus ring

enum Column { IndentColumn, TitleColumn, GapColumn, FieldColumn, RestColumn };

} // namespace

HotKeyPane::HotKeyPane(ActionTarget& target)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(PaneMargin, PaneMargin, PaneMargin, PaneMargin);
    grid->setColumnMinimumWidth(IndentColumn, PaneIndent);
    grid->setColumnMinimumWidth(GapColumn, TitleGap);
    grid->setHorizontalSpacing(0);
    grid->setColumnStretch(RestColumn, 1);
    _addHotKey(*grid);
    grid->addLayout(makeSeparator(), grid->rowCount(), 0, 1, -1);
    _addMouseButton(*grid, target);
    _fitFields();
}

bool HotKeyPane::event(QEvent* event)
{
    if (event->type() == QEvent::ApplicationFontChange)
        _fitFields();
    return QWidget::event(event);
}

void HotKeyPane::_fitFields()
{
    // Both alike: the text of the mouse button has a size of its own, and a length in each language.
    const int width = std::max(FieldWidth, _mouseButtonIdentifier->sizeHint().width());
    _shortcutRecorder->setFixedWidth(width);
    _mouseButtonIdentifier->setFixedWidth(width);
}

void HotKeyPane::_addHotKey(QGridLayout& grid)
{
    _addSwitch(grid, tr("Open the menu with a &hot key"), TWEnableHotKeyKey);
    _shortcutRecorder = new SRRecorderControl;
    _shortcutRecorder->setStyle(1);
    _shortcutRecorder->setAnimates(true);
    _shortcutRecorder->setCanCaptureGlobalHotKeys(true); // a shortcut of the desktop is told, not carried out
    _addField(
        grid, tr("&Shortcut:"), *_shortcutRecorder,
        tr("Click the field or press Space in it, then press the new keys together. Escape keeps the old "
           "ones."));
}

void HotKeyPane::_addMouseButton(QGridLayout& grid, ActionTarget& target)
{
    _addSwitch(grid, tr("Open the menu with an e&xtra mouse button"), TWEnableMouseButtonKey);
    _mouseButtonIdentifier = new TWMouseButtonIdentifier;
    _mouseButtonIdentifier->setTarget(&target);
    _mouseButtonIdentifier->setAction(u"mouseButtonChanged:"_s);
    _mouseButtonIdentifier->setAccessibleName(tr("Mouse button"));
    bindToDefaults(*_mouseButtonIdentifier, TWMouseButtonKey, [this](const QVariant& value) {
        _mouseButtonIdentifier->setButtonNumber(value.toULongLong());
    });
    _addField(
        grid, tr("Mouse &button:"), *_mouseButtonIdentifier,
        tr("Click the field with the button that is to open the menu: the middle one, or one at the side "
           "of the mouse."));
}

void HotKeyPane::_addSwitch(QGridLayout& grid, const QString& text, const QString& key)
{
    auto* box = new CheckBox(text);
    box->setObjectName(key);
    bindCheckBox(*box, key);
    grid.addWidget(box, grid.rowCount(), 0, 1, -1);
}

void HotKeyPane::_addField(QGridLayout& grid, const QString& label, QWidget& field, const QString& hint)
{
    auto* title = new QLabel(label);
    title->setBuddy(&field);
    const int row = grid.rowCount();
    grid.addWidget(title, row, TitleColumn, Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(&field, row, FieldColumn);
    QLabel* explanation = makeHint(hint);
    explanation->setIndent(FieldInset);
    grid.addWidget(explanation, row + 1, FieldColumn, 1, -1);
}

} // namespace tarnwick

#include "moc_HotKeyPane.cpp"
