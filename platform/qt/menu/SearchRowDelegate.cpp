// SPDX-License-Identifier: MIT
#include "platform/qt/menu/SearchRowDelegate.h"

#include "menu/MenuItem.h"
#include "platform/qt/menu/DisabledText.h"
#include "platform/qt/menu/KeyEquivalentText.h"
#include "platform/qt/menu/SearchRows.h"

#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

/// Of what stands beside a title, in parts of the colour of the title.
constexpr qreal Dimmed = 0.62;
/// A path is no longer than that part of a row, unless the title leaves it more.
constexpr int LeastPartsForTitle = 2;

QStyleOptionMenuItem menuItemOption(const QStyleOptionViewItem& option, const QPalette& palette,
                                    const MenuItem& item, bool enabled)
{
    QStyleOptionMenuItem drawn;
    drawn.rect = option.rect;
    drawn.palette = palette;
    drawn.direction = option.direction;
    drawn.font = option.font;
    drawn.fontMetrics = option.fontMetrics;
    drawn.state = QStyle::State_None;
    drawn.state.setFlag(QStyle::State_Enabled, enabled);
    drawn.state.setFlag(QStyle::State_Selected, option.state.testFlag(QStyle::State_Selected));
    drawn.state.setFlag(QStyle::State_Active, true);
    drawn.menuItemType = item.hasSubmenu() ? QStyleOptionMenuItem::SubMenu : QStyleOptionMenuItem::Normal;
    drawn.menuHasCheckableItems = true;
    if (item.state() == MenuItem::State::On) {
        drawn.checkType = QStyleOptionMenuItem::NonExclusive;
        drawn.checked = true;
    }
    return drawn;
}

QList<QTextLayout::FormatRange> formatsOf(const QList<TextRange>& marks)
{
    QList<QTextLayout::FormatRange> formats;
    for (const TextRange& mark : marks) {
        QTextLayout::FormatRange range;
        range.start = static_cast<int>(mark.begin);
        range.length = static_cast<int>(mark.end - mark.begin);
        range.format.setFontWeight(QFont::Bold);
        formats.append(range);
    }
    return formats;
}

/// On one line, from the side where its menu begins; what does not fit is cut off.
class TitleLine
{
public:
    TitleLine(const QString& title, const QList<TextRange>& marks, const QStyleOptionViewItem& option)
        : _layout(title, option.font)
    {
        QTextOption text;
        text.setTextDirection(title.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
        text.setWrapMode(QTextOption::NoWrap);
        _layout.setTextOption(text);
        _layout.setFormats(formatsOf(marks));
        _layout.beginLayout();
        QTextLine line = _layout.createLine();
        line.setLineWidth(Unlimited);
        _layout.endLayout();
        _width = static_cast<int>(std::ceil(line.naturalTextWidth()));
        _height = line.height();
    }

    [[nodiscard]] int width() const { return _width; }

    void draw(QPainter& painter, const QRect& place) const
    {
        painter.save();
        painter.setClipRect(place, Qt::IntersectClip);
        const QTextLine line = _layout.lineAt(0);
        const qreal top = place.top() + std::ceil((place.height() - _height) / 2);
        _layout.draw(&painter, QPointF(place.left() - line.naturalTextRect().left(), top));
        painter.restore();
    }

private:
    static constexpr qreal Unlimited = 1 << 20;

    QTextLayout _layout;
    int _width = 0;
    qreal _height = 0;
};

} // namespace

QColor dimmed(QColor color)
{
    color.setAlphaF(static_cast<float>(color.alphaF() * Dimmed));
    return color;
}

SearchRowDelegate::SearchRowDelegate(const QWidget& menu, QObject* parent)
    : QStyledItemDelegate(parent), _menu(menu)
{
}

QPalette SearchRowDelegate::_palette(const QStyleOptionViewItem& option, bool enabled) const
{
    QPalette palette = _menu.palette();
    if (!enabled)
        palette = withLegibleDisabledText(palette);
    palette.setCurrentColorGroup(enabled ? QPalette::Active : QPalette::Disabled);
    const bool lit = enabled && option.state.testFlag(QStyle::State_Selected);
    palette.setColor(QPalette::WindowText, palette.color(lit ? QPalette::HighlightedText : QPalette::Text));
    return palette;
}

void SearchRowDelegate::_drawGround(QPainter& painter, const QStyleOptionViewItem& option,
                                    const MenuItem& item, bool enabled) const
{
    QPalette palette = _menu.palette();
    palette.setCurrentColorGroup(enabled ? QPalette::Active : QPalette::Disabled);
    const QStyleOptionMenuItem drawn = menuItemOption(option, palette, item, enabled);
    _menu.style()->drawControl(QStyle::CE_MenuItem, &drawn, &painter, &_menu);
}

void SearchRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const auto* rows = qobject_cast<const SearchRows*>(index.model());
    if (!rows)
        return;
    const int number = rows->numberAt(index);
    const MenuEntry& entry = rows->search().entry(number);
    _drawGround(*painter, option, *entry.item, entry.enabled);

    // From the left, and turned over where menus run from right to left.
    const int line = option.fontMetrics.height();
    const QRect inner = option.rect.adjusted(line + line / 2, 0, -line, 0);
    const auto draw = [&](const QRect& place, const auto& drawing) {
        drawing(QStyle::visualRect(option.direction, option.rect, place));
    };
    painter->save();
    const QColor color = _palette(option, entry.enabled).color(QPalette::WindowText);
    painter->setPen(color);

    const QString shortcut =
        keyEquivalentText(entry.item->keyEquivalent(), entry.item->keyEquivalentModifierMask());
    const int shortcutWidth = shortcut.isEmpty() ? 0 : option.fontMetrics.horizontalAdvance(shortcut);
    draw(QRect(inner.right() + 1 - shortcutWidth, inner.top(), shortcutWidth, inner.height()),
         [&](const QRect& place) {
             painter->drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shortcut);
         });

    const int forTexts = inner.width() - (shortcutWidth ? shortcutWidth + line : 0);
    const TitleLine title(entry.title, rows->search().marks(number), option);
    const QString path = shownPath(rows->search().path(number), option.direction);
    const int pathWidth = path.isEmpty() ? 0 : option.fontMetrics.horizontalAdvance(path);
    const int titleRoom =
        std::max(forTexts - (path.isEmpty() ? 0 : pathWidth + line), forTexts / LeastPartsForTitle);
    const int titleWidth = std::min(title.width(), titleRoom);
    draw(QRect(inner.left(), inner.top(), titleWidth, inner.height()),
         [&](const QRect& place) { title.draw(*painter, place); });

    const int pathRoom = std::max(0, forTexts - titleWidth - line);
    painter->setPen(dimmed(color));
    draw(QRect(inner.left() + titleWidth + line, inner.top(), pathRoom, inner.height()),
         [&](const QRect& place) {
             const Qt::Alignment side = option.direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
             QTextOption text(side | Qt::AlignVCenter | Qt::AlignAbsolute);
             text.setTextDirection(option.direction);
             text.setWrapMode(QTextOption::NoWrap);
             painter->drawText(QRectF(place), option.fontMetrics.elidedText(path, Qt::ElideMiddle, pathRoom),
                               text);
         });
    painter->restore();
}

QSize SearchRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const
{
    const int line = option.fontMetrics.height();
    return {10 * line, line + line / 2};
}

} // namespace tarnwick

#include "moc_SearchRowDelegate.cpp"
