// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QString>
#include <QtGlobal>

#include <optional>

namespace tarnwick {

/// What the desktop calls the keys of a combination, in its order. Not set on a desktop whose people read the
/// glyphs. GUI thread only.
class KeyNames : public SharedPort<KeyNames>
{
public:
    virtual ~KeyNames() = default;

    /// What stands before a key that is pressed with these Cocoa flags: "Ctrl+Alt+". Empty without a
    /// modifier.
    [[nodiscard]] virtual QString modifiers(quint64 cocoaFlags) const = 0;

    /// The key with this virtual key code, in words; nothing for one that is called by what it types.
    [[nodiscard]] virtual std::optional<QString> key(qint64 keyCode) const = 0;
};

} // namespace tarnwick
