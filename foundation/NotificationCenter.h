// SPDX-License-Identifier: MIT
#pragma once

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
    NotificationCenter();
    ~NotificationCenter();
    NotificationCenter(const NotificationCenter&) = delete;
    NotificationCenter& operator=(const NotificationCenter&) = delete;

    /// The one that the whole program shares.
    static NotificationCenter& defaultCenter();

    using Callback = std::function<void(const Notification&)>;

    /// An observation; destroying it ends it, also from inside a callback and after the centre is gone.
    class Observer
    {
    public:
        virtual ~Observer() = default;
    };

    /// A null `object` observes every poster.
    [[nodiscard]] std::unique_ptr<Observer> addObserver(const QString& name, const void* object,
                                                        Callback callback);

    void postNotificationName(const QString& name, const void* object, const QVariantMap& userInfo = {});

private:
    class Entries;
    std::shared_ptr<Entries> _entries;
};

} // namespace tarnwick
