// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/XkbKeyboardLayout.h"

namespace tarnwick {

class WaylandKeyboard;

/// The layout that the compositor tells. Which of several is in use it tells while a window of ours has the
/// keyboard; else it is the one in use then.
class WaylandKeyboardLayout final : public XkbKeyboardLayout
{
    Q_OBJECT

public:
    explicit WaylandKeyboardLayout(std::shared_ptr<const WaylandKeyboard> keyboard);

    [[nodiscard]] std::shared_ptr<const XkbKeymap> keymap() const override;

private:
    std::shared_ptr<const WaylandKeyboard> _keyboard;
};

} // namespace tarnwick
