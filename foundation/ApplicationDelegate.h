// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"

namespace tarnwick {

/// What the running application tells its one delegate. The bodies here do what a delegate that does not
/// respond does. GUI thread only.
class ApplicationDelegate : public ActionTarget
{
public:
    virtual void applicationWillFinishLaunching() {}
    virtual void applicationDidFinishLaunching() {}

    /// Asked once before the process ends. False keeps it running.
    [[nodiscard]] virtual bool applicationShouldTerminate() { return true; }

    /// The user started the application again while it runs. False tells that the request was dealt with.
    [[nodiscard]] virtual bool applicationShouldHandleReopenHasVisibleWindows(bool /*hasVisibleWindows*/)
    {
        return true;
    }
};

} // namespace tarnwick
