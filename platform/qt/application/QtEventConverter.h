// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Event.h"

#include <QHash>

#include <functional>
#include <optional>

class QEvent;
class QKeyEvent;
class QSinglePointEvent;

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
        /// The modifier flag of a modifier key, as it is when pressed alone; 0 for one that has none. Where
        /// this is not set, Qt's name of the key tells.
        std::function<quint64(quint16 keyCode)> modifier = {};
    };

    explicit QtEventConverter(Keyboard keyboard);

    /// The key code of a key that has none.
    static constexpr quint16 NoKeyCode = 0xFFFF;

    /// Nothing for an event that is neither of a key nor of a mouse button, the pointer or its coming and
    /// going. To be given every event: which modifier keys are down is kept from one to the next, until the
    /// windows lose the keyboard.
    [[nodiscard]] std::optional<Event> convert(const QEvent& event);

private:
    [[nodiscard]] Event _convertKey(const QKeyEvent& key);
    void _changeFlags(const QKeyEvent& key, Event& event);
    void _addCharacters(const QKeyEvent& key, Event& event) const;
    [[nodiscard]] quint64 _flagsOf(Qt::KeyboardModifiers modifiers) const;
    [[nodiscard]] Event _pointerEvent(Event::Type type, const QSinglePointEvent& pointer) const;

    Keyboard _keyboard;
    QHash<quint16, quint64> _unseen; ///< flags of keys that are down, by key code, which Qt does not tell of
};

} // namespace tarnwick
