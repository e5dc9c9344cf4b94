// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace tarnwick {

/// A part of a text, in UTF-16 units.
struct TextRange
{
    qsizetype begin = 0;
    qsizetype end = 0; ///< behind the last unit

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

} // namespace tarnwick
