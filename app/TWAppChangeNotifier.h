// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

namespace tarnwick {

/// Posted on the default notification centre for every switch of the front application. The object is the
/// notifier, "PID" in the user info the new front application's process identifier (invalid when unknown).
inline const QString TWAppChangedNotification = QStringLiteral("TWAppChanged");

/// Turns switches of the front application into notifications. Must live as long as switches may come. GUI
/// thread only.
class TWAppChangeNotifier
{
public:
    TWAppChangeNotifier() = default;
    TWAppChangeNotifier(const TWAppChangeNotifier&) = delete;
    TWAppChangeNotifier& operator=(const TWAppChangeNotifier&) = delete;

    /// False when the desktop cannot tell of switches. Installed for good.
    [[nodiscard]] bool setupAppFrontSwitchedHandler();

    /// Posts the notification about the application that is in front at this moment; its observers have run
    /// when this returns.
    void appFrontSwitched();
};

/// The handler of the switch itself: an event-handler result, always 0.
qint32 AppFrontSwitchedHandler(TWAppChangeNotifier& notifier);

} // namespace tarnwick
