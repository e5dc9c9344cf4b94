// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

#include <functional>
#include <utility>

namespace tarnwick {

/// Runs what it is given from the event loop, never at once. A trigger is handed on so: what has happened
/// before it, a switch of the application in front, is to be known by then.
using TriggerOrder = std::function<void(std::function<void()>)>;

/// For whoever has nothing to wait for.
inline void fromEventLoop(std::function<void()> then)
{
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(then), Qt::QueuedConnection);
}

} // namespace tarnwick
