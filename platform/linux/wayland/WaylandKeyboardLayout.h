// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/KeyboardLayout.h"

namespace tarnwick {

/// prototype
class WaylandKeyboardLayout final : public KeyboardLayout
{
public:
    [[nodiscard]] std::unique_ptr<UnicodeKeyLayout> copyCurrentKeyboardInputSource() const override
    {
        return nullptr;
    }
    [[nodiscard]] quint8 keyboardType() const override { return 0; }
    void addSelectedKeyboardInputSourceChangedObserver(std::function<void()> /*changed*/) override {}
};

} // namespace tarnwick
