// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QString>
#include <QtGlobal>

#include <functional>
#include <memory>
#include <optional>

namespace tarnwick {

/// The user's current keyboard layout. GUI thread only.
class KeyboardLayout : public SharedPort<KeyboardLayout>
{
public:
    virtual ~KeyboardLayout() = default;

    /// One input source's key table, held for one look-up.
    class UnicodeKeyLayout
    {
    public:
        virtual ~UnicodeKeyLayout() = default;
        /// The UTF-16 units that the key gives, at most 4. `modifierKeyState` goes through unshifted: bit
        /// 0x200 is Shift, bit 0x800 Option. Nothing on failure, the empty text when the key types nothing.
        [[nodiscard]] virtual std::optional<QString> keyTranslate(quint16 virtualKeyCode, quint16 keyAction,
                                                                  quint32 modifierKeyState,
                                                                  quint32 keyboardType, quint32 options,
                                                                  quint32& deadKeyState) const = 0;
    };

    /// The layout that types now; null when there is none or it has no key table.
    [[nodiscard]] virtual std::unique_ptr<UnicodeKeyLayout> copyCurrentKeyboardInputSource() const = 0;

    /// The kind of keyboard, 8 bits.
    [[nodiscard]] virtual quint8 keyboardType() const = 0;

    /// `changed` runs later, from the event loop, after each change of the layout or its group. Never
    /// removed.
    virtual void addSelectedKeyboardInputSourceChangedObserver(std::function<void()> changed) = 0;
};

} // namespace tarnwick
