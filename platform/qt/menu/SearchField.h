// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/menu/KeyComposition.h"
#include "platform/qt/menu/SearchKeys.h"

#include <QLineEdit>

namespace tarnwick {

/// Where the text of a search is typed. Its window never is the active one: keys are handed to it, and it
/// looks as if it had the focus.
class SearchField final : public QLineEdit
{
    Q_OBJECT

public:
    explicit SearchField(QWidget* parent);

    /// By which several keys type one text; without it each types its own.
    void setComposition(KeyComposition compose) { _compose = std::move(compose); }
    /// Where the character at that position stands, in it.
    [[nodiscard]] QRect placeOf(int position) const;
    /// Which character is at that place in it.
    [[nodiscard]] int cursorPositionAt(QPoint place) { return QLineEdit::cursorPositionAt(place); }
    /// What is typed is told to screen readers again, in place of a row.
    void tellFocus();

Q_SIGNALS:
    /// A key that is not the text's.
    void pressed(tarnwick::SearchKey key);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    [[nodiscard]] bool _isTexts(SearchKey key) const;
    [[nodiscard]] bool _composes(const QKeyEvent& event);

    KeyComposition _compose;
};

} // namespace tarnwick
