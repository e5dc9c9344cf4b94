// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Observation.h"

#include <QList>

#include <functional>
#include <memory>
#include <utility>

namespace tarnwick {

/// Callbacks that are told of something, in the order in which they were added. They may be added and ended
/// while others are told: a new one is told from the next time on, an ended one is not told any more.
template <typename... Args>
class ObserverList
{
public:
    using Callback = std::function<void(Args...)>;

    [[nodiscard]] std::unique_ptr<Observation> add(Callback callback)
    {
        _callbacks.removeIf([](const std::weak_ptr<const Callback>& each) { return each.expired(); });
        const auto added = std::make_shared<const Callback>(std::move(callback));
        _callbacks.append(added);
        return std::make_unique<Observation>(added);
    }

    void notify(Args... args) const
    {
        const auto callbacks = _callbacks;
        for (const auto& each : callbacks) {
            if (const auto callback = each.lock())
                (*callback)(args...);
        }
    }

private:
    QList<std::weak_ptr<const Callback>> _callbacks;
};

} // namespace tarnwick
