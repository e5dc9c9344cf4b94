// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/ExportedMenuBar.h"

#include <QPoint>
#include <QString>

#include <optional>

namespace tarnwick {

/// What a program that sees every window and the pointer tells of the moment in which the menu was asked for.
/// Whatever it does not tell is found out as without it.
struct FrontHint
{
    std::optional<QPoint> pointer;           ///< in pixels of the X server
    std::optional<qint64> processIdentifier; ///< of the window that has the focus
    std::optional<QString> title;            ///< of that window; not empty
    ExportedMenuBar menuBar = {};            ///< of that window

    friend bool operator==(const FrontHint&, const FrontHint&) = default;
};

} // namespace tarnwick
