// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

namespace tarnwick {

// Key combinations as texts. "Cocoa" flags are ModifierFlag bits, "Carbon" flags CarbonModifierFlag bits. A
// key without a name prints as "(null)". GUI thread only.

/// The name of the key on the current layout; nothing, or the empty text, when it has none. The low 16 bits
/// of the code count.
[[nodiscard]] std::optional<QString> SRStringForKeyCode(qint64 keyCode);

/// Glyphs, in the order Control, Option, Shift, Command.
[[nodiscard]] QString SRStringForCocoaModifierFlags(quint64 flags);
[[nodiscard]] QString SRStringForCarbonModifierFlags(quint64 flags);

/// Glyphs and the key.
[[nodiscard]] QString SRStringForCocoaModifierFlagsAndKeyCode(quint64 flags, qint64 keyCode);
[[nodiscard]] QString SRStringForCarbonModifierFlagsAndKeyCode(quint64 flags, qint64 keyCode);

/// Translated words and the key, in the order Command, Option, Control, Shift: deliberately not the order of
/// the glyphs.
[[nodiscard]] QString SRReadableStringForCocoaModifierFlagsAndKeyCode(quint64 flags, qint64 keyCode);
[[nodiscard]] QString SRReadableStringForCarbonModifierFlagsAndKeyCode(quint64 flags, qint64 keyCode);

/// The character that the key types with the Shift and Option of `flags`, capitalised; the key's name when
/// the layout cannot tell, and nothing when it has none.
[[nodiscard]] std::optional<QString> SRCharacterForKeyCodeAndCocoaFlags(qint64 keyCode, quint64 flags);
[[nodiscard]] std::optional<QString> SRCharacterForKeyCodeAndCarbonFlags(qint64 keyCode, quint64 flags);

} // namespace tarnwick
