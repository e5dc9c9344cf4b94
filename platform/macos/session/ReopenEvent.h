// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace tarnwick {

/// The event by which the system tells that the user has opened the application again while it runs. Lives as
/// long as the process, like its handler. GUI thread only.
class ReopenEvent
{
public:
    /// `reopened` runs from the event loop and says whether the system is to go on with what it does by
    /// itself.
    [[nodiscard]] bool install(std::function<bool()> reopened);

private:
    std::function<bool()> _reopened;
};

} // namespace tarnwick
