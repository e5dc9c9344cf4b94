// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tarnwick {

/// Where on the session bus a program says that it exports the menu bar of a window. A default-made one is
/// nowhere.
struct ExportedMenuBar
{
    QByteArray service;
    QByteArray path;

    explicit operator bool() const { return !service.isEmpty() && !path.isEmpty(); }
    friend bool operator==(const ExportedMenuBar&, const ExportedMenuBar&) = default;
};

} // namespace tarnwick
