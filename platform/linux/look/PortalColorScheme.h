// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/look/LookSources.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QObject>

namespace tarnwick {

/// Whether programs are to be light or dark by the word of the desktop's portal, from when that runs; it is
/// not started for this. GUI thread only.
class PortalColorScheme final : public QObject
{
    Q_OBJECT

public:
    explicit PortalColorScheme(QDBusConnection bus);

    [[nodiscard]] ColorScheme current() const { return _current; }

Q_SIGNALS:
    /// current() is another one.
    void changed();

private Q_SLOTS:
    void _settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void _ask();
    void _set(ColorScheme scheme);

    QDBusConnection _bus;
    QDBusServiceWatcher _portal;
    ColorScheme _current = ColorScheme::NoPreference;
};

} // namespace tarnwick
