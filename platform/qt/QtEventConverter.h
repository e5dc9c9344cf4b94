// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Event.h"

#include <functional>
#include <optional>

class QEvent;
class QKeyEvent;
class QMouseEvent;

namespace tarnwick {

/// Describes Qt's key and mouse events as the core's events: physical modifiers (Super or Meta is Command,
/// Alt is Option), virtual key codes, and the platform's characters for keys that type none.
class QtEventConverter
{
public:
    /// What only the desktop knows about keys.
    struct Keyboard
    {
        /// The virtual key code of the key; nothing when it has none.
        std::function<std::optional<quint16>(const QKeyEvent& event)> keyCode;
        /// What the key types alone, or with Shift; empty when it types nothing.
        std::function<QString(quint16 keyCode, bool shift)> letter;
    };

    explicit QtEventConverter(Keyboard keyboard);

    /// The key code of a key that has none.
    static constexpr quint16 NoKeyCode = 0xFFFF;

    /// Nothing for an event that is neither of a key nor of a mouse button, the pointer or its coming and
    /// going.
    [[nodiscard]] std::optional<Event> convert(const QEvent& event) const;

private:
    [[nodiscard]] Event _convertKey(const QKeyEvent& key) const;
    void _addCharacters(const QKeyEvent& key, Event& event) const;

    Keyboard _keyboard;
};

} // namespace tarnwick
