// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace tarnwick {

// What AppKit alone can do with the application and its windows.

void activateApplication(bool ignoringOtherApps);

/// In front of the windows of all applications, whichever is active.
void orderFrontRegardless(const QWidget& window);

/// Ends an alert that is run modally, as if it had been closed.
void abortModalAlert();

} // namespace tarnwick
