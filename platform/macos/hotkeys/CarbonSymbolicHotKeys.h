// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/SymbolicHotKeys.h"

namespace tarnwick {

/// The system's own shortcuts, as the Carbon event manager lists them.
class CarbonSymbolicHotKeys final : public SymbolicHotKeys
{
public:
    [[nodiscard]] std::optional<QList<SymbolicHotKey>>
    copySymbolicHotKeys(qint64 candidateKeyCode, quint32 candidateModifiers) override;
    [[nodiscard]] ModeToken pushSymbolicHotKeyMode(quint32 options) override;
    void popSymbolicHotKeyMode(ModeToken token) override;
};

} // namespace tarnwick
