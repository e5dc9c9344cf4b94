// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QList>
#include <QUrl>

#include <memory>
#include <optional>

namespace tarnwick {

/// The list of what starts when the user logs in. GUI thread only.
class LoginItems : public SharedPort<LoginItems>
{
public:
    virtual ~LoginItems() = default;

    enum ResolveFlags : quint32 { NoUserInteraction = 1, DoNotMountVolumes = 2 };

    /// One entry of the list as it was read.
    class Item
    {
    public:
        virtual ~Item() = default;
    };
    /// The list as it is now; destroying it releases it.
    class List
    {
    public:
        virtual ~List() = default;
        [[nodiscard]] virtual QList<std::shared_ptr<Item>> copySnapshot() = 0;
        /// The file URL of what the item starts; nothing when it cannot be told.
        [[nodiscard]] virtual std::optional<QUrl> resolve(const Item& item, quint32 resolveFlags) = 0;
        /// At the top of the list, without a display name or an icon of its own.
        virtual void insertBeforeFirst(const QUrl& applicationUrl) = 0;
        virtual void remove(const Item& item) = 0;
    };

    /// Null when there is no such list.
    [[nodiscard]] virtual std::unique_ptr<List> createSessionLoginItems() = 0;
};

} // namespace tarnwick
