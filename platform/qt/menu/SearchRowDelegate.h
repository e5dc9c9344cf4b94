// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace tarnwick {

/// As what stands beside a title is drawn, in the colour of the title.
[[nodiscard]] QColor dimmed(QColor color);

class MenuItem;

/// Draws a row of SearchRows as an entry of the menu is drawn, with what was typed marked in its title, and
/// the way to it and its shortcut at the other side.
class SearchRowDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// `menu` is the one whose style and colours the rows have.
    SearchRowDelegate(const QWidget& menu, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void _drawGround(QPainter& painter, const QStyleOptionViewItem& option, const MenuItem& item,
                     bool enabled) const;
    [[nodiscard]] QPalette _palette(const QStyleOptionViewItem& option, bool enabled) const;

    const QWidget& _menu;
};

} // namespace tarnwick
