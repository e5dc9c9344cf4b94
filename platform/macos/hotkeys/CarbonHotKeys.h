// SPDX-License-Identifier: MIT
#pragma once

#include "app/HotKeys.h"

#include <QHash>
#include <QObject>

#include <deque>
#include <functional>

namespace tarnwick {

/// Hot keys of the Carbon event manager. Lives as long as the process: the system keeps its handlers, and
/// itself drops the hot keys that are left. A press while a menu of ours is open is kept by the system until
/// the menu has closed, and dropped then.
class CarbonHotKeys final : public HotKeys
{
public:
    CarbonHotKeys();

    void installEventHandler(std::function<qint32()> handler) override;
    [[nodiscard]] std::optional<EventHotKeyRef>
    registerEventHotKey(quint32 keyCode, quint32 modifiers, EventHotKeyID id, quint32 options) override;
    bool unregisterEventHotKey(EventHotKeyRef hotKey) override;

private:
    struct Handler
    {
        const CarbonHotKeys* hotKeys;
        std::function<qint32()> pressed;
    };
    static qint32 _pressed(const Handler& handler, double time);

    std::deque<Handler> _handlers;            ///< at addresses that do not change
    double _menuClosed = 0;                   ///< when the last menu of ours did, on the time of events
    QObject _whileThere;                      ///< ends what is told of menus
    QHash<EventHotKeyRef, void*> _registered; ///< the system's own references
    EventHotKeyRef _last = 0;
};

} // namespace tarnwick
