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
    explicit UserDefaultsController(UserDefaults& defaults);
    ~UserDefaultsController();
    UserDefaultsController(const UserDefaultsController&) = delete;
    UserDefaultsController& operator=(const UserDefaultsController&) = delete;

    /// The one over UserDefaults::standardUserDefaults().
    static UserDefaultsController& sharedUserDefaultsController();

    void setInitialValues(const DefaultsTable& table);
    [[nodiscard]] const DefaultsTable& initialValues() const;

    /// Stores every row of the initial values, in order, and notifies only then, in the same order. Other
    /// keys stay.
    void revertToInitialValues(ActionSender* sender);

    [[nodiscard]] QVariant valueForKeyPath(const QString& keyPath) const;
    void setValueForKeyPath(const QVariant& value, const QString& keyPath);

    class Observer
    {
    public:
        virtual ~Observer() = default;
    };
    /// `changed` runs after each change of exactly `keyPath`. Destroying the observer ends it.
    [[nodiscard]] std::unique_ptr<Observer>
    addObserverForKeyPath(const QString& keyPath, std::function<void(const QString& keyPath)> changed);

private:
    class State;
    std::unique_ptr<State> _state;
};

} // namespace tarnwick
