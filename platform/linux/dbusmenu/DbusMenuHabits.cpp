// SPDX-License-Identifier: MIT
#include "platform/linux/dbusmenu/DbusMenuHabits.h"

#include "platform/linux/menus/MnemonicLabel.h"

#include <array>

namespace tarnwick {

namespace {

struct Exporters
{
    QByteArrayView below; ///< object path
    DbusMenuHabits habits;
};

/// Whoever is not here, as Firefox and Thunderbird, which export at "/com/canonical/menu", may bring their
/// own menu bar back into the window and give all entries other numbers when they are told that a menu opens.
constexpr std::array Known{
    Exporters{"/MenuBar/", {.isToldOfOpening = true, .leavesUnderscores = true}}, // Qt and KDE
};

bool beginsWord(QStringView label, qsizetype mark)
{
    const auto isOfWord = [](QChar character) { return character.isLetterOrNumber() || character == u'_'; };
    const QChar next = label[mark + 1];
    return (mark == 0 || !isOfWord(label[mark - 1])) && next != u'_' && !next.isSpace();
}

/// Which underscore was the ampersand of the mnemonic; -1 where none was, as in the name of a file. That was
/// the first ampersand, and not the last character.
qsizetype mnemonicIn(QStringView label)
{
    const qsizetype end = label.contains(u'&') ? label.indexOf(u'&') : label.size() - 1;
    const qsizetype first = label.first(std::max<qsizetype>(end, 0)).indexOf(u'_');
    for (qsizetype mark = first; mark >= 0 && mark < end; mark = label.indexOf(u'_', mark + 1))
        if (beginsWord(label, mark))
            return mark;
    return label.count(u'_') == 1 ? first : -1;
}

} // namespace

DbusMenuHabits DbusMenuHabits::of(const DbusMenuPlace& place)
{
    for (const Exporters& exporters : Known)
        if (place.menu.startsWith(exporters.below))
            return exporters.habits;
    return {};
}

QString DbusMenuHabits::titleOf(const QString& label) const
{
    if (!leavesUnderscores)
        return titleOfMnemonicLabel(label);
    QString text = label.left(label.indexOf(u'\t'));
    if (const qsizetype mnemonic = mnemonicIn(text); mnemonic >= 0)
        text[mnemonic] = u'&';
    return titleOfMnemonicLabel(text, u'&');
}

} // namespace tarnwick
