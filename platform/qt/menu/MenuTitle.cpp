// SPDX-License-Identifier: MIT
#include "platform/qt/menu/MenuTitle.h"

#include "menu/MenuItem.h"
#include "platform/qt/menu/KeyEquivalentText.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// The toolkit takes an ampersand for a mark of the letter after it.
QString withDrawnAmpersands(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

/// Drawn in the menu's direction, "Open..." would have its full stops in front where menus run from right to
/// left. Letters at both ends leave nothing to go astray.
QString inItsOwnDirection(const QString& text, Qt::LayoutDirection menu)
{
    const auto own = text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    if (own == menu || text.isEmpty() || (text.front().isLetter() && text.back().isLetter()))
        return text;
    constexpr QChar FirstStrongIsolate(0x2068);
    constexpr QChar PopDirectionalIsolate(0x2069);
    return FirstStrongIsolate + text + PopDirectionalIsolate;
}

} // namespace

QString drawnTitle(const MenuItem& item)
{
    QString title = item.attributedTitle() ? item.attributedTitle()->text : item.title();
    title.replace(u"\r\n"_s, u" "_s);
    for (const QChar lineEnd :
         {QChar(u'\n'), QChar(u'\r'), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)})
        title.replace(lineEnd, u' ');
    return title.replace(u'\t', u"    "_s);
}

QString menuActionText(const MenuItem& item, Qt::LayoutDirection menu)
{
    QString title = inItsOwnDirection(withDrawnAmpersands(drawnTitle(item)), menu);
    const QString shortcut = keyEquivalentText(item.keyEquivalent(), item.keyEquivalentModifierMask());
    if (shortcut.isEmpty() || item.hasSubmenu())
        return title;
    return title + u'\t' + inItsOwnDirection(withDrawnAmpersands(shortcut), menu);
}

QFont menuItemFont(const MenuItem& item, const QFont& menuFont)
{
    const auto& attributed = item.attributedTitle();
    if (!attributed)
        return menuFont;
    QFont font = attributed->font.value_or(menuFont);
    if (attributed->strokeWidth.value_or(0) < 0)
        font.setBold(true);
    return font;
}

} // namespace tarnwick
