// SPDX-License-Identifier: MIT
#include "prefs/TriggerHintView.h"

#include "prefs/PaneLayout.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>

namespace tarnwick {

namespace {

constexpr int LineIndent = 6;

bool isToBeCopied(const TriggerHint& hint)
{
    return hint.kind == TriggerHint::Kind::Line || hint.kind == TriggerHint::Kind::Command;
}

} // namespace

TriggerHintView::TriggerHintView(const QString& copyText)
    : _explanation(makeHint({})), _line(new QLabel), _copyButton(new QPushButton(copyText)),
      _result(makeHint({}))
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, LineIndent, 0, 0);
    grid->setColumnStretch(0, 1);
    grid->addWidget(_explanation, 0, 0, 1, -1);
    grid->addWidget(_line, 1, 0);
    grid->addWidget(_copyButton, 1, 1, Qt::AlignTop);
    grid->addWidget(_result, 2, 0, 1, -1);

    _explanation->setTextFormat(Qt::PlainText); // of places like "<keyboard>"
    _line->setTextFormat(Qt::PlainText);
    _line->setWordWrap(true);
    _line->setLayoutDirection(Qt::LeftToRight);
    _line->setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Sunken));
    _line->setMargin(LineIndent);
    _line->setBackgroundRole(QPalette::Base);
    _line->setForegroundRole(QPalette::Text);
    _line->setAutoFillBackground(true);
    _line->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    _line->setFocusPolicy(Qt::StrongFocus); // with Tab, too
    _copyButton->setAutoDefault(true);      // Return presses it, too
    connect(_copyButton, &QPushButton::clicked, this, &TriggerHintView::_copy);
    hide();
}

void TriggerHintView::setHint(const TriggerHint& hint)
{
    _hint = hint;
    const bool toBeCopied = isToBeCopied(hint);
    switch (hint.kind) {
    case TriggerHint::Kind::None:
        _explanation->clear();
        break;
    case TriggerHint::Kind::Granted:
        _explanation->setText(
            tr("Keys given by the desktop: %1. Others can be chosen in its settings.").arg(hint.text));
        break;
    case TriggerHint::Kind::Asked:
        _explanation->setText(tr("The desktop is being asked for these keys."));
        break;
    case TriggerHint::Kind::Refused:
        _explanation->setText(
            tr("The desktop has not given these keys. Record others, or allow them in its settings."));
        break;
    case TriggerHint::Kind::Taken:
        _explanation->setText(tr("These keys are taken by %1. Record others.").arg(hint.text));
        break;
    case TriggerHint::Kind::Line:
        _explanation->setText(tr("The compositor has to be told. Put this into %1:").arg(hint.place));
        break;
    case TriggerHint::Kind::Command:
        _explanation->setText(
            tr("This desktop gives no keys to programs. Let one of its own run this command:"));
        break;
    case TriggerHint::Kind::OfHotKey:
        _explanation->setText(tr("This desktop can have a button at the side of the mouse press the hot key: "
                                 "look under Mouse in its settings."));
        break;
    case TriggerHint::Kind::Unavailable:
        _explanation->setText(tr("On this desktop no mouse button can open the menu."));
        break;
    }
    _line->setText(hint.text);
    _line->setAccessibleName(hint.text);
    _result->setText(hint.works ? tr("It works: the menu has been asked for this way.")
                                : tr("It has not asked for the menu yet."));
    for (QWidget* part : std::initializer_list<QWidget*>{_line, _copyButton, _result})
        part->setVisible(toBeCopied);
    setVisible(hint.kind != TriggerHint::Kind::None);
}

void TriggerHintView::_copy() const
{
    QGuiApplication::clipboard()->setText(_hint.text);
}

} // namespace tarnwick

#include "moc_TriggerHintView.cpp"
