// SPDX-License-Identifier: MIT
#include "foundation/NotificationCenter.h"

#include <utility>

namespace tarnwick {

NotificationCenter& NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

std::unique_ptr<NotificationCenter::Observer>
NotificationCenter::addObserver(const QString& name, const void* object, Callback callback)
{
    return _observers.add([name, object, callback = std::move(callback)](const Notification& notification) {
        if (notification.name == name && (object == nullptr || notification.object == object))
            callback(notification);
    });
}

void NotificationCenter::postNotificationName(const QString& name, const void* object,
                                              const QVariantMap& userInfo)
{
    _observers.notify({name, object, userInfo});
}

} // namespace tarnwick
