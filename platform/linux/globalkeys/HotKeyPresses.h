// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/TriggerOrder.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <vector>

namespace tarnwick {

/// Presses of hot keys that a desktop tells of, and who handles them. A press while a menu is open is
/// dropped, and so are the repeats of a key that is held down. GUI thread only.
class HotKeyPresses final : public QObject
{
    Q_OBJECT

public:
    /// `order` is asked at each press, and hands it on.
    explicit HotKeyPresses(TriggerOrder order) : _order(std::move(order)) {}

    void addHandler(std::function<qint32()> handler) { _handlers.push_back(std::move(handler)); }

    void pressed();
    void released();

private:
    void _offer();
    void _offerOnceClosed();
    void _callHandlers() const;

    TriggerOrder _order;
    std::vector<std::function<qint32()>> _handlers;
    QElapsedTimer _held; ///< since the last sign that the key is held; not valid while it is up
};

} // namespace tarnwick
