// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/KeyboardLayout.h"

#include <deque>

namespace tarnwick {

/// The keyboard layout by Text Input Sources. Lives as long as the process, like its observers.
class TISKeyboardLayout final : public KeyboardLayout
{
public:
    [[nodiscard]] std::unique_ptr<UnicodeKeyLayout> copyCurrentKeyboardInputSource() const override;
    [[nodiscard]] quint8 keyboardType() const override;
    void addSelectedKeyboardInputSourceChangedObserver(std::function<void()> changed) override;

private:
    std::deque<std::function<void()>> _observers; ///< at addresses that do not change
};

} // namespace tarnwick
