// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/ObserverList.h"

#include <QString>
#include <QVariantMap>

#include <functional>
#include <memory>

namespace tarnwick {

/// What observers receive.
struct Notification
{
    QString name;
    const void* object = nullptr; ///< the poster; compared, never followed
    QVariantMap userInfo;
};

/// Posts notifications to observers by name and poster, synchronously: every observer has run when
/// postNotificationName() returns. Observers may come and go meanwhile. GUI thread only.
class NotificationCenter
{
public:
    NotificationCenter() = default;
    NotificationCenter(const NotificationCenter&) = delete;
    NotificationCenter& operator=(const NotificationCenter&) = delete;

    /// The one that the whole program shares.
    static NotificationCenter& defaultCenter();

    using Callback = std::function<void(const Notification&)>;
    using Observer = Observation;

    /// A null `object` observes every poster.
    [[nodiscard]] std::unique_ptr<Observer> addObserver(const QString& name, const void* object,
                                                        Callback callback);

    void postNotificationName(const QString& name, const void* object, const QVariantMap& userInfo = {});

private:
    ObserverList<const Notification&> _observers;
};

} // namespace tarnwick
