// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tarnwick {

/// Settings keys with their default values, in the order of the table.
using DefaultsTable = QList<std::pair<QString, QVariant>>;

/// The user's settings: stored values over registered defaults. A registered key is read in the type of its
/// default (bool, int, quint64 or QString); a stored value of another type, or an unreadable one, reads as
/// the default. A key that is not registered reads as stored. Every write notifies, even of an equal value.
/// GUI thread only.
class UserDefaults
{
public:
    UserDefaults();
    ~UserDefaults();
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    /// The one over DefaultsStore::shared().
    static UserDefaults& standardUserDefaults();

    /// Replaces the registered defaults of the table's keys.
    void registerDefaults(const DefaultsTable& table);

    /// Invalid when the key is neither stored nor registered.
    [[nodiscard]] QVariant objectForKey(const QString& key) const;
    [[nodiscard]] bool boolForKey(const QString& key) const;  ///< false when missing
    [[nodiscard]] qint32 intForKey(const QString& key) const; ///< 0 when missing
    [[nodiscard]] quint64
    unsignedForKey(const QString& key) const; ///< 0 when missing; low bits of a negative number

    /// An invalid value removes the key.
    void setObjectForKey(const QVariant& value, const QString& key);
    void setBoolForKey(bool value, const QString& key);

    /// Stores or removes without telling anyone; didChange() tells.
    void storeObjectForKey(const QVariant& value, const QString& key);
    void didChange(const QString& key);

    class Observer
    {
    public:
        virtual ~Observer() = default;
    };
    /// `changed` runs at once after each write of any key. Destroying the observer ends it.
    [[nodiscard]] std::unique_ptr<Observer> addObserver(std::function<void(const QString& key)> changed);

private:
    class State;
    std::unique_ptr<State> _state;
};

} // namespace tarnwick
