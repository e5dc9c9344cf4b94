// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/KeyNames.h"

namespace tarnwick {

/// Keys as the desktop's menus name them, in the user's language: "Ctrl+Alt+", "PgDown". Command is Super,
/// Option Alt: the keys at their places.
class DesktopKeyNames final : public KeyNames
{
public:
    [[nodiscard]] QString modifiers(quint64 cocoaFlags) const override;
    [[nodiscard]] std::optional<QString> key(qint64 keyCode) const override;
};

} // namespace tarnwick
