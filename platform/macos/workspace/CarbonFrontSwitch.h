// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

namespace tarnwick {

/// The system's event for a change of the front application. Lives as long as the process, like its handler.
/// GUI thread only.
class CarbonFrontSwitch : public QObject
{
    Q_OBJECT

public:
    CarbonFrontSwitch();

    /// `switched` runs inside the event, once for each. An event that comes while a menu of ours is open
    /// closes the menu, and `switched` runs from the event loop once the call that opened it has returned.
    /// False when the system refuses; `switched` is then not kept.
    [[nodiscard]] bool install(std::function<void()> switched);

private:
    void _switched();
    void _runPending();

    std::function<void()> _callback;
    int _pending = 0;
};

} // namespace tarnwick
