// SPDX-License-Identifier: MIT
#include "platform/qt/MenuTitle.h"

#include "menu/MenuItem.h"
#include "platform/qt/KeyEquivalentText.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// The toolkit takes an ampersand for a mark of the letter after it.
QString withDrawnAmpersands(QString text)
{
    return text.replace(u'&', u"&&"_s);
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

QString menuActionText(const MenuItem& item)
{
    const QString title = withDrawnAmpersands(drawnTitle(item));
    const QString shortcut = keyEquivalentText(item.keyEquivalent(), item.keyEquivalentModifierMask());
    return shortcut.isEmpty() || item.hasSubmenu() ? title : title + u'\t' + withDrawnAmpersands(shortcut);
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
