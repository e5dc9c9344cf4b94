// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"
#include "foundation/UserDefaults.h"

#include <QString>
#include <QVariant>

#include <functional>
#include <memory>

namespace tarnwick {

/// The settings as something that can be observed and bound: key paths are "values." followed by the key. A
/// change is seen however it was made, through this object or through UserDefaults. GUI thread only.
class UserDefaultsController
{
public:
    /// `defaults` is not owned and must outlive this.
    explicit UserDefaultsController(UserDefaults& defaults);
    UserDefaultsController(const UserDefaultsController&) = delete;
    UserDefaultsController& operator=(const UserDefaultsController&) = delete;

    /// The one over UserDefaults::standardUserDefaults().
    static UserDefaultsController& sharedUserDefaultsController();

    void setInitialValues(const DefaultsTable& table);
    [[nodiscard]] const DefaultsTable& initialValues() const { return _initialValues; }

    /// Stores every row of the initial values, in order, and notifies only then, in the same order. Other
    /// keys stay.
    void revertToInitialValues(ActionSender* sender);

    /// Invalid, and without effect, for a path that does not begin with "values.".
    [[nodiscard]] QVariant valueForKeyPath(const QString& keyPath) const;
    void setValueForKeyPath(const QVariant& value, const QString& keyPath);

    using Observer = Observation;

    /// `changed` runs after each change of exactly `keyPath`. Destroying the observer ends it.
    [[nodiscard]] std::unique_ptr<Observer>
    addObserverForKeyPath(const QString& keyPath, std::function<void(const QString& keyPath)> changed);

private:
    UserDefaults& _defaults;
    DefaultsTable _initialValues;
    ObserverList<const QString&> _observers;
    std::unique_ptr<UserDefaults::Observer> _defaultsObserver;
};

} // namespace tarnwick
