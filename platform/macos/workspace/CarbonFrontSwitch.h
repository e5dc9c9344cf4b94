// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace tarnwick {

/// The system's event for a change of the front application. Lives as long as the process, like its handler.
/// GUI thread only.
class CarbonFrontSwitch
{
public:
    /// `switched` runs inside the event, once for each. Events that come while a menu of ours is open are
    /// kept by the system until the call that opened it has returned. False when the system refuses;
    /// `switched` is then not kept.
    [[nodiscard]] bool install(std::function<void()> switched);

    /// To be called when another application has become active, which is told at once, also while a menu of
    /// ours is open: closes the menu.
    static void applicationActivated();

private:
    std::function<void()> _callback;
};

} // namespace tarnwick
