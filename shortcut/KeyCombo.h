// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace tarnwick {

/// A key with the modifiers held. Whoever carries one says which family of modifier bits `flags` holds.
struct KeyCombo
{
    quint64 flags = 0;
    qint64 code = -1; ///< virtual key code, 0 to 127; -1 is no key

    friend bool operator==(const KeyCombo&, const KeyCombo&) = default;
};

} // namespace tarnwick
