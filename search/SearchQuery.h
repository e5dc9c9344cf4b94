// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>

namespace tarnwick {

/// One bit for each unit of a text, several units sharing a bit; blanks have none. A text that lacks a bit of
/// another one lacks a letter of it.
[[nodiscard]] quint64 lettersOf(QStringView folded);

/// What somebody has typed, folded as titles are.
struct SearchQuery
{
    struct Term
    {
        QString text;
        quint64 letters = 0;
    };

    /// More than this many units are passed over, so that what is pasted does not cost more than it can find.
    static constexpr qsizetype Longest = 256;

    [[nodiscard]] static SearchQuery of(const QString& typed);

    /// Nothing is looked for, and nothing found.
    [[nodiscard]] bool isEmpty() const { return terms.isEmpty(); }
    /// Whether it finds nothing that `earlier` does not find, since letters were only added behind it.
    [[nodiscard]] bool narrows(const SearchQuery& earlier) const;

    QString text;      ///< with one blank between the words
    QList<Term> terms; ///< the words; each has to be found, in any order
    quint64 letters = 0;
};

} // namespace tarnwick
