// SPDX-License-Identifier: MIT
#pragma once

#include "search/TextRange.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace tarnwick {

/// A text as titles and what is typed are compared: without case, accents, points of vowels, ellipses,
/// mnemonic marks and hyphens, with one blank for spaces of any kind and none at the ends, and with one form
/// for characters that have several (full-width ones, ligatures, ß and ss). A text that would be nothing then
/// keeps its marks.
struct FoldedText
{
    QString text;
    /// One for each unit of `text`: 1 where a word begins, else 0.
    QByteArray wordStarts;
};

[[nodiscard]] FoldedText foldedText(const QString& text);

/// Where each unit of `foldedText(text).text` comes from: a part of `text` that a person takes for one
/// character, never half a surrogate pair nor a letter without its marks.
[[nodiscard]] QList<TextRange> sourcesOfFoldedText(const QString& text);

} // namespace tarnwick
