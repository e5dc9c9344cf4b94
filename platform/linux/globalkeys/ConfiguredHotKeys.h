// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/globalkeys/GlobalHotKeys.h"

namespace tarnwick {

/// Where nobody gives a program keys: the person binds them in the compositor's configuration, to a command
/// that asks this program for its menu. A hot key counts as registered, and is never pressed.
class ConfiguredHotKeys final : public GlobalHotKeys
{
    Q_OBJECT

public:
    using GlobalHotKeys::GlobalHotKeys;

    [[nodiscard]] TriggerHint hotKeyHint(quint32 keyCode, quint32 modifiers) const override
    {
        return configurationHint(keyCode, modifiers);
    }

protected:
    [[nodiscard]] bool take(const Registered& /*hotKey*/, const TriggerKey& /*key*/) override { return true; }
    void giveBack(const Registered& /*hotKey*/) override {}
};

} // namespace tarnwick
