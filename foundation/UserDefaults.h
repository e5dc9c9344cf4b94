// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/ObserverList.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tarnwick {

/// Settings keys with their default values, in the order of the table.
using DefaultsTable = QList<std::pair<QString, QVariant>>;

/// The user's settings: stored values over registered defaults. A registered key is read in the type of its
/// default (bool, int, quint64 or QString), whether the store gives it back typed or as text; a stored value
/// of another type, or an unreadable one, reads as the default. A key that is not registered reads as stored.
/// Every write notifies, even of an equal value. GUI thread only.
class UserDefaults
{
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    /// The one that the whole program shares. All read and write DefaultsStore::shared().
    static UserDefaults& standardUserDefaults();

    /// Replaces the registered defaults of the table's keys.
    void registerDefaults(const DefaultsTable& table);

    /// Invalid when the key is neither stored nor registered.
    [[nodiscard]] QVariant objectForKey(const QString& key) const;
    /// False when missing.
    [[nodiscard]] bool boolForKey(const QString& key) const;
    /// The low 32 bits of unsignedForKey(), so −1 reads as −1 from a row of either number type.
    [[nodiscard]] qint32 intForKey(const QString& key) const;
    /// 0 when missing; a negative number as its 64 bits.
    [[nodiscard]] quint64 unsignedForKey(const QString& key) const;
    /// A dictionary that was written under a key that is not registered; nothing when missing or unreadable.
    [[nodiscard]] std::optional<QVariantMap> dictionaryForKey(const QString& key) const;

    /// An invalid value removes the key; a dictionary is stored as JSON text.
    void setObjectForKey(const QVariant& value, const QString& key);
    void setBoolForKey(bool value, const QString& key);

    /// Stores or removes without telling anyone; didChange() tells.
    void storeObjectForKey(const QVariant& value, const QString& key);
    void didChange(const QString& key);

    using Observer = Observation;

    /// `changed` runs at once after each write of any key. Destroying the observer ends it.
    [[nodiscard]] std::unique_ptr<Observer> addObserver(std::function<void(const QString& key)> changed);

private:
    QHash<QString, QVariant> _registered;
    ObserverList<const QString&> _observers;
};

} // namespace tarnwick
