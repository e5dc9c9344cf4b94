// SPDX-License-Identifier: MIT
#pragma once

#include "app/Desktop.h"
#include "platform/macos/session/ReopenEvent.h"

#include <QApplication>

namespace tarnwick {

/// Tarnwick in a user's session: Qt's application object and the request to open it again, which the system
/// sends instead of a second process.
class MacSession final : public DesktopSession
{
public:
    MacSession(int& argc, char** argv);

    [[nodiscard]] bool handedOverToRunningInstance() override;
    /// Launches inside the loop: the system's start-up is over then.
    int run(const std::function<void()>& launch) override;

private:
    struct Attributes
    {
        Attributes();
    };
    Attributes _attributes; ///< must be set before there is an application
    QApplication _application;
    ReopenEvent _reopenEvent;
};

} // namespace tarnwick
