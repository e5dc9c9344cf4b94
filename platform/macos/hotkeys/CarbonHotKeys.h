// SPDX-License-Identifier: MIT
#pragma once

#include "app/HotKeys.h"

#include <QHash>

#include <deque>
#include <functional>

namespace tarnwick {

/// Hot keys of the Carbon event manager. Lives as long as the process: the system keeps its handlers, and
/// itself drops the hot keys that are left.
class CarbonHotKeys final : public HotKeys
{
public:
    void installEventHandler(std::function<qint32()> handler) override;
    [[nodiscard]] std::optional<EventHotKeyRef>
    registerEventHotKey(quint32 keyCode, quint32 modifiers, EventHotKeyID id, quint32 options) override;
    bool unregisterEventHotKey(EventHotKeyRef hotKey) override;

private:
    std::deque<std::function<qint32()>> _handlers; ///< at addresses that do not change
    QHash<EventHotKeyRef, void*> _registered;      ///< the system's own references
    EventHotKeyRef _last = 0;
};

} // namespace tarnwick
