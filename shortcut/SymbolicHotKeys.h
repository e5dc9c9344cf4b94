// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QList>
#include <QtGlobal>

#include <optional>

namespace tarnwick {

/// One of the desktop's own shortcuts.
struct SymbolicHotKey
{
    bool enabled = false;
    qint16 code = 0;      ///< virtual key code
    qint32 modifiers = 0; ///< 0x100 Command, 0x200 Shift, 0x800 Option, 0x1000 Control
};

/// The desktop's own keyboard shortcuts. GUI thread only.
class SymbolicHotKeys : public SharedPort<SymbolicHotKeys>
{
public:
    virtual ~SymbolicHotKeys() = default;

    /// Names one push; 0 is none.
    using ModeToken = quint64;
    enum ModeOptions : quint32 { AllHotKeysDisabled = 1 };

    /// All of them, in the desktop's order, read afresh: empty on a desktop without such a list, nothing when
    /// the list could not be read. `candidateKeyCode` and `candidateModifiers` name the combination that the
    /// caller is about to test; where the desktop can only be asked about one combination at a time and says
    /// that somebody holds it, the list contains it.
    [[nodiscard]] virtual std::optional<QList<SymbolicHotKey>>
    copySymbolicHotKeys(qint64 candidateKeyCode, quint32 candidateModifiers) = 0;

    /// Switches the desktop's shortcuts off until the matching pop. The token is 0 when that was not
    /// possible.
    [[nodiscard]] virtual ModeToken pushSymbolicHotKeyMode(quint32 options) = 0;
    virtual void popSymbolicHotKeyMode(ModeToken token) = 0;
};

} // namespace tarnwick
