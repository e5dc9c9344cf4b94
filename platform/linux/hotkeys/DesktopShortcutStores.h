// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/hotkeys/DesktopShortcut.h"

#include <QStringList>

#include <optional>

namespace tarnwick {

/// Where the desktops keep their own shortcuts.
class DesktopShortcutStores
{
public:
    /// Folders as the base-directory rules name them: the user's configuration and the system's.
    DesktopShortcutStores(QString userConfiguration, QStringList systemConfigurations);
    /// Those of this session.
    [[nodiscard]] static DesktopShortcutStores ofSession();

    /// The shortcuts of the first desktop in `currentDesktops` (as in XDG_CURRENT_DESKTOP) that is known,
    /// read afresh: empty when none is, nothing when the store is there but cannot be read. Takes 0.5 s at
    /// most.
    [[nodiscard]] std::optional<QList<DesktopShortcut>> read(const QStringList& currentDesktops) const;

private:
    [[nodiscard]] std::optional<QList<DesktopShortcut>> _readXfce() const;
    [[nodiscard]] std::optional<QList<DesktopShortcut>> _readKde() const;

    QString _userConfiguration;
    QStringList _systemConfigurations; ///< the most important first
};

} // namespace tarnwick
