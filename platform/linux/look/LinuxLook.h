// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/look/PortalColorScheme.h"
#include "platform/linux/look/X11Settings.h"
#include "platform/qt/application/Look.h"

#include <QDBusConnection>
#include <QObject>

#include <memory>

namespace tarnwick {

/// Keeps the program looking as the desktop wants it, from now on and whenever that changes. To be made
/// before the first window. GUI thread only.
class LinuxLook final : public QObject
{
    Q_OBJECT

public:
    /// KDE says it in its files and over `bus`, all others to the X clients and by the portal on `bus`, whose
    /// word about light and dark goes first.
    LinuxLook(const QStringList& currentDesktops, QDBusConnection bus);
    ~LinuxLook() override;

    /// Whether what moves only to please had better not.
    [[nodiscard]] bool reducesMotion() const { return _look.reducesMotion; }

private Q_SLOTS:
    void _follow();

private:
    [[nodiscard]] Look _read() const;

    bool _kde;
    X11Settings _settings;
    std::unique_ptr<PortalColorScheme> _scheme; ///< null on KDE
    Look _look;
};

} // namespace tarnwick
