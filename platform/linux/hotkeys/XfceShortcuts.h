// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/hotkeys/DesktopShortcut.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>

#include <optional>

namespace tarnwick {

/// The shortcuts of Xfce as its settings channel has them: of each provider ("commands", "xfwm4") the
/// defaults, or the user's own where these are told to replace the defaults.
class XfceShortcuts
{
public:
    /// The channel's file. Nothing when it is not well formed.
    [[nodiscard]] static std::optional<XfceShortcuts> parse(const QByteArray& xml);

    /// Lays the user's file over the system's.
    void merge(const XfceShortcuts& over);

    [[nodiscard]] QList<DesktopShortcut> shortcuts() const;

private:
    struct Provider
    {
        QString name;
        QStringList defaults; ///< accelerators
        QStringList custom;
        std::optional<bool> customReplaces;
    };

    [[nodiscard]] Provider& _provider(const QString& name);
    void _take(const QStringList& path, const QString& type, const QString& value);

    QList<Provider> _providers;
};

} // namespace tarnwick
