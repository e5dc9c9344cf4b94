// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/menus/MenuRow.h"

#include <QCoreApplication>

namespace tarnwick {

/// A menu whose entries do not exist before the application has opened it.
class UnmadeMenu
{
    Q_DECLARE_TR_FUNCTIONS(tarnwick::UnmadeMenu)

public:
    /// What is shown in it: greyed, it stands for nothing in the application.
    [[nodiscard]] static MenuRow row();
    /// Whether that is all that there is, or nothing.
    [[nodiscard]] static bool is(const QList<MenuRow>& rows);
};

} // namespace tarnwick
