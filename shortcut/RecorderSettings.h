// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Event.h"
#include "shortcut/KeyCombo.h"

#include <QString>
#include <QVariantMap>

#include <optional>

namespace tarnwick {

class Archive;

/// What a recorder's cell is set to and the combination that it holds. Flags are Cocoa flags. GUI thread
/// only.
struct RecorderSettings
{
    static constexpr quint64 AllModifiers =
        CommandKeyMask | AlternateKeyMask | ControlKeyMask | ShiftKeyMask | FunctionKeyMask;

    QString autosaveName; ///< null or empty: the combination is not kept
    qint32 style = 0;     ///< 0 or 1
    bool isAnimating = false;
    KeyCombo keyCombo;
    bool hasKeyChars = false; ///< the two texts are those of the key press that was recorded
    std::optional<QString> keyChars;
    std::optional<QString> keyCharsIgnoringModifiers;
    quint64 allowedFlags = AllModifiers; ///< modifiers that may take part
    quint64 requiredFlags = 0;           ///< modifiers that take part always
    bool allowsKeyOnly = false;
    bool escapeKeysRecord = false;
    bool globalHotKeys = false; ///< the desktop's own shortcuts are switched off while recording

    /// Any value but 1 becomes 0.
    void setStyle(qint32 value) { style = value == 1 ? 1 : 0; }

    /// Of `flags` what is allowed, and all that is required.
    [[nodiscard]] quint64 filtered(quint64 flags) const;
    /// Whether a key may be recorded with these modifiers.
    [[nodiscard]] bool valid(quint64 flags) const;

    /// `globalHotKeys` is never archived. An archive without keys holds the name, the combination and the two
    /// masks only.
    void encode(Archive& archive) const;
    void decode(Archive& archive);

    /// The combination as it is kept under the autosave name.
    [[nodiscard]] QVariantMap dictionary() const;
    /// Takes over the combination; what is missing or of another type is neutral.
    void setDictionary(const QVariantMap& dictionary);

private:
    void _decodeKeyed(const Archive& archive);
    void _decodeUnkeyed(Archive& archive);
};

} // namespace tarnwick
