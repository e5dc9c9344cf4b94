// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>

#include <optional>

namespace tarnwick {

/// One key combination as a desktop writes it down: a key, by what it types or by its place, and event
/// modifiers (0x100 Command is Super, 0x200 Shift, 0x800 Option is Alt, 0x1000 Control).
struct DesktopShortcut
{
    quint32 keysym = 0;  ///< 0 when the key is named by its place
    quint16 keyCode = 0; ///< X key code, when the key is named by its place
    quint32 modifiers = 0;

    /// "<Primary><Alt>t". Nothing for other texts, and where a modifier is asked for that no hot key can
    /// have.
    [[nodiscard]] static std::optional<DesktopShortcut> ofAccelerator(const QString& text);

    /// "Meta+Ctrl+T". Nothing for other texts and for more than one key after another.
    [[nodiscard]] static std::optional<DesktopShortcut> ofPortableText(const QString& text);

    friend bool operator==(const DesktopShortcut&, const DesktopShortcut&) = default;
};

} // namespace tarnwick
