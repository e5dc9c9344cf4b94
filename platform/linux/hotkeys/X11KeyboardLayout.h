// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/XkbKeyboardLayout.h"

namespace tarnwick {

/// The layout of the X server.
class X11KeyboardLayout final : public XkbKeyboardLayout
{
    Q_OBJECT

public:
    X11KeyboardLayout();

    [[nodiscard]] std::shared_ptr<const XkbKeymap> keymap() const override;
};

} // namespace tarnwick
