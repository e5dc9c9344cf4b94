// SPDX-License-Identifier: MIT
#include "prefs/HotKeyPane.h"

#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "mouse/TWMouseButtonIdentifier.h"
#include "prefs/CheckBox.h"
#include "prefs/DefaultsBinding.h"
#include "prefs/PaneLayout.h"
#include "prefs/TriggerHintView.h"
#include "shortcut/ModifierFlags.h"
#include "shortcut/SRRecorderControl.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QLayout>
#include <QPointer>

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
    _followAdvice();
}

bool HotKeyPane::event(QEvent* event)
{
    if (event->type() == QEvent::ApplicationFontChange)
        _fitFields();
    return QWidget::event(event);
}

void HotKeyPane::_fitFields()
{
    // Both alike: what they show has a length in each language, that of the mouse button a size of its own.
    const int width = std::max(
        {FieldWidth, _shortcutRecorder->sizeHint().width(), _mouseButtonIdentifier->sizeHint().width()});
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
    _hotKeyHint = _addHint(grid, tr("&Copy"));
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
    _mouseButtonHint = _addHint(grid, tr("Co&py"));
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

TriggerHintView* HotKeyPane::_addHint(QGridLayout& grid, const QString& copyText)
{
    auto* view = new TriggerHintView(copyText);
    grid.addWidget(view, grid.rowCount(), TitleColumn, 1, -1);
    return view;
}

void HotKeyPane::_followAdvice()
{
    TriggerAdvice* advice = TriggerAdvice::sharedOrNull();
    if (!advice)
        return;
    advice->addChangeObserver([self = QPointer(this)] {
        if (self)
            self->_showAdvice();
    });
    // The text of the hot key is what is stored last of it.
    for (const QString& key : {TWEnableHotKeyKey, TWTriggerKey, TWEnableMouseButtonKey, TWMouseButtonKey})
        bindToDefaults(*this, key, [this](const QVariant& /*value*/) { _showAdvice(); });
}

void HotKeyPane::_showAdvice()
{
    const TriggerAdvice* advice = TriggerAdvice::sharedOrNull();
    if (!advice)
        return;
    auto& defaults = UserDefaults::standardUserDefaults();
    const auto keyCode = quint32(defaults.unsignedForKey(TWTriggerCharacterKey));
    const auto modifiers = quint32(SRCocoaToCarbonFlags(defaults.unsignedForKey(TWTriggerModifiersKey)));
    _hotKeyHint->setHint(defaults.boolForKey(TWEnableHotKeyKey) ? advice->hotKeyHint(keyCode, modifiers)
                                                                : TriggerHint());
    _mouseButtonHint->setHint(defaults.boolForKey(TWEnableMouseButtonKey)
                                  ? advice->mouseButtonHint(defaults.unsignedForKey(TWMouseButtonKey))
                                  : TriggerHint());
    Q_EMIT resized();
}

} // namespace tarnwick

#include "moc_HotKeyPane.cpp"
