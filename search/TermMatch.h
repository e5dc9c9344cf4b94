// SPDX-License-Identifier: MIT
#pragma once

#include "search/TextRange.h"

#include <QList>
#include <QStringView>

#include <optional>

namespace tarnwick {

/// How well an entry is met, the best first.
enum class MatchLevel : quint8 {
    Exact,     ///< the whole title
    Beginning, ///< the title begins so
    Words,     ///< words of the title begin so
    Initials, ///< made of beginnings of its words: "sa", "savas" for "Save As…"; short ones may be left out
    Inside,   ///< somewhere in the title
    Path,     ///< in the title of a menu on the way to it
    Letters,  ///< the letters of the title in their order, with others between them
};

/// A folded title where it lies.
struct FoldedView
{
    QStringView text;
    const char* wordStarts = nullptr; ///< 1 or 0 for each unit of `text`
};

/// Words, Initials, Inside or Letters; nothing where `term`, one folded word, is not in the title at all.
/// `where`, when asked for, is given the parts of the folded title that are met, in order.
[[nodiscard]] std::optional<MatchLevel> matchTerm(FoldedView title, QStringView term,
                                                  QList<TextRange>* where = nullptr);

} // namespace tarnwick
